// SPDX-License-Identifier: MIT
#include "level_store.h"

#include "modBase.h"

#include <QFile>

QByteArray loadResource(int32_t id, const QString &type)
{
    QFile resource(QStringLiteral(":/%1/%2").arg(type.toLower()).arg(id));
    if (!resource.open(QIODevice::ReadOnly)) return {};
    return resource.readAll();
}

void ChargeNiveaux()
{
    gNiveaux1 = loadResource(100, QStringLiteral("mesdatas"));
    gNiveaux2 = loadResource(101, QStringLiteral("mesdatas"));
    gNiveaux3 = loadResource(102, QStringLiteral("mesdatas"));
}

int32_t bytesPerLevel(int32_t game)
{
    switch (game) {
    case 1: return 40;
    case 2: return 72;
    default: return 81;
    }
}

int32_t levelCount(int32_t game)
{
    const QByteArray &store = game == 1 ? gNiveaux1 : game == 2 ? gNiveaux2 : gNiveaux3;
    return static_cast<int32_t>(store.size()) / bytesPerLevel(game);
}

std::string_view storeBytes(const QByteArray &store) { return {store.constData(), static_cast<size_t>(store.size())}; }

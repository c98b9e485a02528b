// SPDX-License-Identifier: MIT
// The cues a test expects, written short: "008 009 010x3" for marel008, marel009, then three marel010.
#pragma once

#include <QStringList>

inline QStringList cues(const QString &numbers)
{
    QStringList names;
    for (const QString &token : numbers.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QStringList parts = token.split(QLatin1Char('x'));
        names +=
            QStringList(parts.size() > 1 ? parts.at(1).toInt() : 1, QStringLiteral("marel%1.wav").arg(parts.at(0)));
    }
    return names;
}

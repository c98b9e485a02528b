#include "tambour.h"

#include "documents.h"

#include <QFileInfo>
#include <QUrl>

QVariant Tambour::propertyGet(int id) const
{
    if (id == 5) return mPath;
    return {};
}

void Tambour::propertyPut(int id, const QVariant &value)
{
    if (id == 5) {
        mPath = value.toString();
        effectFor(mPath);
    } else if (id == 1) {
        QSoundEffect *effect = effectFor(mPath);
        if (value.toInt() == 7) {
            effect->stop();
        } else if (value.toInt() == 6) {
            played.append(QFileInfo(mPath).fileName());
            effect->play();
        }
    }
}

void Tambour::invoke(int id, const QString &argument)
{
    if (id == 24) openInViewer(argument, QStringLiteral("application/vnd.ms-htmlhelp"));
}

void Tambour::preload(const QString &path) { effectFor(path); }

QSoundEffect *Tambour::effectFor(const QString &path)
{
    std::unique_ptr<QSoundEffect> &effect = mEffects[path];
    if (!effect) {
        effect = std::make_unique<QSoundEffect>();
        effect->setSource(QUrl::fromLocalFile(path));
    }
    return effect.get();
}

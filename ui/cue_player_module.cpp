// SPDX-License-Identifier: MIT
// The wave player module: one sound effect per wave, made at its first use and kept.
#include "cue_player.h"

#include <QObject>
#include <QSoundEffect>
#include <QUrl>
#include <map>

class WavePlayer : public QObject, public CuePlayer {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID CuePlayer_iid)
    Q_INTERFACES(CuePlayer)

public:
    void load(const QString &path) override { effectFor(path); }
    void stop(const QString &path) override { effectFor(path)->stop(); }
    void play(const QString &path) override { effectFor(path)->play(); }

private:
    // The effects are children of the player, and live as long as the module.
    QSoundEffect *effectFor(const QString &path)
    {
        QSoundEffect *&effect = mEffects[path];
        if (!effect) {
            effect = new QSoundEffect(this);
            effect->setSource(QUrl::fromLocalFile(path));
        }
        return effect;
    }

    std::map<QString, QSoundEffect *> mEffects;
};

#include "cue_player_module.moc"

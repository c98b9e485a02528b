// SPDX-License-Identifier: MIT
// The sound and catalogue control, driven by dispatch ids as the program's family of controls is:
// property 5 is the path of the wave file it holds, property 1 takes a command (7 stops the wave,
// 6 plays it from its start), and method 24 opens a compiled help file in its registered viewer.
// Its wave player is a module beside the program; without the module the control is silent.
#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QVariant>

class CuePlayer;

class Tambour : public QObject {
    Q_OBJECT

public:
    // The player goes with the control, while the sound libraries it uses are still there.
    ~Tambour() override;

    QVariant propertyGet(int id) const;
    void propertyPut(int id, const QVariant &value);
    void invoke(int id, const QString &argument);

    // Names the player module and the waves it loads at once. The module is loaded by player(), at
    // the first play or sooner.
    void usePlayer(const QString &module, const QStringList &waves);
    // The player, loaded at the first call; null when the module is missing or unusable.
    CuePlayer *player();

    // The file names of the waves played, in order: what a test listens to.
    QStringList played;

private:

    QString mPath;
    QString mModule;
    QStringList mWaves;
    CuePlayer *mPlayer = nullptr;
    QPointer<QObject> mPlayerObject;
    bool mLoadTried = false;
};

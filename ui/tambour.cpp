// SPDX-License-Identifier: MIT
#include "tambour.h"

#include "cue_player.h"
#include "documents.h"

#include <QFileInfo>
#include <QPluginLoader>

Tambour::~Tambour() { delete mPlayerObject; }

QVariant Tambour::propertyGet(int id) const
{
    if (id == 5) return mPath;
    return {};
}

void Tambour::propertyPut(int id, const QVariant &value)
{
    if (id == 5) {
        mPath = value.toString();
    } else if (id == 1 && value.toInt() == 7) {
        if (mPlayer) mPlayer->stop(mPath);
    } else if (id == 1 && value.toInt() == 6) {
        played.append(QFileInfo(mPath).fileName());
        if (CuePlayer *p = player()) p->play(mPath);
    }
}

void Tambour::invoke(int id, const QString &argument)
{
    if (id == 24) openInViewer(argument, QStringLiteral("application/vnd.ms-htmlhelp"));
}

void Tambour::usePlayer(const QString &module, const QStringList &waves)
{
    mModule = module;
    mWaves = waves;
}

CuePlayer *Tambour::player()
{
    if (!mLoadTried && !mModule.isEmpty()) {
        mLoadTried = true;
        // The module stays loaded for the life of the program, whatever becomes of the loader; its
        // player is deleted with this control, not at the program's exit, when the sound libraries'
        // own globals may already be gone.
        mPlayerObject = QPluginLoader(mModule).instance();
        mPlayer = qobject_cast<CuePlayer *>(mPlayerObject);
        if (mPlayer)
            for (const QString &wave : mWaves) mPlayer->load(wave);
    }
    return mPlayer;
}

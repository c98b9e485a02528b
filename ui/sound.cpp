// SPDX-License-Identifier: MIT
#include "sound.h"

#include "cue_player.h"
#include "modBase.h"
#include "sound_cues.h"
#include "tambour.h"

#include <QCoreApplication>

void JoueSon(Tambour &tambour, QString nom)
{
    nom = gCheminApp + nom;
    if (tambour.propertyGet(5).toString() != nom) tambour.propertyPut(5, nom);
    tambour.propertyPut(1, 7);
    // The cue of a click comes while input is still on: clicks waiting now are left for later, so
    // that each click is handled to its end before the next one is taken.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    tambour.propertyPut(1, 6);
}

void preloadCues(Tambour &tambour)
{
    QStringList waves;
    for (const char *name : cue::kAll) waves.append(gCheminApp + QLatin1String(name));
    tambour.usePlayer(gCheminApp + QLatin1String(kCuePlayerModule), waves);
}

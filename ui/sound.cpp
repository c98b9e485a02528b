#include "sound.h"

#include "cue_player.h"
#include "frmFond.h"
#include "modBase.h"

#include <QCoreApplication>

void JoueSon(QString nom)
{
    Tambour &tambour = mainWindow()->tambour;
    nom = gCheminApp + nom;
    if (tambour.propertyGet(5).toString() != nom) tambour.propertyPut(5, nom);
    tambour.propertyPut(1, 7);
    // The cue of a click comes while input is still on: clicks waiting now are left for later, so
    // that each click is handled to its end before the next one is taken.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    tambour.propertyPut(1, 6);
}

void preloadCues()
{
    QStringList waves;
    for (const char *cue :
         {"marel001.wav", "marel002.wav", "marel007.wav", "marel008.wav", "marel009.wav", "marel010.wav"})
        waves.append(gCheminApp + QLatin1String(cue));
    mainWindow()->tambour.usePlayer(gCheminApp + QLatin1String(kCuePlayerModule), waves, mainWindow());
}

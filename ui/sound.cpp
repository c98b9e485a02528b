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
    QCoreApplication::processEvents();
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

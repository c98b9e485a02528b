// SPDX-License-Identifier: MIT
// Start-up: from the program's entry to the idle main window.
#include "best_times.h"
#include "frmFond.h"
#include "level_store.h"
#include "modBase.h"
#include "program_folder.h"
#include "running_instance.h"
#include "sound.h"

#include <QCoreApplication>

bool frmFond::Form_Load()
{
    if (!mInstance) mInstance = lockSingleInstance();
    if (!mInstance) return false;

    gCheminApp = withTrailingSeparator(QCoreApplication::applicationDirPath());
    preloadCues(tambour);
    gFichierBest = QStringLiteral("mlbestTime.dat");
    Picture1->show();
    InitDonnees();

    mCtrl = false;
    gNomJoueur.clear();
    gNomPartie.clear();
    gJeu = 0;

    ChargeNiveaux();
    AfficheMenu(0);
    return true;
}

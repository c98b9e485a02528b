#include "frmFond.h"

#include "level_store.h"
#include "modBase.h"
#include "program_folder.h"
#include "running_instance.h"

#include <QCoreApplication>

frmFond::frmFond(QWidget *parent) : QWidget(parent, Qt::FramelessWindowHint)
{
    setWindowTitle(QStringLiteral("Marelle"));
    setFixedSize(600, 600);
}

bool frmFond::Form_Load()
{
    mInstance = lockSingleInstance();
    if (!mInstance) return false;

    gCheminApp = withTrailingSeparator(QCoreApplication::applicationDirPath());
    gFichierBest = QStringLiteral("mlbestTime.dat");

    mCtrl = false;
    gNomJoueur.clear();
    gNomPartie.clear();
    gJeu = 0;

    ChargeNiveaux();
    return true;
}

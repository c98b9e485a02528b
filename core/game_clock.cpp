// SPDX-License-Identifier: MIT
// The game clock: the seconds of the level in play, and what a won level adds to the game's total.
#include "frmFond.h"
#include "modBase.h"

#include <QLabel>

void frmFond::myTimer_Timer()
{
    gTempsNiveau += 1.0;
    labTemps->setText(QStringLiteral(" ") + QString::number(static_cast<qint64>(gTempsNiveau)));
}

void frmFond::countWonLevelTime()
{
    gASauver = true;
    myTimer.stop();
    gTempsTotal += gTempsNiveau;
    if (gTempsTotal > 356400.0) gTempsTotal = 356400.0;
    gTempsNiveau = 0;
}

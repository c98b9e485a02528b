// SPDX-License-Identifier: MIT
// Jeu 3: what follows a removed pair when the board is empty.
#include "best_times_update.h"
#include "frmFond.h"
#include "modBase.h"

void frmFond::TesteFin3()
{
    if (!wonLevel(pairs.Vide3())) return;
    MajBest3(tambour);
    if (gNiveau + 1 < gNbNiveaux)
        nextLevel(3, 2);
    else
        closeGame(3);
}

// SPDX-License-Identifier: MIT
#include "best_times_update.h"

#include "best_times.h"
#include "best_times_table.h"
#include "modBase.h"
#include "sound.h"
#include "sound_cues.h"

namespace {

void enterResult(Tambour &tambour, int32_t jeu)
{
    const BestTable table = bestTable(jeu);
    if (!rankResult(table.niveaux, table.temps, table.noms, gNiveau, gTempsTotal, gNomJoueur)) return;
    JoueSon(tambour, cue::kWin);
    EcritBest();
}

} // namespace

void MajBest1(Tambour &tambour) { enterResult(tambour, 1); }
void MajBest2(Tambour &tambour) { enterResult(tambour, 2); }
void MajBest3(Tambour &tambour) { enterResult(tambour, 3); }

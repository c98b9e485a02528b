#include "best_times_update.h"

#include "best_times.h"
#include "best_times_table.h"
#include "modBase.h"
#include "sound.h"
#include "sound_cues.h"

namespace {

void enterResult(int32_t jeu)
{
    const BestTable table = bestTable(jeu);
    if (!rankResult(table.niveaux, table.temps, table.noms, gNiveau, gTempsTotal, gNomJoueur)) return;
    JoueSon(cue::kWin);
    EcritBest();
}

} // namespace

void MajBest1() { enterResult(1); }
void MajBest2() { enterResult(2); }
void MajBest3() { enterResult(3); }

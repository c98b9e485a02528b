// SPDX-License-Identifier: MIT
#include "best_times_table.h"

double bestScore(int32_t niveau, double temps) { return niveau * 1000000.0 + (1000000.0 - temps); }

bool rankResult(int32_t niveaux[4], double temps[4], QString noms[4], int32_t niveau, double tempsTotal,
                const QString &joueur)
{
    struct Candidate {
        int32_t niveau = 0;
        double temps = 0;
        QString nom;
        double score = 0;
    } candidates[4];

    bool found = false;
    for (int row = 1; row <= 3; ++row) {
        if (noms[row] == joueur) {
            niveaux[row] = niveau;
            temps[row] = tempsTotal;
            found = true;
        }
    }
    if (!found) candidates[0] = {niveau, tempsTotal, joueur, bestScore(niveau, tempsTotal)};
    for (int row = 1; row <= 3; ++row)
        candidates[row] = {niveaux[row], temps[row], noms[row], bestScore(niveaux[row], temps[row])};

    bool placed = false;
    for (int row = 1; row <= 3; ++row) {
        double best = 0;
        int picked = -1;
        for (int c = 0; c <= 3; ++c) {
            if (candidates[c].score > best) {
                best = candidates[c].score;
                picked = c;
            }
        }
        if (picked < 0) continue;
        niveaux[row] = candidates[picked].niveau;
        temps[row] = candidates[picked].temps;
        noms[row] = candidates[picked].nom;
        candidates[picked].score = 0;
        if (noms[row] == joueur) placed = true;
    }
    return placed;
}

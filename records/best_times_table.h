// SPDX-License-Identifier: MIT
// The ranking of one game's best-times table: rows 1 to 3, best first, by level then by time.
#pragma once

#include <QString>
#include <cstdint>

// The row that stands for no result: level 0, time 0, sixteen dots.
inline const QString kEmptyName = QStringLiteral("................");

// The score that ranks a result: a higher level always wins, then a shorter time.
double bestScore(int32_t niveau, double temps);

// Enters a player's result in rows 1 to 3 of a table. The player's own rows take the result
// whatever it is worth; a newcomer goes in above an equal score. True when the player has a place.
bool rankResult(int32_t niveaux[4], double temps[4], QString noms[4], int32_t niveau, double tempsTotal,
                const QString &joueur);

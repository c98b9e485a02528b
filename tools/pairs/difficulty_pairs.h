// SPDX-License-Identifier: MIT
// How hard a tile pairs level is, as a player who pairs at random finds it.
#pragma once

#include <limits>
#include <string_view>

// The random player picks at random a tile that has a partner as the board stands, then one of its
// partners at random, and removes the pair; when no pair is left before the board is empty, it puts
// every pair back and starts again. Its draws are seeded, so a level always gets the same figures.
struct PairDifficulty {
    double winShare = 0;    // the share of its attempts that empty the board
    double pairsPerWin = 0; // the pairs it removes, over all attempts, per emptied board; infinite when none is
};

// Measuring stops early, with pairsPerWin infinite, once that figure is sure to exceed `ceiling`.
PairDifficulty measurePairDifficulty(std::string_view record, double ceiling = std::numeric_limits<double>::infinity());

// SPDX-License-Identifier: MIT
// How hard a pip tile level is, as a careful player finds it.
#pragma once

#include <limits>
#include <string_view>

// The careful player lays a tile only on a socket where it can still end on its target: one with as
// many empty neighbours as the target less one, or with four when the target is 1, since that tile
// will fall from 5 to 1. It chooses at random among those sockets, and when none is left before the
// board is full it takes every tile back and starts again. Its draws are seeded, so a level always
// gets the same figures.
struct TileDifficulty {
    double winShare = 0;   // the share of its attempts that complete the board
    double laidPerWin = 0; // the tiles it lays, over all attempts, per completed board; infinite when none is
};

// Measuring stops early, with laidPerWin infinite, once that figure is sure to exceed `ceiling`.
TileDifficulty measureTileDifficulty(std::string_view record,
                                     double ceiling = std::numeric_limits<double>::infinity());

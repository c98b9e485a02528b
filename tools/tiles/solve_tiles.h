// SPDX-License-Identifier: MIT
// Exact solver for pip tile levels.
#pragma once

#include "tile_board.h"

#include <cstdint>
#include <optional>
#include <vector>

// Finds an order of placement, as cell codes y * 8 + x, that turns the level's
// empty board into its target, or nothing when no order does. Only tabCible1 is
// read. With withFall false, a tile that reaches 5 pips matches no target, so
// the fall from 5 to 1 is never of use.
std::optional<std::vector<int32_t>> solveTiles(const TileBoard &level, bool withFall);

// SPDX-License-Identifier: MIT
// Exact solving of a stones position by linear algebra over GF(2).
#pragma once

#include "stone_board.h"

#include <cstdint>
#include <optional>
#include <vector>

// A basis of the click sets that leave every board as it was, each as sorted cell codes.
std::vector<std::vector<int32_t>> stoneClickKernel();

// The fewest clicks (cell codes y * 8 + x, ascending) that empty the board,
// or nothing when the position cannot be cleared.
std::optional<std::vector<int32_t>> solveStones(const StoneBoard &level);

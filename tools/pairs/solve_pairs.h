// SPDX-License-Identifier: MIT
// A solver for tile pairs levels: finds a sequence of pairs that empties the board.
#pragma once

#include "pair_board.h"

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

// One pair as the player makes it: the cell code selected first, then the cell code removed.
using PairMove = std::pair<int32_t, int32_t>;

// The sum of the pips of all tiles plus the number of touching pairs of tiles.
// No pair changes whether it is odd, and an empty board has 0, so an odd value means no solution.
int32_t pairParity(const PairBoard &board);

// Plays the moves on a copy of `level` through the model: each first cell must hold a tile,
// each second cell must differ from it and match it (Pareil3). True when the board ends empty.
bool playsToEmpty(const PairBoard &level, const std::vector<PairMove> &moves);

// Searches for pairs that empty the board of `level` (its selection is ignored), looking at
// no more than `maxPositions` positions. Gives nullopt when there is no solution or when the
// budget runs out first.
std::optional<std::vector<PairMove>> solvePairs(const PairBoard &level, int64_t maxPositions = 2'000'000);

// SPDX-License-Identifier: MIT
// When two levels are the same puzzle: the same cells moved elsewhere on the board, or seen in a
// mirror or turned where the rules do not tell the two apart.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// The symmetries of a level besides translation: those of a rectangle (two mirrors and the half
// turn), or all eight of a square, quarter turns and diagonal mirrors included.
enum class Symmetries { Rectangle, Square };

// Rewrites the cell values of a level laid out in reading order, for games in which some changes
// of values leave the puzzle as it was.
using Relabel = std::string (*)(std::string cells);

struct LevelLayout {
    int32_t width;
    int32_t height;
    Symmetries symmetries;
    Relabel relabel = nullptr;
};

// The level's cells other than '0', moved into the corner of their bounding box, under the
// symmetry that gives the smallest text. Two records are the same puzzle when their forms are equal.
std::string canonicalForm(std::string_view record, const LevelLayout &layout);

// Each level that is the same puzzle as an earlier one, with that earlier one: {later, earlier}.
std::vector<std::pair<int32_t, int32_t>> repeatedLevels(std::string_view store, const LevelLayout &layout);

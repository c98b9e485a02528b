// SPDX-License-Identifier: MIT
// The difficulty of the levels along a store: printed level by level and per block of 20, and
// judged on how steadily it rises.
#pragma once

#include "level_symmetry.h"
#include "level_tools.h"

#include <functional>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// The lowest rank correlation of the difficulty with the level index that a store may have.
inline constexpr double kLowestRankCorrelation = 0.9;

// The difficulty of a record as `measure` gives it, measured once per process and then remembered:
// a figure depends on the record's bytes alone, and the stores checked in one run share most of them.
double rememberedDifficulty(std::string_view record, double (*measure)(std::string_view record));

// Spearman's rank correlation of the values with their indices. Tied values share their mean rank,
// and an infinite value ranks above every finite one.
double rankCorrelationWithIndex(const std::vector<double> &values);

// The median of the values from index `first` up to but not including `last`.
double medianOf(const std::vector<double> &values, size_t first, size_t last);

// Prints the difficulty of every level, the median of each block of 20 levels and the rank
// correlation, then fails the store when the correlation is below kLowestRankCorrelation, or when a
// level of the last quarter, other than a fixed one, is easier than the median of the first quarter.
// An infinite difficulty is a level that cannot be won.
void judgeDifficulty(const std::vector<double> &difficulty, std::span<const FixedLevel> fixed, std::string_view unit,
                     std::ostream &out, Failures &failures);

// The difficulty a generator aims at: rising geometrically from `first` at the first place of a store
// to `last` at its last place. A level is close enough within `closeEnough` times the aim either way.
struct DifficultyAim {
    double first;
    double last;
    double closeEnough;
    double at(int32_t place, int32_t places) const;
};

// Fills the places of `levels` that are still empty. For each in turn it draws records with `draw`
// (an empty record is a refused draw) until one is not the same puzzle as a level already kept and
// its `measure` lies close enough to the aim; the levels drawn are then put in order of difficulty
// over those places. `measure` may give up, with infinity, above its ceiling. False when some place
// finds no level in `mostDraws` draws.
bool fillAlongCurve(std::vector<std::string> &levels, const LevelLayout &layout, const DifficultyAim &aim,
                    const std::function<std::string(int32_t place)> &draw,
                    const std::function<double(std::string_view record, double ceiling)> &measure, int32_t mostDraws);

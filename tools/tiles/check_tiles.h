// SPDX-License-Identifier: MIT
// Checks the store of pip tile levels against what the game requires of it.
#pragma once

#include "level_symmetry.h"
#include "level_tools.h"

#include <array>
#include <ostream>
#include <string_view>

inline constexpr std::array<FixedLevel, 6> kFixedTileLevels{{
    {0, "0002000000020000000100000002000000020000"},
    {1, "0001000000020000012121000002000000010000"},
    {2, "0032130000100100004214000010010000200200"},
    {20, "0000000000142000004310000013200000000000"},
    {77, "1332331231302433341012434330333112313342"},
    {99, "0324322021321421344131342133142102414130"},
}};

// The placements alone make a level: its shape may be moved, mirrored or turned.
inline constexpr LevelLayout kTileLayout{8, 5, Symmetries::Square};

// Prints a table of figures about the store and the difficulty of its levels, then one line per
// fact that fails.
StoreVerdict checkTileLevels(std::string_view store, std::ostream &out);

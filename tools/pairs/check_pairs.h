// SPDX-License-Identifier: MIT
// Checks a tile pairs level store against what the shipped levels must satisfy.
#pragma once

#include "level_symmetry.h"
#include "level_tools.h"

#include <array>
#include <ostream>
#include <string_view>

inline constexpr std::array<FixedLevel, 7> kFixedPairLevels{{
    {0, "000000000" "000000000" "0002Sdd00" "000C1C100" "000BT2B00" "000000000" "000000000" "000000000" "000000000"},
    {1, "000000000" "000000000" "000134400" "000412100" "000434400" "000000000" "000000000" "000000000" "000000000"},
    {4, "000000000" "000000000" "0000c0000" "0000a0000" "00dd0cd00" "0000a0000" "0000d0000" "000000000" "000000000"},
    {18, "0000D0000" "0000B0000" "0000D0000" "0000C0000" "000040000" "00034D000" "0033DCC00" "0314BDCA0" "41240BDBA"},
    {35, "000000000" "000443400" "040434000" "000443400" "000000000" "000000000" "000000000" "000000000" "000000000"},
    {95, "33B3A2A30" "3421B2AB3" "4B43DB1CB" "31231A2BD" "A3DDB2B30" "B1AD14300" "D2DBA000A" "BDB23ABDB" "000000004"},
    {119, "QQTQQQTTR" "RSRSTTQQT" "STRSQSTSQ" "TRSTRSTTQ" "TTSQRSSTR" "RTSSSTTTT" "TQTRTQRTR" "R00000000" "000000000"},
}};

// Names the colours of a level in the order they first appear, and counts each colour's pips from
// its first tile: swapping colours, or turning all the pips of one colour alike, leaves the puzzle
// as it was.
std::string namedInOrder(std::string cells);

// Empty cells take no part in the rules, and the rules treat the four directions alike.
inline constexpr LevelLayout kPairLayout{9, 9, Symmetries::Square, namedInOrder};

// Prints a table of figures about the store and the difficulty of its levels, then one line for
// each fact that fails.
StoreVerdict checkPairLevels(std::string_view store, std::ostream &out);

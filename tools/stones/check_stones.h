// SPDX-License-Identifier: MIT
// Checks the stones level store against the facts the shipped levels must hold.
#pragma once

#include "level_tools.h"

#include <array>
#include <ostream>
#include <string_view>

inline constexpr std::array<FixedLevel, 5> kFixedStoneLevels{{
    {0, "00000000" "00000000" "00000000" "00011000" "00100100" "00011000" "00000000" "00000000" "00000000"},
    {1, "00000000" "00000000" "00001000" "00001100" "00110000" "00010000" "00000000" "00000000" "00000000"},
    {13, "00000000" "00000100" "00000000" "00010101" "00000000" "00000100" "00000000" "00000000" "00000000"},
    {61, "11111111" "10000001" "01111110" "01111110" "01111110" "10000001" "11111111" "11111111" "01111110"},
    {99, "11000101" "10011101" "00101100" "00101110" "00110100" "01101101" "00100100" "10000011" "11000010"},
}};

// Prints a table of figures and the difficulty of the levels (their shortest solutions), then one
// line per failed fact.
StoreVerdict checkStoneLevels(std::string_view store, std::ostream &out);

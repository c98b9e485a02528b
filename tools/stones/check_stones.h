// Checks the stones level store against the facts the shipped levels must hold.
#pragma once

#include <cstdint>
#include <ostream>
#include <span>
#include <string_view>
#include <vector>

// A level whose record is fixed in advance, with the shortest solution it is known by
// (empty when none is given).
struct TellingStoneLevel {
    int32_t level;
    std::string_view record;
    std::vector<int32_t> shortestClicks;
};

std::span<const TellingStoneLevel> tellingStoneLevels();

// Prints a table of figures and one line per failed fact; true when every fact holds.
bool checkStoneLevels(std::string_view store, std::ostream &out);

// Checks the store of pip tile levels against what the game requires of it.
#pragma once

#include <array>
#include <cstdint>
#include <ostream>
#include <string_view>

// A level whose record is fixed in advance, with its 40 bytes, rows top to bottom.
struct FixedTileLevel {
    int32_t index;
    std::string_view record;
};

inline constexpr std::array<FixedTileLevel, 6> kFixedTileLevels{{
    {0, "0002000000020000000100000002000000020000"},
    {1, "0001000000020000012121000002000000010000"},
    {2, "0032130000100100004214000010010000200200"},
    {20, "0000000000142000004310000013200000000000"},
    {77, "1332331231302433341012434330333112313342"},
    {99, "0324322021321421344131342133142102414130"},
}};

// Prints a table of figures about the store, then one line per fact that fails.
// True when every fact holds.
bool checkTileLevels(std::string_view store, std::ostream &out);

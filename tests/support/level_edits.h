// SPDX-License-Identifier: MIT
// Level records changed in the ways the level checkers must see through or catch.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

// The record's cells other than '0' taken through `move`, then shifted into the top left corner of
// the board; empty when they do not fit on the board.
inline std::string movedLevel(std::string_view record, int width, int height,
                              std::pair<int, int> (*move)(int x, int y))
{
    int left = width * height, top = left, right = -left, bottom = -left;
    for (int i = 0; i < width * height; ++i)
        if (record[i] != '0') {
            const auto [x, y] = move(i % width, i / width);
            left = std::min(left, x);
            top = std::min(top, y);
            right = std::max(right, x);
            bottom = std::max(bottom, y);
        }
    if (right - left >= width || bottom - top >= height) return {};
    std::string moved(record.size(), '0');
    for (int i = 0; i < width * height; ++i)
        if (record[i] != '0') {
            const auto [x, y] = move(i % width, i / width);
            moved[(y - top) * width + x - left] = record[i];
        }
    return moved;
}

// The store with the records of levels a and b swapped.
inline std::string withLevelsSwapped(std::string store, size_t recordSize, size_t a, size_t b)
{
    std::swap_ranges(store.begin() + a * recordSize, store.begin() + (a + 1) * recordSize,
                     store.begin() + b * recordSize);
    return store;
}

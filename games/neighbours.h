// SPDX-License-Identifier: MIT
// The neighbours of a cell as the rules of every game take them.
#pragma once

#include <cstdint>

// Calls f(nx, ny) on each neighbour of (x, y) that lies on a board of that many columns and rows:
// left, right, above, below, in that order.
template <typename F>
void forEachNeighbour(int32_t columns, int32_t rows, int32_t x, int32_t y, F f)
{
    if (x > 0) f(x - 1, y);
    if (x + 1 < columns) f(x + 1, y);
    if (y > 0) f(x, y - 1);
    if (y + 1 < rows) f(x, y + 1);
}

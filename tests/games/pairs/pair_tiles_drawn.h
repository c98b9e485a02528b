// SPDX-License-Identifier: MIT
// Jeu 3's tiles as the sprite sheet draws them on the board: each tile through its mask, the
// selected one from the smaller shape and pictures. For the screen tests and the screenshot checker.
#pragma once

#include "sprite_pixels.h"

#include <functional>

// Draws over `board` the tile of each cell whose level byte valueAt(x, y) gives, none where it is 0;
// `selected` is the selected cell's code, y * 9 + x, or -1.
inline void drawPairTiles(QImage &board, const QImage &sheet, const std::function<int(int, int)> &valueAt,
                          int selected)
{
    constexpr int kSide = 52;
    for (int y = 0; y < 9; ++y)
        for (int x = 0; x < 9; ++x)
            if (const int value = valueAt(x, y); value > 0) {
                const int colour = (value - 48) / 16, pips = (value - 48) % 16, chosen = y * 9 + x == selected;
                putMaskedSprite(board, {kSide * x, kSide * y}, sheet,
                                {kSide * (pips - 1) + 208 * chosen, kSide * colour, kSide, kSide},
                                {416, kSide * chosen});
            }
}

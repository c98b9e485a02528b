// SPDX-License-Identifier: MIT
// Rectangle copy between persistent images with the three raster operations the program draws with.
#pragma once

#include <QImage>
#include <cstdint>

class Surface;

constexpr uint32_t SRCCOPY = 0xCC0020;  // destination = source
constexpr uint32_t SRCPAINT = 0xEE0086; // destination = destination OR source
constexpr uint32_t SRCAND = 0x8800C6;   // destination = destination AND source

// Copies the w x h rectangle of src at (xSrc, ySrc) onto dest at (x, y) with the raster operation rop.
// Coordinates are logical pixels; the copy runs on device pixels, the rectangle times the images'
// device pixel ratio, which both share. Both images are Format_RGB32; the rectangle is clipped to both.
void BitBlt(QImage &dest, int x, int y, int w, int h, const QImage &src, int xSrc, int ySrc, uint32_t rop);
// The same between the images of two surfaces; the destination keeps the copy, so that it can draw
// its image again at another scale.
void BitBlt(Surface *dest, int x, int y, int w, int h, const Surface *src, int xSrc, int ySrc, uint32_t rop);

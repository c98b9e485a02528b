// SPDX-License-Identifier: MIT
#include "bitblt.h"

#include "surface.h"

#include <QRect>
#include <cstring>

namespace {

// The part of the rectangle `wanted` that both the destination and the source hold, the source's
// rectangle starting at `from` and moving with it.
QRect clippedArea(QRect wanted, QRect destination, QPoint from, QRect source)
{
    const QRect fromSource = QRect(from, wanted.size()).intersected(source).translated(wanted.topLeft() - from);
    return wanted.intersected(destination).intersected(fromSource);
}

QRect logicalRect(const QImage &image) { return QRect(QPoint(), image.deviceIndependentSize().toSize()); }

} // namespace

// Every surface holds a 32-bit RGB image, so each raster operation is a loop over whole pixels:
// the alpha byte is all ones on both sides and stays so under OR and AND.
void BitBlt(QImage &dest, int x, int y, int w, int h, const QImage &src, int xSrc, int ySrc, uint32_t rop)
{
    const int s = static_cast<int>(dest.devicePixelRatio());
    const QRect area = clippedArea(QRect(x * s, y * s, w * s, h * s), dest.rect(), QPoint(xSrc, ySrc) * s, src.rect());
    if (area.isEmpty()) return;
    const int dx = (xSrc - x) * s;
    const int dy = (ySrc - y) * s;

    for (int row = area.top(); row <= area.bottom(); ++row) {
        auto *to = reinterpret_cast<uint32_t *>(dest.scanLine(row)) + area.left();
        const auto *from = reinterpret_cast<const uint32_t *>(src.constScanLine(row + dy)) + area.left() + dx;
        const int n = area.width();
        if (rop == SRCPAINT)
            for (int i = 0; i < n; ++i) to[i] |= from[i];
        else if (rop == SRCAND)
            for (int i = 0; i < n; ++i) to[i] &= from[i];
        else
            std::memmove(to, from, static_cast<size_t>(n) * sizeof(uint32_t));
    }
}

void BitBlt(Surface *dest, int x, int y, int w, int h, const Surface *src, int xSrc, int ySrc, uint32_t rop)
{
    BitBlt(dest->image, x, y, w, h, src->image, xSrc, ySrc, rop);
    const QRect area =
        clippedArea(QRect(x, y, w, h), logicalRect(dest->image), QPoint(xSrc, ySrc), logicalRect(src->image));
    if (!area.isEmpty()) dest->keepCopy({area, src, area.topLeft() + QPoint(xSrc - x, ySrc - y), rop});
}

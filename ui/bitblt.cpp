#include "bitblt.h"

#include <QRect>
#include <cstring>

// Every surface holds a 32-bit RGB image, so each raster operation is a loop over whole pixels:
// the alpha byte is all ones on both sides and stays so under OR and AND.
void BitBlt(QImage &dest, int x, int y, int w, int h, const QImage &src, int xSrc, int ySrc, uint32_t rop)
{
    // Clip the rectangle to both images, moving source and destination together.
    const QRect wanted(x, y, w, h);
    const QRect fromSource = QRect(xSrc, ySrc, w, h).intersected(src.rect()).translated(x - xSrc, y - ySrc);
    const QRect area = wanted.intersected(dest.rect()).intersected(fromSource);
    if (area.isEmpty()) return;
    const int dx = xSrc - x;
    const int dy = ySrc - y;

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

#include "bitblt.h"

#include <QPainter>

namespace {

QPainter::CompositionMode compositionOf(uint32_t rop)
{
    switch (rop) {
    case SRCPAINT: return QPainter::RasterOp_SourceOrDestination;
    case SRCAND: return QPainter::RasterOp_SourceAndDestination;
    default: return QPainter::CompositionMode_Source;
    }
}

} // namespace

void BitBlt(QImage &dest, int x, int y, int w, int h, const QImage &src, int xSrc, int ySrc, uint32_t rop)
{
    QPainter painter(&dest);
    painter.setCompositionMode(compositionOf(rop));
    painter.drawImage(QPoint(x, y), src, QRect(xSrc, ySrc, w, h));
}

// SPDX-License-Identifier: MIT
// Picture1, 90 x 90, at (0, 510) of the window: an ivory medallion with a pair of
// cherries over an open book, inviting the player to the publisher's catalogue.
// The cherries also mark the corner of the dialogs.

#include "art.h"

#include <QPainter>
#include <QPainterPathStroker>

namespace art {

namespace {

constexpr QPoint kPlace(0, 510);
constexpr QSize kSize(90, 90);

QPainterPath stroked(const QPainterPath &line, double width)
{
    QPainterPathStroker stroker;
    stroker.setWidth(width);
    stroker.setCapStyle(Qt::RoundCap);
    return stroker.createStroke(line);
}

void drawBook(QImage &target, QRectF box)
{
    const QSize size = logicalSize(target);
    const double cx = box.center().x();
    const double top = box.top();
    const double bottom = box.bottom();
    const double w = box.width() / 2;
    QPainterPath pages;
    for (const double side : {-1.0, 1.0}) {
        QPainterPath page;
        page.moveTo(cx, top + 3);
        page.cubicTo(cx + side * w * 0.4, top - 1, cx + side * w * 0.8, top, cx + side * w, top + 1);
        page.lineTo(cx + side * w, bottom - 3);
        page.cubicTo(cx + side * w * 0.8, bottom - 4, cx + side * w * 0.4, bottom - 5, cx, bottom);
        page.closeSubpath();
        pages = pages.united(page);
    }
    QPainterPath cover = pages;
    cover.translate(0, 2.2);
    drawOver(target, tinted(pathImage(size, cover.united(pages)), QColor(150, 34, 30)));
    drawOver(target, clipped(verticalGradient(size, QColor(255, 252, 240), QColor(226, 216, 192), box), pathImage(size, pages)));
    QPainterPath lines;
    for (const double side : {-1.0, 1.0})
        for (int32_t k = 0; k < 3; ++k) {
            const double y = top + 5.5 + 3.2 * k;
            lines.moveTo(cx + side * w * 0.22, y);
            lines.cubicTo(cx + side * w * 0.5, y - 1.2, cx + side * w * 0.7, y - 1, cx + side * w * 0.82, y - 0.6);
        }
    lines.moveTo(cx, top + 3);
    lines.lineTo(cx, bottom);
    drawOver(target, tinted(pathImage(size, stroked(lines, 0.9)), QColor(120, 100, 80, 170)));
}

} // namespace

void drawCherries(QImage &target, QRectF box)
{
    const QSize size = logicalSize(target);
    const double s = box.width() / 40.0; // drawn on a 40 x 40 design
    const auto at = [&](double x, double y) { return box.topLeft() + QPointF(x * s, y * s); };

    QPainterPath stems;
    stems.moveTo(at(25, 5));
    stems.cubicTo(at(20, 10), at(14, 16), at(12, 25));
    stems.moveTo(at(25, 5));
    stems.cubicTo(at(25, 12), at(27, 18), at(29, 27));
    drawOver(target, tinted(pathImage(size, stroked(stems, 1.7 * s)), QColor(88, 70, 28)));

    QPainterPath leaf;
    leaf.moveTo(at(25, 5));
    leaf.cubicTo(at(28, -1), at(36, -1), at(39, 3));
    leaf.cubicTo(at(35, 8), at(29, 9), at(25, 5));
    const QImage leafShape = clipped(verticalGradient(size, QColor(120, 196, 80), QColor(40, 120, 40), leaf.boundingRect()), pathImage(size, leaf));
    drawOver(target, leafShape);
    QPainterPath vein;
    vein.moveTo(at(26, 5));
    vein.quadTo(at(32, 3), at(37, 3));
    drawOver(target, tinted(pathImage(size, stroked(vein, 0.7 * s)), QColor(30, 90, 30, 200)));

    for (const QPointF c : {at(12, 29), at(29, 31)}) {
        const QImage cherry = lit(verticalGradient(size, QColor(236, 40, 48), QColor(130, 8, 20), QRectF(c - QPointF(8.5 * s, 8.5 * s), QSizeF(17 * s, 17 * s))), disc(c, 8.5 * s),
                                  Relief{.bevel = 8.5 * s, .depth = 0.7, .gloss = 0.9, .shininess = 22, .dome = true});
        drawOver(target, shadowOf(cherry, 1, {1, 2}, 0.5));
        drawOver(target, cherry);
    }
}

QImage catalogueEmblem()
{
    QImage emblem = plainBackground().copy(devicePixels(QRect(kPlace, kSize)));
    const QPointF centre(44, 46);
    const QImage rim = lit(verticalGradient(kSize, QColor(236, 204, 128), QColor(132, 92, 38), QRectF(4, 6, 80, 80)), disc(centre, 40),
                           Relief{.bevel = 3.5, .depth = 1.1, .gloss = 0.4, .shininess = 18});
    drawOver(emblem, shadowOf(rim, 2, {2, 2}, 0.6));
    drawOver(emblem, rim);
    drawOver(emblem, lit(verticalGradient(kSize, QColor(250, 242, 220), QColor(222, 206, 170), QRectF(7.5, 9.5, 73, 73)), disc(centre, 36.5),
                         Relief{.bevel = 3, .depth = -0.8}));
    drawBook(emblem, QRectF(20, 56, 48, 18));
    drawCherries(emblem, QRectF(22, 14, 44, 44));
    return emblem;
}

} // namespace art

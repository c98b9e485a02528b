// SPDX-License-Identifier: MIT
// pctPion3, the sheet of game 3: a row for each colour (blue, red, green,
// yellow), columns 0 to 3 the tiles with 1 to 4 pips, columns 4 to 7 the same
// tiles selected, which stand 2 pixels in from every side. Column 8 holds the
// masks, the normal shape in row 0 and the selected one in row 1.
//
// The colours stay apart for players who do not tell red from green or blue
// from green, and each colour has its own mark engraved in the face, so that a
// tile's colour can also be told by its shape: blue is plain, red has diagonal
// stripes, green a check of squares, yellow a frame inside its edge.

#include "art.h"

#include <QPainter>

namespace art {

namespace {

constexpr int32_t kCell = 52;
constexpr int32_t kInset = 2; // how much smaller a selected tile is, on each side

enum class Mark { Plain, Stripes, Checks, Frame };

struct TileColour {
    FaceColours face;
    Mark mark;
};

const TileColour kColours[4] = {
    {{QColor(44, 104, 200), QColor(12, 62, 150)}, Mark::Plain},   // blue
    {{QColor(196, 40, 26), QColor(140, 12, 4)}, Mark::Stripes},   // red
    {{QColor(44, 218, 160), QColor(10, 172, 120)}, Mark::Checks}, // green
    {{QColor(255, 246, 96), QColor(250, 226, 24)}, Mark::Frame},  // yellow
};

// The mark's shape within the face of a tile, which the pips leave in view between them.
QPainterPath markPath(Mark mark, QRectF tile)
{
    const QRectF face = tile.adjusted(6, 6, -6, -6);
    QPainterPath path;
    switch (mark) {
    case Mark::Plain: break;
    case Mark::Stripes:
        for (double x = face.left() - face.height(); x < face.right(); x += 7.0) {
            QPolygonF stripe;
            stripe << QPointF(x, face.bottom()) << QPointF(x + 2.6, face.bottom())
                   << QPointF(x + 2.6 + face.height(), face.top()) << QPointF(x + face.height(), face.top());
            path.addPolygon(stripe);
            path.closeSubpath();
        }
        break;
    case Mark::Checks:
        for (int32_t row = 0; row * 5.0 < face.height(); ++row)
            for (int32_t column = row % 2; column * 5.0 < face.width(); column += 2)
                path.addRect(QRectF(face.left() + column * 5.0, face.top() + row * 5.0, 5.0, 5.0));
        break;
    case Mark::Frame:
        path.addRoundedRect(face, 3, 3);
        path.addRoundedRect(face.adjusted(2.4, 2.4, -2.4, -2.4), 1.5, 1.5);
        break;
    }
    QPainterPath within;
    within.addRoundedRect(face, 3, 3);
    return path.intersected(within);
}

// The mark cut into the face: a dark groove with a light lip below it.
void engrave(QImage &sprite, Mark mark, QRectF tile)
{
    const QImage shape = pathImage(logicalSize(sprite), markPath(mark, tile));
    drawOver(sprite, tinted(shape, QColor(255, 255, 240, 60)), {0, 1});
    drawOver(sprite, tinted(shape, QColor(0, 0, 0, 90)));
}

QRectF tileRect(bool selected)
{
    const double in = selected ? kInset : 0;
    return QRectF(in, in, kCell - 2 * in, kCell - 2 * in);
}

double cornerRadius(bool selected)
{
    return selected ? 6.0 : 8.0;
}

QImage tile(const TileColour &colour, int32_t pips, bool selected)
{
    const QSize size(kCell, kCell);
    const QRectF rect = tileRect(selected);
    // A selected tile is lit a little brighter and ringed with light.
    const QColor top = selected ? colour.face.top.lighter(112) : colour.face.top;
    const QColor bottom = selected ? colour.face.bottom.lighter(118) : colour.face.bottom;
    QImage sprite = lit(verticalGradient(size, top, bottom, rect), roundedBox(rect, cornerRadius(selected)),
                        Relief{.bevel = 5, .depth = 1.1, .gloss = 0.25, .shininess = 18});
    if (selected)
        drawOver(sprite, lit(flatColour(size, QColor(255, 255, 240)),
                             [rect](double x, double y) {
                                 const double d = roundedBox(rect, 6.0)(x, y);
                                 return std::abs(d + 1.3) - 1.0;
                             },
                             Relief{.bevel = 0}));
    engrave(sprite, colour.mark, rect);
    drawPips(sprite, rect, pipLayout(pips), 5.6, QColor(248, 244, 230));
    return sprite;
}

QImage outline(bool selected)
{
    return lit(flatColour(QSize(kCell, kCell), Qt::white), roundedBox(tileRect(selected), cornerRadius(selected)),
               Relief{.bevel = 0});
}

} // namespace

FaceColours pairColours(int32_t row) { return kColours[row].face; }

QImage pairSheet()
{
    QImage sheet = canvas(QSize(9 * kCell, 4 * kCell), QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    for (int32_t row = 0; row < 4; ++row)
        for (int32_t column = 0; column < 8; ++column) {
            const bool selected = column >= 4;
            const QImage sprite = tile(kColours[row], column % 4 + 1, selected);
            painter.drawImage(column * kCell, row * kCell, splitMasked(sprite, outline(selected), playAreaGround()).image);
        }
    const QImage blank = flatColour(QSize(kCell, kCell), Qt::white);
    painter.drawImage(8 * kCell, 0, splitMasked(blank, outline(false), playAreaGround()).mask);
    painter.drawImage(8 * kCell, kCell, splitMasked(blank, outline(true), playAreaGround()).mask);
    return sheet;
}

} // namespace art

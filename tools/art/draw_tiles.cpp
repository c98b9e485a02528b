// SPDX-License-Identifier: MIT
// pctPion1, the sheet of game 1: six opaque 54 x 54 cells in a row. Cells 0 to 3
// are blue tiles with 1 to 4 pips, cell 4 the empty grey socket, cell 5 the
// smiling yellow tile of a won level.

#include "art.h"

#include <QPainter>

namespace art {

namespace {

constexpr int32_t kCell = 54;
const QColor kSeam(26, 28, 32); // the thin dark line that parts neighbouring tiles

QImage blankCell()
{
    QImage cell = canvas(QSize(kCell, kCell), QImage::Format_RGB32);
    cell.fill(kSeam);
    return cell;
}

const QRectF kTile(1, 1, kCell - 2, kCell - 2);

void drawRaisedTile(QImage &cell, QColor top, QColor bottom)
{
    drawOver(cell, lit(verticalGradient(logicalSize(cell), top, bottom, kTile), roundedBox(kTile, 4),
                       Relief{.bevel = 5, .depth = 1.1, .gloss = 0.25, .shininess = 18}));
}

QImage pipTile(int32_t pips)
{
    QImage cell = blankCell();
    drawRaisedTile(cell, QColor(78, 138, 226), QColor(34, 82, 172));
    drawPips(cell, kTile, pipLayout(pips), 6.0, QColor(248, 244, 230));
    return cell;
}

QImage socket()
{
    QImage cell = blankCell();
    drawRaisedTile(cell, QColor(168, 170, 176), QColor(126, 128, 134));
    drawOver(cell, lit(verticalGradient(logicalSize(cell), QColor(112, 114, 120), QColor(138, 140, 146),
                                        kTile.adjusted(9, 9, -9, -9)),
                       roundedBox(kTile.adjusted(9, 9, -9, -9), 3), Relief{.bevel = 3, .depth = -1.0}));
    return cell;
}

QImage smilingTile()
{
    QImage cell = blankCell();
    drawRaisedTile(cell, QColor(255, 224, 96), QColor(232, 168, 32));
    QPainterPath face;
    face.addEllipse(QRectF(17, 16, 6.5, 9));
    face.addEllipse(QRectF(30.5, 16, 6.5, 9));
    QPainterPath smile;
    smile.moveTo(14.5, 30);
    smile.quadTo(27, 45, 39.5, 30);
    QPainterPathStroker stroker;
    stroker.setWidth(3.6);
    stroker.setCapStyle(Qt::RoundCap);
    face = face.united(stroker.createStroke(smile));
    const QImage shape = pathImage(logicalSize(cell), face);
    // Cut into the tile: a light lip below the dark engraving.
    drawOver(cell, tinted(shape, QColor(255, 246, 200, 170)), {0, 1});
    drawOver(cell, tinted(shape, QColor(96, 52, 8)));
    return cell;
}

} // namespace

QImage tileSheet()
{
    QImage sheet = canvas(QSize(6 * kCell, kCell), QImage::Format_RGB32);
    QPainter painter(&sheet);
    for (int32_t pips = 1; pips <= 4; ++pips)
        painter.drawImage((pips - 1) * kCell, 0, pipTile(pips));
    painter.drawImage(4 * kCell, 0, socket());
    painter.drawImage(5 * kCell, 0, smilingTile());
    return sheet;
}

} // namespace art

// pctPion3, the sheet of game 3: a row for each colour (blue, red, green,
// yellow), columns 0 to 3 the tiles with 1 to 4 pips, columns 4 to 7 the same
// tiles selected, which stand 2 pixels in from every side. Column 8 holds the
// masks, the normal shape in row 0 and the selected one in row 1.

#include "art.h"

#include <QPainter>

namespace art {

namespace {

constexpr int32_t kCell = 52;
constexpr int32_t kInset = 2; // how much smaller a selected tile is, on each side

struct TileColour {
    QColor top;
    QColor bottom;
};

const TileColour kColours[4] = {
    {QColor(84, 144, 230), QColor(34, 82, 172)},  // blue
    {QColor(232, 86, 72), QColor(168, 34, 30)},   // red
    {QColor(92, 190, 96), QColor(32, 122, 52)},   // green
    {QColor(255, 222, 88), QColor(222, 160, 24)}, // yellow
};

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
    const QColor top = selected ? colour.top.lighter(112) : colour.top;
    const QColor bottom = selected ? colour.bottom.lighter(118) : colour.bottom;
    QImage sprite = lit(verticalGradient(size, top, bottom, rect), roundedBox(rect, cornerRadius(selected)),
                        Relief{.bevel = 5, .depth = 1.1, .gloss = 0.25, .shininess = 18});
    if (selected)
        drawOver(sprite, lit(flatColour(size, QColor(255, 255, 240)),
                             [rect](double x, double y) {
                                 const double d = roundedBox(rect, 6.0)(x, y);
                                 return std::abs(d + 1.3) - 1.0;
                             },
                             Relief{.bevel = 0}));
    drawPips(sprite, rect, pairPips(pips), 5.6, QColor(248, 244, 230));
    return sprite;
}

QImage outline(bool selected)
{
    return lit(flatColour(QSize(kCell, kCell), Qt::white), roundedBox(tileRect(selected), cornerRadius(selected)),
               Relief{.bevel = 0});
}

} // namespace

QImage pairSheet()
{
    QImage sheet(9 * kCell, 4 * kCell, QImage::Format_RGB32);
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

// SPDX-License-Identifier: MIT
// The main window's picture, 600 x 600: a cherry wood frame with the strip to
// drag by along the top, the column of the level, the clock and the menu on the
// left, and the slate play area on which all three games lie. The play area
// shows no grid, since the three games share it.

#include "art.h"

#include <QFont>
#include <QPainter>

#include <map>

namespace art {

namespace {

constexpr QSize kSize(600, 600);
const QRectF kWindow(0, 0, 600, 600);
const QRectF kStrip(0, 0, 600, 22);
const QRectF kColumn(0, 22, 86, 578);
const QRectF kPlay(92, 23, 500, 557);
const QRectF kLevelPlate(34, 29, 48, 33);  // behind the level label at (38, 33), 40 x 26
const QRectF kClockPlate(32, 65, 50, 27);  // behind the clock at (36, 65), 40 x 24

const QColor kBrassTop(226, 190, 110);
const QColor kBrassBottom(150, 106, 46);

QImage opaque(const QImage &image)
{
    return image.convertToFormat(QImage::Format_RGB32);
}

void drawFrame(QImage &picture)
{
    picture = opaque(lit(cherryWood(kSize, 11), roundedBox(kWindow, 0), Relief{.bevel = 3, .depth = 1.0}));
    const QImage plank = lit(cherryWood(kSize, 12, true), roundedBox(kColumn, 0), Relief{.bevel = 3, .depth = 0.8});
    drawOver(picture, shadowOf(plank, 2, {2, 1}, 0.5));
    drawOver(picture, plank);
    const QImage strip = lit(cherryWood(kSize, 13), roundedBox(kStrip, 0), Relief{.bevel = 2.5, .depth = 0.9});
    drawOver(picture, shadowOf(strip, 2, {0, 2}, 0.5));
    drawOver(picture, strip);
}

void drawPlayArea(QImage &picture)
{
    drawOver(picture, lit(verticalGradient(kSize, kBrassTop, kBrassBottom), roundedBox(kPlay.adjusted(-2, -1, 2, 2), 4),
                          Relief{.bevel = 2, .depth = -1.0}));
    drawOver(picture, lit(slate(kSize, 14), roundedBox(kPlay, 3), Relief{.bevel = 4, .depth = -0.9}));
    // The top and left walls of the hollow throw a soft shadow onto the slate.
    QImage walls = canvas(kSize);
    walls.fill(Qt::white);
    {
        QPainter painter(&walls);
        painter.setCompositionMode(QPainter::CompositionMode_Clear);
        painter.fillRect(kPlay, Qt::transparent);
    }
    const QImage shadow = shadowOf(walls, 3, {3, 3}, 0.55);
    QPainter painter(&picture);
    painter.setClipRect(kPlay);
    painter.drawImage(0, 0, shadow);
}

QPainterPath flagGlyph()
{
    QPainterPath path;
    path.addRect(QRectF(11, 33, 2.2, 25));
    path.moveTo(13, 34);
    path.cubicTo(18, 31, 21, 38, 27, 35);
    path.lineTo(27, 45);
    path.cubicTo(21, 48, 18, 41, 13, 44);
    path.closeSubpath();
    path.addEllipse(QRectF(8, 56, 8, 3));
    return path.simplified();
}

QPainterPath hourglassGlyph()
{
    QPainterPath path;
    path.addRect(QRectF(9, 66, 18, 3));
    path.addRect(QRectF(9, 87, 18, 3));
    path.moveTo(11, 69);
    path.lineTo(25, 69);
    path.cubicTo(25, 75, 20, 77, 19.5, 78);
    path.cubicTo(20, 79, 25, 81, 25, 87);
    path.lineTo(11, 87);
    path.cubicTo(11, 81, 16, 79, 16.5, 78);
    path.cubicTo(16, 77, 11, 75, 11, 69);
    path.closeSubpath();
    return path.simplified();
}

// A glyph inlaid in brass, with a dark seat so it reads on the wood.
void drawInlay(QImage &picture, const QPainterPath &glyph)
{
    const QImage shape = pathImage(kSize, glyph);
    drawOver(picture, shadowOf(shape, 1, {1, 1}, 0.7));
    const QImage brass = clipped(verticalGradient(kSize, kBrassTop, kBrassBottom, glyph.boundingRect()), shape);
    drawOver(picture, brass);
}

void drawInstruments(QImage &picture)
{
    // The level sits on a light ivory plate, the clock in a dark window: the
    // labels' own colours, dark and light, read on them.
    const QImage rim = lit(verticalGradient(kSize, kBrassTop, kBrassBottom, kLevelPlate), roundedBox(kLevelPlate.adjusted(-2, -2, 2, 2), 5),
                           Relief{.bevel = 2, .depth = 1.0, .gloss = 0.3});
    drawOver(picture, shadowOf(rim, 2, {2, 2}, 0.6));
    drawOver(picture, rim);
    drawOver(picture, lit(verticalGradient(kSize, QColor(246, 238, 214), QColor(214, 200, 166), kLevelPlate),
                          roundedBox(kLevelPlate, 3.5), Relief{.bevel = 2, .depth = -0.8}));

    const QImage clockRim = lit(verticalGradient(kSize, kBrassTop, kBrassBottom, kClockPlate),
                                roundedBox(kClockPlate.adjusted(-2, -2, 2, 2), 5),
                                Relief{.bevel = 2, .depth = 1.0, .gloss = 0.3});
    drawOver(picture, shadowOf(clockRim, 2, {2, 2}, 0.6));
    drawOver(picture, clockRim);
    drawOver(picture, lit(verticalGradient(kSize, QColor(18, 20, 24), QColor(44, 48, 54), kClockPlate), roundedBox(kClockPlate, 3.5),
                          Relief{.bevel = 3, .depth = -1.0}));

    drawInlay(picture, flagGlyph());
    drawInlay(picture, hourglassGlyph());
}

void drawTitle(QImage &picture)
{
    QFont font("Liberation Serif");
    font.setBold(true);
    font.setItalic(true);
    font.setPixelSize(16);
    QPainterPath title;
    title.addText(0, 0, font, QStringLiteral("Marelle"));
    const QRectF bounds = title.boundingRect();
    title.translate(kPlay.center().x() - bounds.center().x(), 11 - bounds.center().y());
    const QImage shape = pathImage(kSize, title);
    // Cut into the wood: dark letters with a light lip below.
    drawOver(picture, tinted(shape, QColor(20, 6, 2, 200)), {1, 1});
    drawOver(picture, clipped(verticalGradient(kSize, kBrassTop, kBrassBottom, title.boundingRect()), shape));
    // Grip grooves either side of the title.
    for (const double side : {-1.0, 1.0})
        for (int32_t k = 0; k < 3; ++k) {
            const double y = 7 + 4 * k;
            const double from = kPlay.center().x() + side * (bounds.width() / 2 + 14);
            const double to = from + side * 120;
            QImage groove = lit(flatColour(kSize, QColor(70, 28, 16)),
                                roundedBox(QRectF(std::min(from, to), y, std::abs(to - from), 1.6), 0.8),
                                Relief{.bevel = 0.8, .depth = -1.0});
            drawOver(picture, groove);
        }
}

} // namespace

QImage plainBackground()
{
    // The menu, the emblem and the window all start from it: drawn once at each scale.
    static std::map<int32_t, QImage> drawn;
    QImage &picture = drawn[scale()];
    if (picture.isNull()) {
        drawFrame(picture);
        drawPlayArea(picture);
        drawInstruments(picture);
        drawTitle(picture);
    }
    return picture;
}

QImage windowBackground()
{
    // The idle column of the menu sheet, exactly as the window shows it.
    QImage picture = plainBackground();
    QPainter painter(&picture);
    painter.drawImage(QPoint(0, 130), menuSheet(), devicePixels(QRect(0, 0, 80, 375)));
    return picture;
}

void drawPlate(QImage &target, QRectF box)
{
    const QSize size = logicalSize(target);
    const QImage rim = lit(verticalGradient(size, kBrassTop, kBrassBottom, box), roundedBox(box, 6),
                           Relief{.bevel = 2.5, .depth = 1.0, .gloss = 0.3});
    drawOver(target, shadowOf(rim, 2, {2, 2}, 0.45));
    drawOver(target, rim);
    drawOver(target, lit(verticalGradient(size, QColor(250, 236, 196), QColor(222, 192, 130), box),
                         roundedBox(box.adjusted(2.5, 2.5, -2.5, -2.5), 4),
                         Relief{.bevel = 5, .depth = 0.7, .gloss = 0.2, .shininess = 12}));
}

} // namespace art

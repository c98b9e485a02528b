// SPDX-License-Identifier: MIT
// pctMenu, 160 x 375: the seven round buttons of the menu, twice. The column at
// x = 0 is lit for a program at rest (the three games and quitting), the one at
// x = 80 for a game running (abandoning). The scores and help buttons look the
// same in both. The sheet is copied to the window at (0, 130), so each button
// sits under its hot spot there.

#include "art.h"

#include <QFont>
#include <QPainter>
#include <QPainterPathStroker>
#include <QRadialGradient>

#include <array>

namespace art {

namespace {

constexpr QPoint kSheetAt(0, 130);  // where the window shows the sheet
constexpr QSize kColumn(80, 375);
constexpr double kSpot = 43.0;      // side of a hot spot
// Radii of a button's parts; the socket of the top buttons ends just inside x = 80.
constexpr double kGem = 15.8;
constexpr double kBezel = 19.4;
constexpr double kSocket = 20.4;

// Top left corners of the hot spots, in the sheet's coordinates.
constexpr std::array<QPoint, 7> kSpots = {{{38, 1}, {38, 56}, {36, 111}, {37, 166}, {32, 221}, {20, 277}, {9, 331}}};

enum class Lighting { Lit, Normal, Dim };

const QColor kGreen(40, 184, 76);
const QColor kOrange(246, 142, 32);
const QColor kBlue(52, 124, 228);
const QColor kRed(224, 48, 40);

QColor mix(QColor a, QColor b, double t)
{
    return QColor::fromRgbF(static_cast<float>(a.redF() * (1 - t) + b.redF() * t),
                            static_cast<float>(a.greenF() * (1 - t) + b.greenF() * t),
                            static_cast<float>(a.blueF() * (1 - t) + b.blueF() * t));
}

QPainterPath stroked(const QPainterPath &line, double width)
{
    QPainterPathStroker stroker;
    stroker.setWidth(width);
    stroker.setCapStyle(Qt::RoundCap);
    stroker.setJoinStyle(Qt::RoundJoin);
    return stroker.createStroke(line);
}

QPainterPath textGlyph(const QString &text)
{
    QFont font("Liberation Sans");
    font.setBold(true);
    font.setPixelSize(21);
    QPainterPath path;
    path.addText(0, 0, font, text);
    const QRectF bounds = path.boundingRect();
    path.translate(-bounds.center());
    return path;
}

QPainterPath backGlyph()
{
    const QRectF round(-7.5, -6.5, 15, 15);
    QPainterPath arc;
    arc.arcMoveTo(round, -70);
    arc.arcTo(round, -70, 250);
    QPainterPath head;
    head.moveTo(-12.8, -0.5);
    head.lineTo(-2.2, -0.5);
    head.lineTo(-7.5, 6.5);
    head.closeSubpath();
    return stroked(arc, 3.6).united(head);
}

QPainterPath trophyGlyph()
{
    QPainterPath cup;
    cup.moveTo(-7.5, -9);
    cup.lineTo(7.5, -9);
    cup.cubicTo(7.5, -1, 4, 2.5, 0, 2.5);
    cup.cubicTo(-4, 2.5, -7.5, -1, -7.5, -9);
    cup.closeSubpath();
    cup.addRect(QRectF(-1.6, 2, 3.2, 5));
    cup.addRoundedRect(QRectF(-6.5, 6.5, 13, 3.5), 1, 1);
    QPainterPath handles;
    handles.arcMoveTo(QRectF(4, -8, 7, 7), 110);
    handles.arcTo(QRectF(4, -8, 7, 7), 110, -250);
    handles.arcMoveTo(QRectF(-11, -8, 7, 7), 70);
    handles.arcTo(QRectF(-11, -8, 7, 7), 70, 250);
    return cup.united(stroked(handles, 2.0));
}

QPainterPath powerGlyph()
{
    const QRectF round(-8, -7, 16, 16);
    QPainterPath lines;
    lines.arcMoveTo(round, 125);
    lines.arcTo(round, 125, 290);
    lines.moveTo(0, -10);
    lines.lineTo(0, 0);
    return stroked(lines, 3.4);
}

QPainterPath glyph(int32_t button)
{
    switch (button) {
    case 0: return textGlyph(QStringLiteral("1"));
    case 1: return textGlyph(QStringLiteral("2"));
    case 2: return textGlyph(QStringLiteral("3"));
    case 3: return backGlyph();
    case 4: return trophyGlyph();
    case 5: return textGlyph(QStringLiteral("?"));
    default: return powerGlyph();
    }
}

QColor colourOf(int32_t button)
{
    switch (button) {
    case 0:
    case 1:
    case 2: return kGreen;
    case 3: return kOrange;
    case 4:
    case 5: return kBlue;
    default: return kRed;
    }
}

Lighting lightingOf(int32_t button, bool running)
{
    if (button == 4 || button == 5)
        return Lighting::Normal;
    const bool actsAtRest = button != 3;
    return actsAtRest != running ? Lighting::Lit : Lighting::Dim;
}

// A gem lights up from within: bright low on the right, deep at the top left,
// where the dome's own highlight falls.
QImage gemMaterial(QSize size, QPointF centre, QColor colour)
{
    QImage material = canvas(size, QImage::Format_RGB32);
    material.fill(colour.darker(240));
    QPainter painter(&material);
    QRadialGradient gradient(centre + QPointF(3, 5), kGem * 1.3, centre + QPointF(4, 7));
    gradient.setColorAt(0.0, colour.lighter(150));
    gradient.setColorAt(0.55, colour);
    gradient.setColorAt(1.0, colour.darker(210));
    painter.fillRect(QRect(QPoint(), size), gradient);
    return material;
}

void drawButton(QImage &target, int32_t button, QPointF centre, Lighting lighting)
{
    const QSize size = logicalSize(target);
    const QColor base = colourOf(button);
    QColor colour = base;
    if (lighting == Lighting::Lit)
        colour = base.lighter(112);
    else if (lighting == Lighting::Dim)
        colour = mix(base, QColor(72, 66, 62), 0.62);

    drawOver(target, lit(flatColour(size, QColor(62, 24, 14)), disc(centre, kSocket), Relief{.bevel = 2, .depth = -1.0}));

    const QImage bezel = lit(verticalGradient(size, QColor(236, 204, 128), QColor(132, 92, 38),
                                               QRectF(centre - QPointF(kBezel, kBezel), QSizeF(2 * kBezel, 2 * kBezel))),
                             disc(centre, kBezel),
                             Relief{.bevel = 3.6, .depth = 1.2, .gloss = 0.5, .shininess = 20});
    drawOver(target, bezel);

    const QImage gem = lit(gemMaterial(size, centre, colour), disc(centre, kGem),
                           Relief{.bevel = kGem, .depth = 0.55,
                                  .gloss = lighting == Lighting::Dim ? 0.25 : 0.85, .shininess = 24, .dome = true});
    if (lighting == Lighting::Lit) {
        // The lit gem shines on its bezel; the glow stays within the socket so
        // that it never spills past the column.
        QImage glow = glowOf(gem, 2, base.lighter(140), 2.2);
        QPainter painter(&glow);
        painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        painter.drawImage(0, 0, lit(flatColour(size, Qt::white), disc(centre, kSocket), Relief{.bevel = 0}));
        painter.end();
        drawOver(target, glow);
    }
    drawOver(target, lit(flatColour(size, QColor(40, 26, 12)), disc(centre, kGem + 1.2), Relief{.bevel = 0}));
    drawOver(target, gem);

    QPainterPath mark = glyph(button);
    mark.translate(centre);
    const QImage shape = pathImage(size, mark);
    const bool dim = lighting == Lighting::Dim;
    drawOver(target, tinted(shape, QColor(0, 0, 0, dim ? 70 : 130)), {1, 1});
    drawOver(target, tinted(shape, dim ? QColor(206, 200, 190, 150) : QColor(255, 253, 244)));
}

void drawColumn(QImage &target, bool running)
{
    for (int32_t button = 0; button < 7; ++button) {
        const QPointF centre = QPointF(kSpots[button]) + QPointF(kSpot / 2, kSpot / 2);
        drawButton(target, button, centre, lightingOf(button, running));
    }
}

} // namespace

QImage menuSheet()
{
    const QImage column = plainBackground().copy(devicePixels(QRect(kSheetAt, kColumn)));
    QImage sheet = canvas(QSize(2 * kColumn.width(), kColumn.height()), QImage::Format_RGB32);
    for (const bool running : {false, true}) {
        QImage lighting = column;
        drawColumn(lighting, running);
        QPainter painter(&sheet);
        painter.drawImage(running ? kColumn.width() : 0, 0, lighting);
    }
    return sheet;
}

} // namespace art

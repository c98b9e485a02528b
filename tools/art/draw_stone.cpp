// SPDX-License-Identifier: MIT
// pctPion2, the sheet of game 2: the stone at x = 0 on white, its mask at x = 60.
// The stone is a round piece of tan and brown with a green centre.

#include "art.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace art {

namespace {

constexpr int32_t kCell = 60;
const QPointF kCentre(30, 30);
constexpr double kRadius = 27.0;

// Tan with a soft mottle, like a polished river stone.
QImage stoneMaterial(QSize size)
{
    const Noise noise(4242);
    QImage image = canvas(size, QImage::Format_RGB32);
    const double s = scale();
    for (int32_t py = 0; py < image.height(); ++py)
        for (int32_t px = 0; px < image.width(); ++px) {
            const double x = px / s;
            const double y = py / s;
            const double m = noise.fractal(x * 0.12, y * 0.12, 3) - 0.5;
            const double r = std::hypot((px + 0.5) / s - kCentre.x(), (py + 0.5) / s - kCentre.y()) / kRadius;
            const double l = 1.0 + 0.22 * m - 0.12 * r;
            image.setPixel(px, py,
                           qRgb(std::clamp(static_cast<int32_t>(214 * l), 0, 255),
                                std::clamp(static_cast<int32_t>(176 * l), 0, 255),
                                std::clamp(static_cast<int32_t>(124 * l), 0, 255)));
        }
    return image;
}

QImage stone()
{
    const QSize size(kCell, kCell);
    QImage sprite = lit(stoneMaterial(size), disc(kCentre, kRadius),
                        Relief{.bevel = 9, .depth = 1.0, .gloss = 0.35, .shininess = 14, .dome = true});
    // A brown groove round the centre...
    drawOver(sprite, lit(flatColour(size, QColor(122, 74, 36)), ring(kCentre, 11.0, 17.5),
                         Relief{.bevel = 3.0, .depth = -1.0}));
    // ...holding a green, glassy boss.
    const QImage boss = lit(verticalGradient(size, QColor(96, 196, 110), QColor(24, 110, 54), QRectF(19, 19, 22, 22)),
                            disc(kCentre, 11.0),
                            Relief{.bevel = 11.0, .depth = 0.8, .gloss = 0.9, .shininess = 30, .dome = true});
    drawOver(sprite, boss);
    return sprite;
}

} // namespace

QImage stoneSheet()
{
    const QImage outline = lit(flatColour(QSize(kCell, kCell), Qt::white), disc(kCentre, kRadius), Relief{.bevel = 0});
    const MaskedSprite parts = splitMasked(stone(), outline, playAreaGround());
    QImage sheet = canvas(QSize(2 * kCell, kCell), QImage::Format_RGB32);
    QPainter painter(&sheet);
    painter.drawImage(0, 0, parts.image);
    painter.drawImage(kCell, 0, parts.mask);
    return sheet;
}

} // namespace art

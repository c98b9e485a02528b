// SPDX-License-Identifier: MIT
// Pips: where they stand on a tile and how they are drawn. Games 1 and 3 lay
// them out alike, so a tile of 3 reads the same in both.

#include "art.h"

#include <QPainter>

#include <cmath>

namespace art {

namespace {

constexpr double kOff = 0.24; // distance of a corner pip from the centre, in tile sides

const QPointF kTopLeft{-kOff, -kOff};
const QPointF kTopRight{kOff, -kOff};
const QPointF kBottomLeft{-kOff, kOff};
const QPointF kBottomRight{kOff, kOff};
const QPointF kCentre{0, 0};

} // namespace

std::vector<QPointF> pipLayout(int32_t count)
{
    switch (count) {
    case 1: return {kCentre};
    case 2: return {kTopRight, kBottomLeft};
    case 3: return {kTopLeft, kTopRight, kBottomLeft};
    default: return {kTopLeft, kTopRight, kBottomLeft, kBottomRight};
    }
}

void drawPips(QImage &target, QRectF tile, const std::vector<QPointF> &pips, double radius, QColor colour)
{
    std::vector<QPointF> centres;
    for (const QPointF &p : pips)
        centres.push_back(tile.center() + QPointF(p.x() * tile.width(), p.y() * tile.height()));
    const auto within = [centres](double grow) {
        return [centres, grow](double x, double y) {
            double d = 1e9;
            for (const QPointF &c : centres)
                d = std::min(d, std::hypot(x - c.x(), y - c.y()));
            return d - grow;
        };
    };
    // Each pip sits in a shallow hollow and stands up from it as a small dome.
    const QImage hollow = lit(flatColour(logicalSize(target), QColor(20, 20, 30, 255)), within(radius + 1.2),
                              Relief{.bevel = 1.5, .depth = -1.0});
    QImage hollowSoft = hollow;
    {
        QImage fade = canvas(logicalSize(hollow));
        QPainter painter(&fade);
        painter.setOpacity(0.45);
        painter.drawImage(0, 0, hollow);
        hollowSoft = fade;
    }
    drawOver(target, hollowSoft);
    const QImage dome = lit(flatColour(logicalSize(target), colour), within(radius),
                            Relief{.bevel = radius, .depth = 0.9, .gloss = 0.6, .shininess = 25, .dome = true});
    drawOver(target, shadowOf(dome, 1, {1, 1}, 0.45));
    drawOver(target, dome);
}

} // namespace art

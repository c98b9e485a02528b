// SPDX-License-Identifier: MIT
// The artwork generator: materials, lighting and the drawing of each picture.
// Every picture is lit from the top left, the same way, so that bevels agree.

#pragma once

#include <QColor>
#include <QImage>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>

#include <cstdint>
#include <functional>
#include <vector>

namespace art {

// ---- shading.cpp: the scale ----

// Every picture is drawn in logical pixels at a scale of 1, 2 or 3 device pixels to each. Every image
// made here carries the scale as its device pixel ratio, so QPainter and the routines below take
// logical coordinates, sizes and lengths, while their pixel loops run over device pixels.
void setScale(int32_t scale);
int32_t scale();
// A transparent image of a logical size at the scale.
QImage canvas(QSize size, QImage::Format format = QImage::Format_ARGB32_Premultiplied);
QSize logicalSize(const QImage &image);
// A logical rectangle in the device pixels of the scale.
QRect devicePixels(QRect logical);

// ---- texture.cpp: seeded noise and the two materials of the program ----

// Smooth value noise on a wrapped 256 x 256 lattice, filled from a fixed seed.
class Noise {
public:
    explicit Noise(uint32_t seed);
    double at(double x, double y) const;                          // 0 to 1
    double fractal(double x, double y, int32_t octaves) const;    // 0 to 1, several scales
private:
    std::vector<double> lattice_;
};

// Cherry wood, its grain running along x (or along y when `across` is set).
QImage cherryWood(QSize size, uint32_t seed, bool across = false);
// The dark, mottled slate of the play area.
QImage slate(QSize size, uint32_t seed);
QImage flatColour(QSize size, QColor colour);
QImage verticalGradient(QSize size, QColor top, QColor bottom);
// The same gradient running over the height of `over` only, flat above and below.
QImage verticalGradient(QSize size, QColor top, QColor bottom, QRectF over);

// ---- shading.cpp: shapes, relief and compositing ----

// Signed distance to a shape's edge: negative inside.
using Shape = std::function<double(double x, double y)>;
Shape roundedBox(QRectF box, double radius);
Shape disc(QPointF centre, double radius);
Shape ring(QPointF centre, double inner, double outer);

struct Relief {
    double bevel = 3.0;     // how far in from the edge the slope reaches, in pixels
    double depth = 1.0;     // steepness of the slope; negative sinks the shape
    double gloss = 0.0;     // strength of the highlight
    double shininess = 30.0;
    bool dome = false;      // a lens-like curve instead of a flat top with a rounded rim
};

// The material lit by the relief of the shape, with the shape's coverage as alpha
// (premultiplied). The material and the result are the same size; `shape` is in
// logical coordinates, sampled 4 x 4 times per device pixel.
QImage lit(const QImage &material, const Shape &shape, const Relief &relief);
// A soft shadow of an image's alpha, blurred and moved by `offset` (logical pixels).
QImage shadowOf(const QImage &picture, int32_t blur, QPoint offset, double opacity);
// A soft glow of the given colour around an image's alpha.
QImage glowOf(const QImage &picture, int32_t blur, QColor colour, double opacity);
// Antialiased coverage of a vector path as a white image with alpha.
QImage pathImage(QSize size, const QPainterPath &path);
// A material tinted by a colour where `coverage` is opaque, for glyphs and inlays.
QImage tinted(const QImage &coverage, QColor colour);
// A material cut out by the alpha of `coverage`.
QImage clipped(const QImage &material, const QImage &coverage);
void drawOver(QImage &target, const QImage &layer, QPoint at = {});

// An image and its mask for drawing with OR then AND: the image is pure white
// outside the sprite, the mask pure white on it and pure black around it. Where
// the sprite lies is decided by the alpha of `outline` alone, so sprites of one
// outline share one mask. Edge pixels are blended with `ground`, the colour the
// sprite is expected to lie on, so the edge looks smooth without breaking that rule.
struct MaskedSprite {
    QImage image;
    QImage mask;
};
MaskedSprite splitMasked(const QImage &sprite, const QImage &outline, QColor ground);
// The average colour of the play area, used as that ground.
QColor playAreaGround();

// ---- the pictures; each drawing file holds one family ----

QImage plainBackground();                         // draw_background.cpp, 600 x 600, no menu
QImage windowBackground();                        // the same with the idle menu in place
QImage menuSheet();                               // draw_menu.cpp, 160 x 375
void drawPlate(QImage &target, QRectF box);      // a raised brass plate for a caption
QImage catalogueEmblem();                         // draw_emblem.cpp, 90 x 90
void drawCherries(QImage &target, QRectF box);
QImage tileSheet();                               // draw_tiles.cpp, pctPion1, 324 x 54
QImage pairSheet();                               // draw_pairs.cpp, pctPion3, 468 x 208
struct FaceColours {
    QColor top;
    QColor bottom;
};
FaceColours pairColours(int32_t row);             // the face of the tiles of a row of that sheet
QImage stoneSheet();                              // draw_stone.cpp, pctPion2, 120 x 60
QImage messageDialog();                           // draw_dialogs.cpp, 300 x 300
QImage messageButton();                           // 180 x 30
QImage bestTimesDialog();                         // 400 x 540
QImage savedGamesDialog();                        // 300 x 300
QImage pointer();                                 // draw_pointers.cpp, 32 x 32
QImage handPointer();                             // 32 x 32
constexpr QPoint kPointerHotSpot{2, 1};
constexpr QPoint kHandHotSpot{12, 1};

// Pip positions shared by the tiles of games 1 and 3, in units of the tile's side
// from its centre: 1 in the centre; 2 top right and bottom left; 3 top left, top
// right and bottom left; 4 in the corners.
std::vector<QPointF> pipLayout(int32_t count);
void drawPips(QImage &target, QRectF tile, const std::vector<QPointF> &pips, double radius,
              QColor colour);

} // namespace art

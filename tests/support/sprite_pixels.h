// SPDX-License-Identifier: MIT
// Pictures built pixel by pixel from a sprite sheet, and the first pixel where two pictures differ.
// Plain QImage work, for the screen tests and for the end-to-end screenshot checker alike. Places and
// sizes are logical pixels; an image drawn for a device pixel ratio of 2 holds 2 x 2 pixels for each.
#pragma once

#include <QImage>
#include <QString>

inline int scaleOf(const QImage &image) { return static_cast<int>(image.devicePixelRatio()); }

// A logical rectangle of an image, in the image's own pixels.
inline QRect devicePixels(const QImage &image, QRect logical)
{
    return {logical.topLeft() * scaleOf(image), logical.size() * scaleOf(image)};
}

// A sprite copied as it is from a rectangle of the sheet.
inline void putSprite(QImage &out, QPoint at, const QImage &sheet, QRect from)
{
    const QRect source = devicePixels(sheet, from);
    const QPoint to = at * scaleOf(sheet);
    for (int v = 0; v < source.height(); ++v)
        for (int u = 0; u < source.width(); ++u)
            out.setPixel(to.x() + u, to.y() + v, sheet.pixel(source.x() + u, source.y() + v));
}

// A sprite drawn through its mask: the background ORed with the mask, then ANDed with the picture.
inline void putMaskedSprite(QImage &out, QPoint at, const QImage &sheet, QRect picture, QPoint mask)
{
    const QRect source = devicePixels(sheet, picture);
    const QPoint to = at * scaleOf(sheet);
    const QPoint cut = mask * scaleOf(sheet);
    for (int v = 0; v < source.height(); ++v)
        for (int u = 0; u < source.width(); ++u)
            out.setPixel(to.x() + u, to.y() + v,
                         (out.pixel(to.x() + u, to.y() + v) | sheet.pixel(cut.x() + u, cut.y() + v))
                             & sheet.pixel(source.x() + u, source.y() + v));
}

// Empty when both pictures are the same, else their sizes or the first pixel where they differ.
inline QString firstWrongPixel(const QImage &shown, const QImage &wanted)
{
    if (shown.size() != wanted.size())
        return QString::asprintf("size %dx%d, expected %dx%d", shown.width(), shown.height(), wanted.width(),
                                 wanted.height());
    for (int y = 0; y < shown.height(); ++y)
        for (int x = 0; x < shown.width(); ++x)
            if (shown.pixel(x, y) != wanted.pixel(x, y))
                return QString::asprintf("pixel (%d, %d) is #%08x, expected #%08x", x, y, shown.pixel(x, y),
                                         wanted.pixel(x, y));
    return {};
}

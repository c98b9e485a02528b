// Pictures built pixel by pixel from a sprite sheet, and the first pixel where two pictures differ.
// Plain QImage work, for the screen tests and for the end-to-end screenshot checker alike.
#pragma once

#include <QImage>
#include <QString>

// A sprite copied as it is from a rectangle of the sheet.
inline void putSprite(QImage &out, QPoint at, const QImage &sheet, QRect from)
{
    for (int v = 0; v < from.height(); ++v)
        for (int u = 0; u < from.width(); ++u)
            out.setPixel(at.x() + u, at.y() + v, sheet.pixel(from.x() + u, from.y() + v));
}

// A sprite drawn through its mask: the background ORed with the mask, then ANDed with the picture.
inline void putMaskedSprite(QImage &out, QPoint at, const QImage &sheet, QRect picture, QPoint mask)
{
    for (int v = 0; v < picture.height(); ++v)
        for (int u = 0; u < picture.width(); ++u)
            out.setPixel(at.x() + u, at.y() + v,
                         (out.pixel(at.x() + u, at.y() + v) | sheet.pixel(mask.x() + u, mask.y() + v))
                             & sheet.pixel(picture.x() + u, picture.y() + v));
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

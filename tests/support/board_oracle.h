// What a game's screen must show, worked out pixel by pixel from the window's background and the
// sprite sheet, and the first pixel where the screen or the window shows something else.
#pragma once

#include "frmFond.h"

#include <QString>

// The window's own background where a screen stands, the ground every board is drawn on.
inline QImage backgroundUnder(const frmFond &fond, QRect place)
{
    return fond.image.copy(place).convertToFormat(QImage::Format_RGB32);
}

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

// What the window itself shows over a rectangle, as it paints it.
inline QImage shownOn(frmFond &fond, QRect place)
{
    return fond.grab(place).toImage().convertToFormat(QImage::Format_RGB32);
}

// Empty when the screen is shown in its place, its image is the one wanted, and the window shows
// that image there; else the first fault.
inline QString screenFault(frmFond &fond, const Surface *screen, QRect place, const QImage &wanted)
{
    if (!screen->isVisible()) return QStringLiteral("the screen is hidden");
    if (screen->geometry() != place) return QStringLiteral("the screen is out of place");
    if (QString fault = firstWrongPixel(screen->image, wanted); !fault.isEmpty())
        return QStringLiteral("image: ") + fault;
    if (QString fault = firstWrongPixel(shownOn(fond, place), screen->image); !fault.isEmpty())
        return QStringLiteral("window: ") + fault;
    return {};
}

// SPDX-License-Identifier: MIT
// What a game's screen must show, worked out pixel by pixel from the window's background and the
// sprite sheet, and the first pixel where the screen or the window shows something else.
#pragma once

#include "frmFond.h"
#include "sprite_pixels.h"

// The window's own background where a screen stands, the ground every board is drawn on.
inline QImage backgroundUnder(const frmFond &fond, QRect place)
{
    return fond.image.copy(devicePixels(fond.image, place)).convertToFormat(QImage::Format_RGB32);
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

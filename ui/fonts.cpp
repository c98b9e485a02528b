// SPDX-License-Identifier: MIT
#include "fonts.h"

QFont boldArial(int pixels)
{
    QFont font(QStringLiteral("Arial"));
    font.setBold(true);
    font.setPixelSize(pixels);
    return font;
}

QFont plainArial(int pixels)
{
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(pixels);
    return font;
}

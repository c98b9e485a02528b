// SPDX-License-Identifier: MIT
// The text of a label as it must show: drawn by Qt in the label's font and colour over what lies
// behind it, compared pixel for pixel with what the window shows.
#pragma once

#include "sprite_pixels.h"

#include <QLabel>
#include <QPainter>

// Text drawn over a picture, in the whole picture, with the alignment given.
inline QImage withText(QImage ground, const QFont &font, QColor colour, Qt::Alignment alignment, const QString &text)
{
    ground = ground.convertToFormat(QImage::Format_RGB32);
    QPainter painter(&ground);
    painter.setFont(font);
    painter.setPen(colour);
    painter.drawText(QRectF(QPointF(0, 0), ground.deviceIndependentSize()), alignment, text);
    return ground;
}

// Empty when the label's caption stands centred across it and at its top, as a centred label's
// caption does; else the first wrong pixel.
inline QString captionFault(QLabel *label, QColor colour)
{
    QWidget *window = label->parentWidget();
    const QString caption = label->text();
    label->setText(QString());
    const QImage behind = window->grab(label->geometry()).toImage();
    label->setText(caption);
    const QImage shown = window->grab(label->geometry()).toImage().convertToFormat(QImage::Format_RGB32);
    return firstWrongPixel(shown, withText(behind, label->font(), colour, Qt::AlignHCenter | Qt::AlignTop, caption));
}

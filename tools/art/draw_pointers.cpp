// SPDX-License-Identifier: MIT
// The two mouse pointers, 32 x 32 with alpha: a brass arrow shared by the
// buttons, the screens and the dialogs, and a hand over the catalogue picture.
// Their hot spots are kPointerHotSpot and kHandHotSpot (art.h), also written
// into each PNG as the text field "HotSpot".

#include "art.h"

#include <QPainter>
#include <QPainterPathStroker>

namespace art {

namespace {

constexpr QSize kSize(32, 32);

QImage outlined(const QPainterPath &shape, QColor top, QColor bottom, QColor outline)
{
    QPainterPathStroker stroker;
    stroker.setWidth(2.2);
    stroker.setJoinStyle(Qt::RoundJoin);
    const QPainterPath border = stroker.createStroke(shape).united(shape);
    QImage picture = canvas(kSize);
    drawOver(picture, shadowOf(pathImage(kSize, border), 1, {2, 2}, 0.45));
    drawOver(picture, tinted(pathImage(kSize, border), outline));
    drawOver(picture, clipped(verticalGradient(kSize, top, bottom, shape.boundingRect()), pathImage(kSize, shape)));
    return picture;
}

// The hot spot in the picture's own pixels, written into the file.
void setHotSpot(QImage &picture, QPoint logical)
{
    const QPoint at = logical * scale();
    picture.setText(QStringLiteral("HotSpot"), QStringLiteral("%1,%2").arg(at.x()).arg(at.y()));
}

} // namespace

QImage pointer()
{
    const QPointF tip = kPointerHotSpot + QPointF(0.6, 0.6);
    QPainterPath arrow;
    arrow.moveTo(tip);
    arrow.lineTo(tip + QPointF(0, 19));
    arrow.lineTo(tip + QPointF(4.6, 14.8));
    arrow.lineTo(tip + QPointF(8.2, 22.4));
    arrow.lineTo(tip + QPointF(11.4, 21));
    arrow.lineTo(tip + QPointF(7.8, 13.6));
    arrow.lineTo(tip + QPointF(13.8, 13.6));
    arrow.closeSubpath();
    QImage picture = outlined(arrow, QColor(255, 236, 170), QColor(206, 150, 60), QColor(52, 22, 10));
    setHotSpot(picture, kPointerHotSpot);
    return picture;
}

QImage handPointer()
{
    const double x = kHandHotSpot.x();
    QPainterPath hand;
    hand.addRoundedRect(QRectF(x - 2.6, 1.2, 5.6, 16), 2.8, 2.8);         // the pointing finger
    hand.addRoundedRect(QRectF(x + 2.2, 10.5, 5.2, 9), 2.6, 2.6);          // the folded fingers
    hand.addRoundedRect(QRectF(x + 6.6, 11.5, 5.0, 8.5), 2.5, 2.5);
    hand.addRoundedRect(QRectF(x + 10.8, 12.8, 4.6, 8), 2.3, 2.3);
    QPainterPath palm;
    palm.moveTo(x - 2.6, 14);
    palm.lineTo(x - 2.6, 18);
    palm.lineTo(x - 7.5, 14.5);
    palm.cubicTo(x - 10, 13, x - 11.5, 16, x - 9.5, 18.5);                 // the thumb
    palm.lineTo(x - 3, 27);
    palm.cubicTo(x - 1, 29.5, x + 2, 30.5, x + 6, 30.5);
    palm.lineTo(x + 10, 30.5);
    palm.cubicTo(x + 13.5, 30.5, x + 15.4, 27, x + 15.4, 24);
    palm.lineTo(x + 15.4, 17);
    palm.lineTo(x - 2.6, 14);
    palm.closeSubpath();
    hand = hand.united(palm).simplified();
    QImage picture = outlined(hand, QColor(255, 255, 255), QColor(226, 220, 208), QColor(24, 16, 10));
    setHotSpot(picture, kHandHotSpot);
    return picture;
}

} // namespace art

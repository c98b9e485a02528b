// SPDX-License-Identifier: MIT
#include "pointers.h"

#include "surface.h"

#include <QGuiApplication>
#include <QPixmap>
#include <cmath>

namespace {

// The pointer's picture at the art's scale for the window's screen, with the hot spot that the
// picture carries in its own pixels; between two scales, both are brought to the ratio.
QCursor pointerOf(const QString &name, const QWidget *window)
{
    const qreal ratio = ratioOf(window);
    const int scale = artScaleFor(ratio);
    QImage picture = readPicture(artPath(name, scale));
    const QStringList hotSpot = picture.text(QStringLiteral("HotSpot")).split(u',');
    QPointF hot(hotSpot.value(0).toInt(), hotSpot.value(1).toInt());
    if (!qFuzzyCompare(ratio, scale)) {
        const qreal factor = ratio / scale;
        picture = picture.scaled(picture.size() * factor, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        hot *= factor;
    }
    return QCursor(QPixmap::fromImage(picture), static_cast<int>(std::lround(hot.x())),
                   static_cast<int>(std::lround(hot.y())));
}

} // namespace

QCursor customPointer(const QWidget *window) { return pointerOf(QStringLiteral("pointeur.png"), window); }

QCursor handPointer(const QWidget *window) { return pointerOf(QStringLiteral("main.png"), window); }

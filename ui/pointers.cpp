#include "pointers.h"

#include "frmFond.h"
#include "surface.h"

#include <QGuiApplication>
#include <QPixmap>
#include <cmath>

namespace {

// The pointer's picture at the art's scale for the main window's screen, with the hot spot that the
// picture carries in its own pixels; between two scales, both are brought to the ratio.
QCursor pointerOf(const QString &name)
{
    const qreal ratio = mainWindow() ? mainWindow()->devicePixelRatioF() : qApp->devicePixelRatio();
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

QCursor customPointer() { return pointerOf(QStringLiteral("pointeur.png")); }

QCursor handPointer() { return pointerOf(QStringLiteral("main.png")); }

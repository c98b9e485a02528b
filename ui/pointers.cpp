#include "pointers.h"

#include "surface.h"

#include <QPixmap>

QCursor customPointer() { return QCursor(QPixmap::fromImage(readPicture(QStringLiteral(":/art/pointeur.png"))), 2, 1); }

QCursor handPointer() { return QCursor(QPixmap::fromImage(readPicture(QStringLiteral(":/art/main.png"))), 12, 1); }

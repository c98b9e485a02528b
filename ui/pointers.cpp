#include "pointers.h"

#include <QPixmap>

QCursor customPointer() { return QCursor(QPixmap(QStringLiteral(":/art/pointeur.png")), 1, 1); }

QCursor handPointer() { return QCursor(QPixmap(QStringLiteral(":/art/main.png")), 10, 1); }

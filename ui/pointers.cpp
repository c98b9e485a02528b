#include "pointers.h"

#include <QPixmap>

QCursor customPointer() { return QCursor(QPixmap(QStringLiteral(":/art/pointeur.png")), 2, 1); }

QCursor handPointer() { return QCursor(QPixmap(QStringLiteral(":/art/main.png")), 12, 1); }

// The program's two mouse pointers: the one of buttons, screens and dialog buttons, and the hand.
#pragma once

#include <QCursor>

QCursor customPointer();
QCursor handPointer();

// The program's two mouse pointers: the one of buttons, screens and dialog buttons, and the hand.
// Both are drawn for the device pixel ratio of the screen the main window is on.
#pragma once

#include <QCursor>

QCursor customPointer();
QCursor handPointer();

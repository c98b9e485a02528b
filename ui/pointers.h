// SPDX-License-Identifier: MIT
// The program's two mouse pointers: the one of buttons, screens and dialog buttons, and the hand.
// Both are drawn for the device pixel ratio of the screen the given window is on.
#pragma once

#include <QCursor>

class QWidget;

QCursor customPointer(const QWidget *window);
QCursor handPointer(const QWidget *window);

// SPDX-License-Identifier: MIT
// What a dialog needs of the main window.
#pragma once

class QWidget;
class Tambour;

// The window a dialog shows over, and the sound control its clicks play through.
struct DialogOwner {
    QWidget *window;
    Tambour &tambour;
};

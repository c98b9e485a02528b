// SPDX-License-Identifier: MIT
// The program's sound cues.
#pragma once

#include <QString>

class QWidget;
class Tambour;

// Plays a wave file of the program's folder on the sound control from its start, pumps events once
// and returns at once.
void JoueSon(Tambour &tambour, QString nom);

// Has the control load the six cues once the window has shown, so that the first play of each is instant.
void preloadCues(Tambour &tambour, QWidget *window);

// The program's sound cues.
#pragma once

#include <QString>

// Plays a wave file of the program's folder from its start, pumps events once and returns at once.
void JoueSon(QString nom);

// Has the six cues loaded once the window has shown, so that the first play of each is instant.
void preloadCues();

// SPDX-License-Identifier: MIT
// The program's sound cues.
#pragma once

#include <QString>

class Tambour;

// Plays a wave file of the program's folder on the sound control from its start, pumps events once
// and returns at once.
void JoueSon(Tambour &tambour, QString nom);

// Names the player and the six cues it loads with it, so that the first play of each is instant.
void preloadCues(Tambour &tambour);

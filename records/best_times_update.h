// SPDX-License-Identifier: MIT
// A won level enters the best-times table of its game: a place sounds the cue and rewrites the file.
#pragma once

class Tambour;

void MajBest1(Tambour &tambour);
void MajBest2(Tambour &tambour);
void MajBest3(Tambour &tambour);

// A won level enters the best-times table of its game: a place sounds the cue and rewrites the file.
#pragma once

void MajBest1();
void MajBest2();
void MajBest3();

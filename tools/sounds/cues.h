// SPDX-License-Identifier: MIT
#pragma once

// The program's six sound cues, each with the file name the program plays it under.
#include "synth.h"

#include <string>
#include <vector>

struct Cue {
    std::string fileName;
    Signal (*make)();
};

const std::vector<Cue> &allCues();

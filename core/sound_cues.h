// SPDX-License-Identifier: MIT
// The program's six sound cues, named by what they mark, with the wave file each one plays. The
// build copies and installs these files, and the sound generator writes them, by this list.
#pragma once

#include <array>

namespace cue {

inline constexpr char kWin[] = "marel001.wav";       // a game finished, or a place among the best times
inline constexpr char kNewLevel[] = "marel002.wav";  // a level set up on its screen
inline constexpr char kTakeBack[] = "marel007.wav";  // a move taken back, a selection cancelled
inline constexpr char kDialog[] = "marel008.wav";    // a dialog opened
inline constexpr char kClick[] = "marel009.wav";     // a click on a dialog's button or list
inline constexpr char kBoardMove[] = "marel010.wav"; // a move on a board

inline constexpr std::array kAll{kWin, kNewLevel, kTakeBack, kDialog, kClick, kBoardMove};

} // namespace cue

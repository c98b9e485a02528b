// SPDX-License-Identifier: MIT
// The offer to save, when a game is left or finished.
#pragma once

#include "dialog_owner.h"

class FileList;

// Asks whether to save the running game, under its name or a new one, and writes it. Asks nothing
// unless a player name was given and a level has been won since the game was started or loaded.
// The dialogs show over the owner's window; `filList` is the main window's file list.
void SauvePartie(const DialogOwner &owner, FileList &filList);

// SPDX-License-Identifier: MIT
// Saved games in the data folder: loading one into the shared record, creating a new one, and
// writing the running game's progress into it.
#pragma once

#include <QString>
#include <cstdint>

class FileList;

// Reads the saved game named gNomPartie: its player, as the files can hold it, into gNomJoueur, and
// game jeu's level and time into gNiveau and gTempsTotal. False, with nothing changed, when the file
// is gone, unreadable, short or garbled.
bool ChargePartie(int32_t jeu);

// Creates a new saved game holding the blank record; false when the name is empty, already taken,
// unfit for a file name, or the file cannot be written. An existing file is never touched.
// `filList` is the main window's file list, which it refreshes on the data folder.
bool CreePartie(FileList &filList, const QString &nom);

// Writes the running game's level and time into the saved game gNomPartie, keeping the other two
// games' progress; the player is gNomJoueur. False when the old file could not be read or the new one
// written: the old file then stays as it was.
bool rewriteSavedGame();

// Whether a game name can name a file of its own in the data folder on every system.
bool acceptableGameName(const QString &nom);

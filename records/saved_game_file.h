// SPDX-License-Identifier: MIT
// A saved game on disk: seven lines, the player's name in quotes, then a level and a time for each
// of the three games, each line ending in CR LF.
#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <optional>

struct SavedGame {
    QString joueur;
    int32_t niveau[4] = {}; // games 1 to 3; 999 marks a finished game
    double temps[4] = {};
};

// The record a new file holds for the moment between its creation and its first rewrite.
SavedGame blankSavedGame();

QByteArray formatSavedGame(const SavedGame &game);

// The seven fields of a file; none when the file is short or a number is not a level or a time.
std::optional<SavedGame> parseSavedGame(const QByteArray &bytes);

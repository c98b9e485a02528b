// SPDX-License-Identifier: MIT
#include "saved_game_file.h"

#include "best_times_table.h"
#include "codepage.h"
#include "text_fields.h"

namespace {

// A whole number in decimal with an optional sign, within the given range.
std::optional<qint64> wholeNumber(const QByteArray &field, qint64 lowest, qint64 highest)
{
    bool ok = false;
    const qint64 value = field.toLongLong(&ok);
    if (!ok || value < lowest || value > highest) return std::nullopt;
    return value;
}

} // namespace

SavedGame blankSavedGame()
{
    SavedGame game;
    game.joueur = kEmptyName;
    return game;
}

QByteArray formatSavedGame(const SavedGame &game)
{
    QByteArray bytes = '"' + toCodePage(game.joueur) + "\"\r\n";
    for (int jeu = 1; jeu <= 3; ++jeu) {
        bytes += QByteArray::number(game.niveau[jeu]) + "\r\n";
        bytes += QByteArray::number(static_cast<qint64>(game.temps[jeu])) + "\r\n";
    }
    return bytes;
}

std::optional<SavedGame> parseSavedGame(const QByteArray &bytes)
{
    FieldReader fields(bytes);
    SavedGame game;
    const std::optional<QByteArray> joueur = fields.next();
    if (!joueur) return std::nullopt;
    game.joueur = fromCodePage(*joueur);
    for (int jeu = 1; jeu <= 3; ++jeu) {
        const std::optional<QByteArray> niveau = fields.next();
        const std::optional<QByteArray> temps = fields.next();
        if (!niveau || !temps) return std::nullopt;
        const std::optional<qint64> level = wholeNumber(*niveau, 0, INT32_MAX);
        const std::optional<qint64> seconds = wholeNumber(*temps, 0, 356400);
        if (!level || !seconds) return std::nullopt;
        game.niveau[jeu] = static_cast<int32_t>(*level);
        game.temps[jeu] = static_cast<double>(*seconds);
    }
    return game;
}

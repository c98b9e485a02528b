// SPDX-License-Identifier: MIT
#include "saved_games.h"

#include "codepage.h"
#include "file_list.h"
#include "modBase.h"
#include "saved_game_file.h"
#include "whole_file.h"

#include <QRegularExpression>

namespace {

QString savedGamePath(const QString &nom) { return gCheminData + nom + QStringLiteral(".sml"); }

} // namespace

bool acceptableGameName(const QString &nom)
{
    // A separator would leave the folder; Windows refuses these characters and the names of its
    // devices, also with an extension. A name with dots stays in the folder, and the extension after
    // it keeps Windows from stripping a last dot.
    static const QRegularExpression refused(QStringLiteral(R"([<>:"/\\|?*\x00-\x1F])"));
    static const QRegularExpression device(QStringLiteral(R"(^(CON|PRN|AUX|NUL|COM[0-9¹²³]|LPT[0-9¹²³]) *(\..*)?$)"),
                                           QRegularExpression::CaseInsensitiveOption);
    return !nom.isEmpty() && !refused.match(nom).hasMatch() && !device.match(nom).hasMatch();
}

bool ChargePartie(int32_t jeu)
{
    const RecordFile file = readRecordFile(savedGamePath(gNomPartie));
    const std::optional<SavedGame> game = file.status == RecordFile::Read ? parseSavedGame(file.bytes) : std::nullopt;
    if (!game) return false;
    gNomJoueur = storableName(game->joueur);
    gNiveau = game->niveau[jeu];
    gTempsTotal = game->temps[jeu];
    return true;
}

bool CreePartie(FileList &filList, const QString &nom)
{
    if (nom.isEmpty()) return false;
    const QString fichier = nom + QStringLiteral(".sml");
    filList.Path = gCheminData;
    filList.Refresh();
    bool taken = false;
    for (int i = 0; i < filList.ListCount(); ++i)
        if (filList.List(i) == fichier) taken = true;
    if (taken || !acceptableGameName(nom)) return false;

    // Created whole and only if no file of that name exists, so that no saved game is ever emptied.
    return createWholeFile(gCheminData + fichier, formatSavedGame(blankSavedGame()));
}

bool rewriteSavedGame()
{
    const QString path = savedGamePath(gNomPartie);
    const RecordFile file = readRecordFile(path);
    if (file.status == RecordFile::Unreadable) return false;
    // A file gone meanwhile receives this game's progress alone: there is nothing else to keep.
    SavedGame game;
    if (file.status == RecordFile::Read) {
        // Pairs that could not be read are never written over; a file longer than was read is kept beside.
        const std::optional<SavedGame> read = parseSavedGame(file.bytes);
        if (!read || (!file.whole && !keepBeside(path))) return false;
        game = *read;
    }
    game.joueur = gNomJoueur;
    game.niveau[gJeu] = gNiveau;
    game.temps[gJeu] = gTempsTotal;
    return writeWholeFile(savedGamePath(gNomPartie), formatSavedGame(game));
}

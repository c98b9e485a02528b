#include "saved_games.h"

#include "frmFond.h"
#include "modBase.h"
#include "saved_game_file.h"
#include "whole_file.h"

#include <QFile>
#include <QRegularExpression>

namespace {

QString savedGamePath(const QString &nom) { return gCheminData + nom + QStringLiteral(".sml"); }

std::optional<SavedGame> readSavedGame(const QString &nom)
{
    QFile file(savedGamePath(nom));
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    return parseSavedGame(file.readAll());
}

} // namespace

bool acceptableGameName(const QString &nom)
{
    static const QRegularExpression refused(QStringLiteral(R"([<>:"/\\|?*\x00-\x1F]|\.\.)"));
    static const QRegularExpression device(QStringLiteral(R"(^(CON|PRN|AUX|NUL|COM[1-9]|LPT[1-9])(\..*)?$)"),
                                           QRegularExpression::CaseInsensitiveOption);
    return !nom.isEmpty() && !refused.match(nom).hasMatch() && !device.match(nom).hasMatch()
           && !nom.endsWith(QLatin1Char('.')) && !nom.endsWith(QLatin1Char(' '));
}

bool ChargePartie(int32_t jeu)
{
    const std::optional<SavedGame> game = readSavedGame(gNomPartie);
    if (!game) return false;
    gNomJoueur = game->joueur;
    gNiveau = game->niveau[jeu];
    gTempsTotal = game->temps[jeu];
    return true;
}

bool CreePartie(const QString &nom)
{
    if (nom.isEmpty()) return false;
    const QString fichier = nom + QStringLiteral(".sml");
    FileList &filList = mainWindow()->filList;
    filList.Path = gCheminData;
    filList.Refresh();
    bool taken = false;
    for (int i = 0; i < filList.ListCount(); ++i)
        if (filList.List(i) == fichier) taken = true;
    if (taken || !acceptableGameName(nom)) return false;

    // Created only if no file of that name exists, so that no saved game is ever emptied.
    QFile file(gCheminData + fichier);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)) return false;
    const QByteArray blank = formatSavedGame(blankSavedGame());
    if (file.write(blank) != blank.size()) {
        file.remove();
        return false;
    }
    return true;
}

bool rewriteSavedGame()
{
    // A file gone or unreadable by now still receives this game's progress.
    SavedGame game = readSavedGame(gNomPartie).value_or(SavedGame{});
    game.joueur = gNomJoueur;
    game.niveau[gJeu] = gNiveau;
    game.temps[gJeu] = gTempsTotal;
    return writeWholeFile(savedGamePath(gNomPartie), formatSavedGame(game));
}

// Any bytes read as a saved game give either nothing or a game that writes back and reads back with
// the same levels and times, and the same player when the name holds no quote, which the format cannot hold.
#include "saved_game_file.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const std::optional<SavedGame> game =
        parseSavedGame(QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    if (!game) return 0;
    const std::optional<SavedGame> again = parseSavedGame(formatSavedGame(*game));
    if (!again) std::abort();
    for (int jeu = 1; jeu <= 3; ++jeu) {
        if (again->niveau[jeu] != game->niveau[jeu] || again->temps[jeu] != game->temps[jeu]) std::abort();
        if (again->niveau[jeu] < 0 || again->temps[jeu] < 0 || again->temps[jeu] > 356400) std::abort();
    }
    if (!game->joueur.contains(QLatin1Char('"')) && again->joueur != game->joueur) std::abort();
    return 0;
}

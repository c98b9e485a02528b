// SPDX-License-Identifier: MIT
// Any bytes read as a saved game give either nothing or a game that writes back and reads back with
// the same levels and times, and the same player when the name holds no quote, which the format
// cannot hold. A game the program can write, made from the same bytes, reads back with the same values.
#include "codepage.h"
#include "saved_game_file.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <fuzzer/FuzzedDataProvider.h>

// The same levels and times in games 1 to 3.
static bool same(const SavedGame &a, const SavedGame &b)
{
    return std::equal(a.niveau + 1, a.niveau + 4, b.niveau + 1) && std::equal(a.temps + 1, a.temps + 4, b.temps + 1);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const std::optional<SavedGame> game =
        parseSavedGame(QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    if (game) {
        const std::optional<SavedGame> again = parseSavedGame(formatSavedGame(*game));
        if (!again || !same(*again, *game)) std::abort();
        for (int jeu = 1; jeu <= 3; ++jeu)
            if (again->niveau[jeu] < 0 || again->temps[jeu] < 0 || again->temps[jeu] > 356400) std::abort();
        if (!game->joueur.contains(QLatin1Char('"')) && again->joueur != game->joueur) std::abort();
    }

    FuzzedDataProvider provider(data, size);
    SavedGame written;
    for (int jeu = 1; jeu <= 3; ++jeu) {
        written.niveau[jeu] = provider.ConsumeBool() ? 999 : provider.ConsumeIntegralInRange<int32_t>(0, INT32_MAX);
        written.temps[jeu] = provider.ConsumeBool() ? 356400 : provider.ConsumeIntegralInRange<int32_t>(0, 356400);
    }
    written.joueur = storableName(fromCodePage(QByteArray::fromStdString(provider.ConsumeRandomLengthString(24))));
    const std::optional<SavedGame> read = parseSavedGame(formatSavedGame(written));
    if (!read || !same(*read, written) || read->joueur != written.joueur) std::abort();
    return 0;
}

// SPDX-License-Identifier: MIT
#include "difficulty_tiles.h"

#include "level_tools.h"
#include "tile_board.h"

#include <cstdint>
#include <limits>
#include <random>
#include <vector>

namespace {

// Attempts are made until this many have won, so that hard levels are measured as closely as easy
// ones, or until the most attempts have been made.
constexpr int32_t kWins = 150;
constexpr int32_t kMostAttempts = 100000;
constexpr uint32_t kSeed = 1;
constexpr double kInfinite = std::numeric_limits<double>::infinity();

struct Socket {
    int32_t demand;   // how many neighbours must come after it
    bool mayFall;     // a target of 1 with four neighbours: it may also come before all four
    int32_t degree;
    std::vector<int32_t> neighbours;
};

std::vector<Socket> socketsOf(std::string_view record)
{
    constexpr int32_t w = TileBoard::kColonnes, h = TileBoard::kLignes;
    std::vector<int32_t> indexAt(w * h, -1);
    std::vector<Socket> sockets;
    for (int32_t code = 0; code < w * h; ++code)
        if (record[code] != '0') {
            indexAt[code] = static_cast<int32_t>(sockets.size());
            sockets.push_back({record[code] - '1', false, 0, {}});
        }
    for (int32_t code = 0; code < w * h; ++code) {
        if (indexAt[code] < 0) continue;
        Socket &socket = sockets[indexAt[code]];
        const int32_t x = code % w, y = code / w;
        for (const auto &[nx, ny] : {std::pair{x - 1, y}, {x + 1, y}, {x, y - 1}, {x, y + 1}})
            if (nx >= 0 && nx < w && ny >= 0 && ny < h && indexAt[ny * w + nx] >= 0)
                socket.neighbours.push_back(indexAt[ny * w + nx]);
        socket.degree = static_cast<int32_t>(socket.neighbours.size());
        socket.mayFall = socket.demand == 0 && socket.degree == 4;
    }
    return sockets;
}

// One attempt from the empty board: how many tiles were laid, and whether the board was completed.
std::pair<int32_t, bool> attempt(const std::vector<Socket> &sockets, std::mt19937 &rng)
{
    const int32_t count = static_cast<int32_t>(sockets.size());
    std::vector<int32_t> emptyNeighbours(count);
    std::vector<bool> laid(count, false);
    for (int32_t i = 0; i < count; ++i) emptyNeighbours[i] = sockets[i].degree;
    std::vector<int32_t> open;
    for (int32_t step = 0; step < count; ++step) {
        open.clear();
        for (int32_t i = 0; i < count; ++i)
            if (!laid[i] && (emptyNeighbours[i] == sockets[i].demand || (sockets[i].mayFall && emptyNeighbours[i] == 4)))
                open.push_back(i);
        if (open.empty()) return {step, false};
        const int32_t chosen = open[below(rng, static_cast<int32_t>(open.size()))];
        laid[chosen] = true;
        for (int32_t k : sockets[chosen].neighbours) emptyNeighbours[k] -= 1;
    }
    return {count, true};
}

} // namespace

TileDifficulty measureTileDifficulty(std::string_view record, double ceiling)
{
    const std::vector<Socket> sockets = socketsOf(record);
    std::mt19937 rng(kSeed);
    int64_t tilesLaid = 0;
    int32_t wins = 0, attempts = 0;
    for (; wins < kWins && attempts < kMostAttempts; ++attempts) {
        const auto [tiles, won] = attempt(sockets, rng);
        tilesLaid += tiles;
        wins += won ? 1 : 0;
        // Whenever measuring ends, the figure is at least the tiles laid so far over kWins.
        if (static_cast<double>(tilesLaid) > ceiling * kWins) return {static_cast<double>(wins) / (attempts + 1), kInfinite};
    }
    TileDifficulty difficulty;
    difficulty.winShare = static_cast<double>(wins) / attempts;
    difficulty.laidPerWin = wins ? static_cast<double>(tilesLaid) / wins : kInfinite;
    return difficulty;
}

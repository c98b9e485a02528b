// SPDX-License-Identifier: MIT
#include "difficulty_pairs.h"

#include "level_tools.h"
#include "neighbours.h"
#include "pair_board.h"
#include "solve_pairs.h"

#include <array>
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
constexpr int32_t kSide = PairBoard::kCotes;
constexpr int32_t kCells = kSide * kSide;

int32_t turnedForward(int32_t v) { return PairBoard::points(v) == 4 ? v - 3 : v + 1; }

struct NeighbourTable {
    std::array<std::array<int32_t, 4>, kCells> cell{};
    std::array<int32_t, kCells> count{};
    NeighbourTable()
    {
        for (int32_t c = 0; c < kCells; ++c) {
            const int32_t x = c % kSide, y = c / kSide;
            forEachNeighbour(kSide, kSide, x, y, [&](int32_t nx, int32_t ny) { cell[c][count[c]++] = ny * kSide + nx; });
        }
    }
};
const NeighbourTable kNeighbours;

// A board for fast random play: the tiles, and how many tiles hold each value.
class Play {
public:
    explicit Play(std::string_view record)
    {
        for (int32_t c = 0; c < kCells; ++c)
            if (record[c] != '0') put(c, static_cast<unsigned char>(record[c]));
    }

    bool empty() const { return tiles_.empty(); }

    // Removes a random pair as the random player chooses it; false when no pair is left.
    bool removeRandomPair(std::mt19937 &rng)
    {
        firsts_.clear();
        for (int32_t a : tiles_)
            if (partnersOf(a) > 0) firsts_.push_back(a);
        if (firsts_.empty()) return false;
        const int32_t a = firsts_[below(rng, static_cast<int32_t>(firsts_.size()))];
        partners_.clear();
        for (int32_t b : tiles_)
            if (b != a && (touching(a, b) ? turnedForward(value_[b]) : value_[b]) == value_[a]) partners_.push_back(b);
        const int32_t b = partners_[below(rng, static_cast<int32_t>(partners_.size()))];
        turnNeighbours(a);
        take(a);
        take(b);
        turnNeighbours(b);
        return true;
    }

private:
    std::array<int32_t, kCells> value_{};
    std::array<int32_t, 128> holding_{}; // tiles holding each value
    std::vector<int32_t> tiles_;
    std::vector<int32_t> firsts_, partners_;

    static bool touching(int32_t a, int32_t b)
    {
        const int32_t d = a > b ? a - b : b - a;
        return d == kSide || (d == 1 && a / kSide == b / kSide);
    }

    void put(int32_t c, int32_t v)
    {
        value_[c] = v;
        holding_[v] += 1;
        tiles_.push_back(c);
    }

    void take(int32_t c)
    {
        holding_[value_[c]] -= 1;
        value_[c] = 0;
        std::erase(tiles_, c);
    }

    void turnNeighbours(int32_t c)
    {
        for (int32_t i = 0; i < kNeighbours.count[c]; ++i) {
            const int32_t n = kNeighbours.cell[c][i];
            if (value_[n] == 0) continue;
            holding_[value_[n]] -= 1;
            value_[n] = turnedForward(value_[n]);
            holding_[value_[n]] += 1;
        }
    }

    // How many tiles match tile a once it is selected: its neighbours are compared turned.
    int32_t partnersOf(int32_t a) const
    {
        const int32_t v = value_[a];
        int32_t partners = holding_[v] - 1;
        for (int32_t i = 0; i < kNeighbours.count[a]; ++i) {
            const int32_t n = value_[kNeighbours.cell[a][i]];
            if (n == 0) continue;
            partners += (turnedForward(n) == v ? 1 : 0) - (n == v ? 1 : 0);
        }
        return partners;
    }
};

} // namespace

PairDifficulty measurePairDifficulty(std::string_view record, double ceiling)
{
    PairDifficulty difficulty;
    PairBoard board;
    board.LitNiveau3(record, 0);
    if (pairParity(board) % 2 != 0) {
        // No play at all empties this board.
        difficulty.pairsPerWin = kInfinite;
        return difficulty;
    }
    std::mt19937 rng(kSeed);
    int64_t pairs = 0;
    int32_t wins = 0, attempts = 0;
    for (; wins < kWins && attempts < kMostAttempts; ++attempts) {
        Play play(record);
        while (play.removeRandomPair(rng)) ++pairs;
        wins += play.empty() ? 1 : 0;
        // Whenever measuring ends, the figure is at least the pairs removed so far over kWins.
        if (static_cast<double>(pairs) > ceiling * kWins) return {static_cast<double>(wins) / (attempts + 1), kInfinite};
    }
    difficulty.winShare = static_cast<double>(wins) / attempts;
    difficulty.pairsPerWin = wins ? static_cast<double>(pairs) / wins : kInfinite;
    return difficulty;
}

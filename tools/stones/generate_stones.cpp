// SPDX-License-Identifier: MIT
// Writes the stones level store: 100 records of 72 bytes, "0" or "1", rows top to bottom.
// Each level is an empty board with random cells clicked, more of them as the levels go on;
// a few levels are fixed records. The generator is seeded, so every run writes the same bytes.
#include "check_stones.h"
#include "solve_stones.h"
#include "stone_board.h"

#include <algorithm>
#include <cstdint>
#include <iostream>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

constexpr int32_t kLevelCount = 100;
constexpr int32_t kCells = StoneBoard::kOctetsParNiveau;
constexpr uint32_t kSeed = 20240611;

// Bounds kept by the random levels, strictly inside those of the fixed ones.
constexpr size_t kFewestStones = 6;
constexpr size_t kMostStones = 51;
constexpr size_t kFewestClicks = 3;
constexpr size_t kMostClicks = 41;

// That many distinct cell codes, in random order.
std::vector<int32_t> randomCells(std::mt19937 &rng, size_t count)
{
    std::vector<int32_t> cells(kCells);
    for (int32_t c = 0; c < kCells; ++c) cells[static_cast<size_t>(c)] = c;
    for (size_t i = 0; i < count; ++i)
        std::swap(cells[i], cells[i + belowWithoutBias(rng, static_cast<uint32_t>(cells.size() - i))]);
    cells.resize(count);
    return cells;
}

std::string recordOf(const StoneBoard &board)
{
    std::string record;
    for (int32_t y = 0; y < StoneBoard::kLignes; ++y)
        for (int32_t x = 0; x < StoneBoard::kColonnes; ++x)
            record += board.tabPions2[x][y] != StoneBoard::kFaux ? '1' : '0';
    return record;
}

size_t stonesIn(std::string_view record)
{
    return static_cast<size_t>(std::count(record.begin(), record.end(), '1'));
}

// How many cells to click for level n: rising from 3 to about 37, give or take 3.
size_t clickCountFor(std::mt19937 &rng, int32_t n)
{
    const int32_t trend = 3 + (34 * n + kLevelCount / 2) / (kLevelCount - 1);
    const int32_t noise = static_cast<int32_t>(belowWithoutBias(rng, 7)) - 3;
    return static_cast<size_t>(std::max<int32_t>(static_cast<int32_t>(kFewestClicks), trend + noise));
}

// How many stones level n should hold: rising from 8 to about 46, give or take 3.
size_t stoneCountFor(std::mt19937 &rng, int32_t n)
{
    const int32_t trend = 8 + (38 * n + kLevelCount / 2) / (kLevelCount - 1);
    return static_cast<size_t>(trend + static_cast<int32_t>(belowWithoutBias(rng, 7)) - 3);
}

// One random board within the bounds and not yet used.
std::string acceptableLevel(std::mt19937 &rng, int32_t n, const std::set<std::string> &used)
{
    for (;;) {
        StoneBoard board;
        for (int32_t c : randomCells(rng, clickCountFor(rng, n)))
            board.Retourne2(c % StoneBoard::kColonnes, c / StoneBoard::kColonnes);
        const std::string record = recordOf(board);
        const size_t stones = stonesIn(record);
        const size_t clicks = solveStones(board)->size();
        if (stones >= kFewestStones && stones <= kMostStones && clicks >= kFewestClicks && clicks <= kMostClicks &&
            !used.contains(record))
            return record;
    }
}

// Of a few acceptable boards, the one whose stone count lies nearest the level's target.
std::string randomLevel(std::mt19937 &rng, int32_t n, const std::set<std::string> &used)
{
    constexpr int kCandidates = 24;
    const size_t target = stoneCountFor(rng, n);
    const auto distance = [target](const std::string &record) {
        const size_t stones = stonesIn(record);
        return stones > target ? stones - target : target - stones;
    };
    std::string best = acceptableLevel(rng, n, used);
    for (int i = 1; i < kCandidates; ++i) {
        std::string candidate = acceptableLevel(rng, n, used);
        if (distance(candidate) < distance(best)) best = std::move(candidate);
    }
    return best;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::cerr << "usage: generate_stones <output file>\n";
        return 2;
    }
    std::vector<std::string> levels(kLevelCount);
    std::set<std::string> used;
    for (const FixedLevel &fixed : kFixedStoneLevels) {
        levels[static_cast<size_t>(fixed.index)] = std::string(fixed.record);
        used.insert(std::string(fixed.record));
    }
    std::mt19937 rng(kSeed);
    for (int32_t n = 0; n < kLevelCount; ++n) {
        std::string &level = levels[static_cast<size_t>(n)];
        if (!level.empty()) continue;
        level = randomLevel(rng, n, used);
        used.insert(level);
    }

    if (!writeLevels(argv[1], levels)) {
        std::cerr << "cannot write " << argv[1] << '\n';
        return 1;
    }
    return 0;
}

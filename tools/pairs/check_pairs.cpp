// SPDX-License-Identifier: MIT
#include "check_pairs.h"

#include "difficulty_curve.h"
#include "difficulty_pairs.h"
#include "level_symmetry.h"
#include "solve_pairs.h"

#include <algorithm>
#include <chrono>
#include <iomanip>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr int32_t kSide = PairBoard::kCotes;
constexpr int32_t kLevelBytes = PairBoard::kOctetsParNiveau;
constexpr int32_t kLevels = 120;
constexpr int32_t kBlock = 20;
constexpr int32_t kFewestTiles = 8;
constexpr int32_t kMostTiles = 66;
constexpr std::string_view kAllowedBytes = "01234ABCDQRSTabcd";

struct OddParity {
    int32_t level;
    int32_t p;
};
constexpr std::array<OddParity, 2> kUnsolvable{{{18, 119}, {35, 59}}};

int32_t tilesIn(std::string_view record)
{
    return static_cast<int32_t>(std::count_if(record.begin(), record.end(), [](char b) { return b != '0'; }));
}

bool coloursEven(std::string_view record)
{
    std::array<int32_t, 4> count{};
    for (char b : record)
        if (b != '0') count[PairBoard::couleur(static_cast<unsigned char>(b))] += 1;
    return std::all_of(count.begin(), count.end(), [](int32_t n) { return n % 2 == 0; });
}

// True when the tiles fill the smallest rectangle holding them.
bool fullRectangle(std::string_view record)
{
    int32_t left = kSide, right = -1, top = kSide, bottom = -1;
    for (int32_t c = 0; c < kLevelBytes; ++c) {
        if (record[c] == '0') continue;
        left = std::min(left, c % kSide);
        right = std::max(right, c % kSide);
        top = std::min(top, c / kSide);
        bottom = std::max(bottom, c / kSide);
    }
    return tilesIn(record) == (right - left + 1) * (bottom - top + 1);
}

void row(std::ostream &out, std::string_view name, const std::string &value)
{
    out << "  " << std::left << std::setw(22) << name << value << '\n';
    out << std::right;
}

} // namespace

std::string namedInOrder(std::string cells)
{
    std::array<int32_t, 4> name{-1, -1, -1, -1}, turn{};
    int32_t named = 0;
    for (char &cell : cells) {
        if (cell == '0') continue;
        const int32_t value = static_cast<unsigned char>(cell);
        const int32_t colour = PairBoard::couleur(value), pips = PairBoard::points(value) - 1;
        if (name[colour] < 0) {
            name[colour] = named++;
            turn[colour] = pips;
        }
        cell = static_cast<char>(49 + 16 * name[colour] + (pips - turn[colour] + 4) % 4);
    }
    return cells;
}

StoreVerdict checkPairLevels(std::string_view store, std::ostream &out)
{
    Failures failures;
    auto record = [store](int32_t n) { return store.substr(static_cast<size_t>(n) * kLevelBytes, kLevelBytes); };

    const int32_t levels = static_cast<int32_t>(store.size() / kLevelBytes);
    out << "Jeu 3, tile pairs\n";
    row(out, "bytes", std::to_string(store.size()));
    row(out, "levels", std::to_string(levels));
    if (store.size() % kLevelBytes != 0 || levels != kLevels) {
        out << "FAILED: the store must hold " << kLevels << " levels of " << kLevelBytes << " bytes\n";
        return {};
    }
    const size_t badByte = store.find_first_not_of(kAllowedBytes);
    if (badByte != std::string_view::npos) {
        out << "FAILED: byte " << badByte << " of level " << badByte / kLevelBytes << " is not a tile or '0'\n";
        return {};
    }
    expectFixedLevels(store, kLevelBytes, kFixedPairLevels, failures);

    std::vector<int32_t> tiles(kLevels);
    for (int32_t n = 0; n < kLevels; ++n) tiles[n] = tilesIn(record(n));
    const int32_t fewest = *std::min_element(tiles.begin(), tiles.end());
    const int32_t most = *std::max_element(tiles.begin(), tiles.end());
    std::vector<int32_t> fewestAt, mostAt;
    for (int32_t n = 0; n < kLevels; ++n) {
        if (tiles[n] == fewest) fewestAt.push_back(n);
        if (tiles[n] == most) mostAt.push_back(n);
    }
    row(out, "tiles, fewest", std::to_string(fewest) + " (" + levelList(fewestAt) + ")");
    row(out, "tiles, most", std::to_string(most) + " (" + levelList(mostAt) + ")");
    failures.expect(fewest == kFewestTiles && fewestAt == std::vector<int32_t>{4},
                    "level 4 alone must have the fewest tiles, " + std::to_string(kFewestTiles));
    failures.expect(most == kMostTiles && mostAt == std::vector<int32_t>{95},
                    "level 95 alone must have the most tiles, " + std::to_string(kMostTiles));

    int32_t evenColours = 0;
    for (int32_t n = 0; n < kLevels; ++n) {
        const bool even = coloursEven(record(n));
        evenColours += even ? 1 : 0;
        failures.expect(even, "level " + std::to_string(n) + " has an odd number of tiles of some colour");
    }
    row(out, "colours even", std::to_string(evenColours) + " of " + std::to_string(kLevels));
    const size_t kindsUsed = std::count_if(kAllowedBytes.begin() + 1, kAllowedBytes.end(),
                                           [store](char kind) { return store.find(kind) != std::string_view::npos; });
    row(out, "kinds of tile used", std::to_string(kindsUsed) + " of 16");
    failures.expect(kindsUsed == 16, "some colour or pip count never appears");

    std::string oddText;
    int32_t solved = 0;
    const auto start = std::chrono::steady_clock::now();
    for (int32_t n = 0; n < kLevels; ++n) {
        PairBoard board;
        board.LitNiveau3(store, n);
        const int32_t p = pairParity(board);
        const auto expected = std::find_if(kUnsolvable.begin(), kUnsolvable.end(),
                                           [n](const OddParity &odd) { return odd.level == n; });
        if (p % 2 != 0) oddText += (oddText.empty() ? "" : ", ") + std::to_string(n) + " (P=" + std::to_string(p) + ")";
        if (expected != kUnsolvable.end()) {
            failures.expect(p == expected->p, "level " + std::to_string(n) + " has P=" + std::to_string(p) + ", not " +
                                                  std::to_string(expected->p));
            failures.expect(!solvePairs(board), "level " + std::to_string(n) + " has a solution");
            continue;
        }
        failures.expect(p % 2 == 0, "level " + std::to_string(n) + " has an odd P and so no solution");
        const auto moves = solvePairs(board);
        const bool emptied = moves && playsToEmpty(board, *moves);
        solved += emptied ? 1 : 0;
        failures.expect(emptied, "level " + std::to_string(n) + ": no solution found");
    }
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    row(out, "odd P", oddText.empty() ? "none" : oddText);
    row(out, "solved", std::to_string(solved) + " of " + std::to_string(kLevels - kUnsolvable.size()));

    std::ostringstream means;
    means << std::fixed << std::setprecision(1);
    double previous = -1.0;
    for (int32_t block = 0; block < kLevels / kBlock; ++block) {
        double sum = 0;
        for (int32_t n = block * kBlock; n < (block + 1) * kBlock; ++n) sum += tiles[n];
        const double mean = sum / kBlock;
        means << (block == 0 ? "" : " ") << mean;
        failures.expect(mean > previous, "the levels " + std::to_string(block * kBlock) + " to " +
                                             std::to_string((block + 1) * kBlock - 1) +
                                             " do not have more tiles on average than the block before");
        previous = mean;
    }
    row(out, "mean tiles per 20", means.str());

    int32_t notRectangles = 0;
    for (int32_t n = 0; n < kLevels; ++n) notRectangles += fullRectangle(record(n)) ? 0 : 1;
    const auto repeats = repeatedLevels(store, kPairLayout);
    row(out, "distinct levels", std::to_string(kLevels - static_cast<int32_t>(repeats.size())));
    row(out, "not full rectangles", std::to_string(notRectangles));
    for (const auto &[later, earlier] : repeats)
        failures.expect(false, "level " + std::to_string(later) + " repeats level " + std::to_string(earlier) +
                                   ", moved, mirrored, turned or recoloured");
    failures.expect(notRectangles * 2 >= kLevels, "fewer than half of the levels are other than full rectangles");

    std::ostringstream time;
    time << std::fixed << std::setprecision(3) << seconds << " s";
    row(out, "solver time", time.str());

    std::vector<double> difficulty;
    for (int32_t n = 0; n < kLevels; ++n)
        difficulty.push_back(rememberedDifficulty(record(n), [](std::string_view r) { return measurePairDifficulty(r).pairsPerWin; }));
    judgeDifficulty(difficulty, kFixedPairLevels, "pairs a random player removes per win", out, failures);

    failures.print(out);
    return {failures.none(), difficulty};
}

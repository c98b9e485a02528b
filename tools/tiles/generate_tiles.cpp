// Writes the store of pip tile levels: generate_tiles <output file>.
// Each level is a shape and a random order of placement, recorded as the values
// the placements leave, so every level has a solution. The fixed records keep
// their places, and the others are drawn so that a set share of the store needs
// the fall from 5 to 1. The seed is fixed: the same bytes come out on every run.

#include "check_tiles.h"
#include "solve_tiles.h"
#include "tile_board.h"

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

constexpr uint32_t kSeed = 20240611;
constexpr int32_t kLevelCount = 100;
constexpr int32_t kLevelsNeedingFall = 53;
constexpr int32_t kFewestCells = 5;
constexpr int32_t kMostDrawnCells = 36; // 37 is kept for one fixed level
constexpr int32_t kSizeJitter = 4;
constexpr int32_t kAttemptsPerLevel = 20000;
constexpr int32_t kCells = TileBoard::kOctetsParNiveau;

// A number from 0 to n - 1, mapped from the generator's raw output so that it does
// not depend on the standard library's distributions.
int32_t below(std::mt19937 &rng, int32_t n)
{
    return static_cast<int32_t>((static_cast<uint64_t>(rng()) * static_cast<uint64_t>(n)) >> 32);
}

template <typename T>
void shuffle(std::vector<T> &items, std::mt19937 &rng)
{
    for (int32_t i = static_cast<int32_t>(items.size()) - 1; i > 0; --i)
        std::swap(items[i], items[below(rng, i + 1)]);
}

// How many cells level n gets: growing along the store, with some jitter.
int32_t cellsForLevel(int32_t n, std::mt19937 &rng)
{
    const int32_t trend = kFewestCells + (kMostDrawnCells - kFewestCells) * n / (kLevelCount - 1);
    const int32_t size = trend + below(rng, 2 * kSizeJitter + 1) - kSizeJitter;
    return std::clamp(size, kFewestCells, kMostDrawnCells);
}

// A rectangle of that many cells if one fits and the draw asks for it, otherwise a
// connected shape grown from one cell. Gives the cell codes.
std::vector<int32_t> drawShape(int32_t size, std::mt19937 &rng)
{
    std::vector<bool> inShape(kCells, false);
    std::vector<int32_t> cells;
    if (below(rng, 6) == 0) {
        for (int32_t h = TileBoard::kLignes; h >= 1; --h) {
            const int32_t w = size / h;
            if (size % h != 0 || w > TileBoard::kColonnes) continue;
            const int32_t left = below(rng, TileBoard::kColonnes - w + 1);
            const int32_t top = below(rng, TileBoard::kLignes - h + 1);
            for (int32_t y = top; y < top + h; ++y)
                for (int32_t x = left; x < left + w; ++x) cells.push_back(y * TileBoard::kColonnes + x);
            return cells;
        }
    }
    const int32_t start = below(rng, kCells);
    inShape[start] = true;
    cells.push_back(start);
    while (static_cast<int32_t>(cells.size()) < size) {
        const int32_t from = cells[below(rng, static_cast<int32_t>(cells.size()))];
        int32_t x = from % TileBoard::kColonnes, y = from / TileBoard::kColonnes;
        switch (below(rng, 4)) {
        case 0: --x; break;
        case 1: ++x; break;
        case 2: --y; break;
        default: ++y; break;
        }
        if (x < 0 || x >= TileBoard::kColonnes || y < 0 || y >= TileBoard::kLignes) continue;
        const int32_t code = y * TileBoard::kColonnes + x;
        if (inShape[code]) continue;
        inShape[code] = true;
        cells.push_back(code);
    }
    return cells;
}

// Places the cells in the given order on the real board and reads the record they leave.
std::string recordPlacements(const std::vector<int32_t> &order)
{
    std::string shape(kCells, '0');
    for (int32_t code : order) shape[code] = '1';
    TileBoard board;
    board.LitNiveau1(shape, 0);
    for (int32_t code : order) board.Pose1(code % TileBoard::kColonnes, code / TileBoard::kColonnes);
    std::string record(kCells, '0');
    for (int32_t code : order)
        record[code] = static_cast<char>('0' + board.tabJeu1[code % TileBoard::kColonnes][code / TileBoard::kColonnes]);
    return record;
}

bool needsFall(const std::string &record)
{
    TileBoard board;
    board.LitNiveau1(record, 0);
    return !solveTiles(board, false).has_value();
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::cerr << "usage: generate_tiles <output file>\n";
        return 2;
    }
    std::mt19937 rng(kSeed);
    std::vector<std::string> levels(kLevelCount);
    std::set<std::string> taken;
    int32_t fixedNeedingFall = 0;
    for (const FixedTileLevel &fixed : kFixedTileLevels) {
        levels[fixed.index] = std::string(fixed.record);
        taken.insert(levels[fixed.index]);
        fixedNeedingFall += needsFall(levels[fixed.index]) ? 1 : 0;
    }

    std::vector<int32_t> open;
    for (int32_t n = 0; n < kLevelCount; ++n)
        if (levels[n].empty()) open.push_back(n);
    std::vector<int32_t> drawOrder = open;
    shuffle(drawOrder, rng);
    std::vector<bool> wantsFall(kLevelCount, false);
    for (int32_t i = 0; i < kLevelsNeedingFall - fixedNeedingFall; ++i) wantsFall[drawOrder[i]] = true;

    for (int32_t n : open) {
        const int32_t size = cellsForLevel(n, rng);
        for (int32_t attempt = 0; levels[n].empty(); ++attempt) {
            if (attempt == kAttemptsPerLevel) {
                std::cerr << "generate_tiles: no level " << n << " of " << size << " cells found\n";
                return 1;
            }
            std::vector<int32_t> order = drawShape(size, rng);
            shuffle(order, rng);
            const std::string record = recordPlacements(order);
            if (taken.count(record) == 0 && needsFall(record) == wantsFall[n]) levels[n] = record;
        }
        taken.insert(levels[n]);
    }

    std::ofstream file(argv[1], std::ios::binary | std::ios::trunc);
    for (const std::string &level : levels) file << level;
    file.close();
    if (!file) {
        std::cerr << "generate_tiles: cannot write " << argv[1] << '\n';
        return 1;
    }
    return 0;
}

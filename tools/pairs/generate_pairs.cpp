// SPDX-License-Identifier: MIT
// Writes the tile pairs level store: 120 levels of 81 bytes, the fixed records in their places and
// the others built backwards from an empty board, so each has a solution. For each other place a
// level is drawn until its difficulty lies near a curve rising from the first place to the last; the
// levels drawn are then put in order of difficulty. The seed is fixed: the same bytes come out on
// every run.
#include "check_pairs.h"
#include "difficulty_curve.h"
#include "difficulty_pairs.h"
#include "neighbours.h"
#include "pair_board.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iostream>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr int32_t kSide = PairBoard::kCotes;
constexpr int32_t kCells = kSide * kSide;
constexpr int32_t kLevels = 120;
constexpr uint32_t kSeed = 3103;
constexpr int32_t kDrawsPerLevel = 100000;

// The difficulty aimed at, in pairs removed per win.
constexpr DifficultyAim kAim{6, 1200, 1.2};

using Shape = std::vector<int32_t>; // cell codes of the tiles of a level

std::vector<int32_t> neighboursOf(int32_t c)
{
    std::vector<int32_t> list;
    forEachNeighbour(kSide, kSide, c % kSide, c / kSide,
                     [&list](int32_t nx, int32_t ny) { list.push_back(ny * kSide + nx); });
    return list;
}

int32_t mirrored(int32_t c)
{
    return (c / kSide) * kSide + (kSide - 1 - c % kSide);
}

// An empty cell next to the taken ones, chosen with more weight where more taken cells touch it,
// so the shape stays compact; -1 when there is none.
int32_t nextCell(std::mt19937 &rng, const std::array<bool, kCells> &taken)
{
    std::vector<int32_t> cells;
    std::vector<int32_t> weights;
    int32_t total = 0;
    for (int32_t c = 0; c < kCells; ++c) {
        if (taken[c]) continue;
        int32_t touching = 0;
        for (int32_t n : neighboursOf(c)) touching += taken[n];
        if (touching == 0) continue;
        cells.push_back(c);
        weights.push_back(touching * touching);
        total += touching * touching;
    }
    if (cells.empty()) return -1;
    int32_t pick = below(rng, total);
    for (size_t i = 0; i < cells.size(); ++i) {
        if (pick < weights[i]) return cells[i];
        pick -= weights[i];
    }
    return cells.back();
}

Shape cellsTaken(const std::array<bool, kCells> &taken)
{
    Shape shape;
    for (int32_t c = 0; c < kCells; ++c)
        if (taken[c]) shape.push_back(c);
    return shape;
}

int32_t cellNearCentre(std::mt19937 &rng)
{
    return (2 + below(rng, 5)) * kSide + 2 + below(rng, 5);
}

// One or more blobs grown from random seeds until `tiles` cells are taken.
Shape grownBlobs(std::mt19937 &rng, int32_t tiles, int32_t blobs)
{
    std::array<bool, kCells> taken{};
    for (int32_t b = 0; b < blobs; ++b) taken[b == 0 ? cellNearCentre(rng) : below(rng, kCells)] = true;
    for (int32_t n = static_cast<int32_t>(cellsTaken(taken).size()); n < tiles; ++n) taken[nextCell(rng, taken)] = true;
    return cellsTaken(taken);
}

// A blob that is the same on both sides of the middle column, but for its last cell at most.
Shape mirroredBlob(std::mt19937 &rng, int32_t tiles)
{
    std::array<bool, kCells> taken{};
    taken[(1 + below(rng, 7)) * kSide + kSide / 2] = true;
    int32_t count = 1;
    while (count < tiles) {
        const int32_t c = nextCell(rng, taken);
        const int32_t m = count + 2 > tiles ? c : mirrored(c);
        taken[c] = true;
        taken[m] = true;
        count += m == c ? 1 : 2;
    }
    return cellsTaken(taken);
}

// The smallest rectangle of a random width that holds `tiles` cells, with the cells too many
// bitten off its border.
Shape bittenRectangle(std::mt19937 &rng, int32_t tiles)
{
    int32_t width = 0;
    int32_t height = 0;
    do {
        width = 2 + below(rng, kSide - 1);
        height = (tiles + width - 1) / width;
    } while (height > kSide);
    const int32_t left = below(rng, kSide - width + 1);
    const int32_t top = below(rng, kSide - height + 1);
    std::array<bool, kCells> taken{};
    for (int32_t y = top; y < top + height; ++y)
        for (int32_t x = left; x < left + width; ++x) taken[y * kSide + x] = true;
    for (int32_t extra = width * height - tiles; extra > 0;) {
        const int32_t x = left + below(rng, width);
        const int32_t y = top + below(rng, height);
        const bool border = x == left || x == left + width - 1 || y == top || y == top + height - 1;
        if (border && taken[y * kSide + x]) {
            taken[y * kSide + x] = false;
            --extra;
        }
    }
    return cellsTaken(taken);
}

Shape shapeFor(std::mt19937 &rng, int32_t tiles)
{
    switch (below(rng, 5)) {
    case 0: return bittenRectangle(rng, tiles);
    case 1: return mirroredBlob(rng, tiles);
    case 2: return grownBlobs(rng, tiles, 2 + below(rng, 2));
    default: return grownBlobs(rng, tiles, 1);
    }
}

// Fills the shape with pairs of at most `colourCount` colours by running the take-back of the model
// from an empty board: the pairs, played in order, empty the level again.
std::string filledLevel(std::mt19937 &rng, Shape cells, int32_t colourCount)
{
    std::array<int32_t, 4> colours{0, 1, 2, 3};
    for (int32_t i = 3; i > 0; --i) std::swap(colours[i], colours[below(rng, i + 1)]);

    PairBoard board;
    while (!cells.empty()) {
        const int32_t a = cells[below(rng, static_cast<int32_t>(cells.size()))];
        cells.erase(std::find(cells.begin(), cells.end(), a));
        std::vector<int32_t> touching;
        for (int32_t n : neighboursOf(a))
            if (std::find(cells.begin(), cells.end(), n) != cells.end()) touching.push_back(n);
        const int32_t b = !touching.empty() && below(rng, 3) == 0
                              ? touching[below(rng, static_cast<int32_t>(touching.size()))]
                              : cells[below(rng, static_cast<int32_t>(cells.size()))];
        cells.erase(std::find(cells.begin(), cells.end(), b));
        board.iCoup3 += 1;
        board.tabCoupA3[board.iCoup3] = a;
        board.tabCoupB3[board.iCoup3] = b;
        board.tabCoupV3[board.iCoup3] = 48 + 16 * colours[below(rng, colourCount)] + 1 + below(rng, 4);
    }
    while (board.iCoup3 >= 0) board.Annule3();

    std::string record(kCells, '0');
    for (int32_t c = 0; c < kCells; ++c)
        if (board.tabPions3[c % kSide][c / kSide] != 0)
            record[c] = static_cast<char>(board.tabPions3[c % kSide][c / kSide]);
    return record;
}

// Tiles of a level with no fixed record: a slope from 10 to 64 with some noise, always even,
// never the 8 of the smallest fixed level nor the 66 of the largest.
int32_t tilesFor(std::mt19937 &rng, int32_t level)
{
    const int32_t slope = 10 + 54 * level / (kLevels - 1);
    const int32_t tiles = std::clamp(slope - 6 + below(rng, 13), 10, 64);
    return tiles - tiles % 2;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::cerr << "usage: generate_pairs <output file>\n";
        return 2;
    }
    std::mt19937 rng(kSeed);
    std::vector<std::string> levels(kLevels);
    for (const FixedLevel &fixed : kFixedPairLevels) levels[fixed.index] = std::string(fixed.record);
    const auto draw = [&rng](int32_t level) {
        const Shape shape = shapeFor(rng, tilesFor(rng, level));
        const int32_t colours = 1 + below(rng, 4);
        return filledLevel(rng, shape, colours);
    };
    const auto measure = [](std::string_view record, double ceiling) {
        return measurePairDifficulty(record, ceiling).pairsPerWin;
    };
    if (!fillAlongCurve(levels, kPairLayout, kAim, draw, measure, kDrawsPerLevel)) {
        std::cerr << "generate_pairs: a place found no level\n";
        return 1;
    }
    if (!writeLevels(argv[1], levels)) {
        std::cerr << "generate_pairs: cannot write " << argv[1] << '\n';
        return 1;
    }
    return 0;
}

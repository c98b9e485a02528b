// SPDX-License-Identifier: MIT
// Writes the store of pip tile levels: generate_tiles <output file>.
// Each level is a shape and an order of placement, recorded as the values the placements leave, so
// every level has a solution. The fixed records keep their places. For each other place a level is
// drawn until its difficulty lies near a curve rising from the first place to the last, with a set
// share of the store needing the fall from 5 to 1; the levels drawn are then put in order of
// difficulty. The seed is fixed: the same bytes come out on every run.

#include "check_tiles.h"
#include "difficulty_curve.h"
#include "difficulty_tiles.h"
#include "solve_tiles.h"
#include "tile_board.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iostream>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr uint32_t kSeed = 20240611;
constexpr int32_t kLevelCount = 100;
constexpr int32_t kLevelsNeedingFall = 53;
constexpr int32_t kFewestDrawnCells = 6;
constexpr int32_t kMostDrawnCells = 36; // 37 is kept for one fixed level
constexpr int32_t kDrawsPerLevel = 400000;
constexpr int32_t kW = TileBoard::kColonnes, kH = TileBoard::kLignes, kCells = kW * kH;

// The difficulty aimed at, in tiles laid per win.
constexpr DifficultyAim kAim{6, 500, 1.2};

// How many cells level n gets: growing along the store, but never more than a level completed at the
// first attempt would have at the aimed difficulty, give or take a few.
int32_t cellsForLevel(int32_t n, std::mt19937 &rng)
{
    const double trend = kFewestDrawnCells + (kMostDrawnCells - kFewestDrawnCells) * n / (kLevelCount - 1.0);
    const int32_t centre = static_cast<int32_t>(std::lround(std::min(trend, kAim.at(n, kLevelCount))));
    const int32_t jitter = 1 + centre / 8;
    return std::clamp(centre + below(rng, 2 * jitter + 1) - jitter, kFewestDrawnCells, kMostDrawnCells);
}

std::vector<int32_t> neighboursIn(const std::vector<bool> &inShape, int32_t code)
{
    std::vector<int32_t> list;
    const int32_t x = code % kW, y = code / kW;
    for (const auto &[nx, ny] : {std::pair{x - 1, y}, {x + 1, y}, {x, y - 1}, {x, y + 1}})
        if (nx >= 0 && nx < kW && ny >= 0 && ny < kH && inShape[ny * kW + nx]) list.push_back(ny * kW + nx);
    return list;
}

// The cells moved so that their bounding box stands in the middle of the board.
std::vector<int32_t> centred(std::vector<int32_t> cells)
{
    int32_t left = kW, right = 0, top = kH, bottom = 0;
    for (int32_t code : cells) {
        left = std::min(left, code % kW);
        right = std::max(right, code % kW);
        top = std::min(top, code / kW);
        bottom = std::max(bottom, code / kW);
    }
    const int32_t shift = (kW - (right - left + 1)) / 2 - left + ((kH - (bottom - top + 1)) / 2 - top) * kW;
    for (int32_t &code : cells) code += shift;
    return cells;
}

// A connected shape of that many cells as cell codes, in the middle of the board: a rectangle when
// one fits and the draw asks for it, otherwise grown a cell at a time from one cell, or from a cross
// so that its middle cell has four neighbours.
std::vector<int32_t> drawShape(int32_t size, std::mt19937 &rng)
{
    std::vector<int32_t> cells;
    const int32_t style = below(rng, 6);
    if (style == 0) {
        for (int32_t h = kH; h >= 1; --h) {
            const int32_t w = size / h;
            if (size % h != 0 || w > kW) continue;
            for (int32_t y = 0; y < h; ++y)
                for (int32_t x = 0; x < w; ++x) cells.push_back(y * kW + x);
            return centred(cells);
        }
    }
    std::vector<bool> inShape(kCells, false);
    if (style == 1 && size >= 5) {
        const int32_t middle = (1 + below(rng, kH - 2)) * kW + 1 + below(rng, kW - 2);
        for (int32_t code : {middle, middle - 1, middle + 1, middle - kW, middle + kW}) inShape[code] = true;
        cells = {middle, middle - 1, middle + 1, middle - kW, middle + kW};
    } else {
        cells.push_back(below(rng, kCells));
        inShape[cells[0]] = true;
    }
    while (static_cast<int32_t>(cells.size()) < size) {
        const int32_t from = cells[below(rng, static_cast<int32_t>(cells.size()))];
        int32_t x = from % kW, y = from / kW;
        switch (below(rng, 4)) {
        case 0: --x; break;
        case 1: ++x; break;
        case 2: --y; break;
        default: ++y; break;
        }
        if (x < 0 || x >= kW || y < 0 || y >= kH || inShape[y * kW + x]) continue;
        inShape[y * kW + x] = true;
        cells.push_back(y * kW + x);
    }
    return centred(cells);
}

// An order of placement in which every cell but the first comes after one of its neighbours, the
// first having fewer than four: no tile then ever reaches 5 pips, and the level never needs the fall.
// Empty when every cell of the shape has four neighbours, which a shape on this board cannot.
std::vector<int32_t> grownOrder(const std::vector<int32_t> &shape, std::mt19937 &rng)
{
    std::vector<bool> inShape(kCells, false), placed(kCells, false);
    for (int32_t code : shape) inShape[code] = true;
    std::vector<int32_t> starts;
    for (int32_t code : shape)
        if (neighboursIn(inShape, code).size() < 4) starts.push_back(code);
    std::vector<int32_t> order{starts[below(rng, static_cast<int32_t>(starts.size()))]};
    placed[order[0]] = true;
    while (order.size() < shape.size()) {
        std::vector<int32_t> next;
        for (int32_t code : shape)
            if (!placed[code]) {
                const auto around = neighboursIn(inShape, code);
                if (std::any_of(around.begin(), around.end(), [&placed](int32_t k) { return placed[k]; }))
                    next.push_back(code);
            }
        order.push_back(next[below(rng, static_cast<int32_t>(next.size()))]);
        placed[order.back()] = true;
    }
    return order;
}

// Places the cells in the given order on the real board and reads the record they leave.
std::string recordPlacements(const std::vector<int32_t> &order)
{
    std::string shape(kCells, '0');
    for (int32_t code : order) shape[code] = '1';
    TileBoard board;
    board.LitNiveau1(shape, 0);
    for (int32_t code : order) board.Pose1(code % kW, code / kW);
    std::string record(kCells, '0');
    for (int32_t code : order) record[code] = static_cast<char>('0' + board.tabJeu1[code % kW][code / kW]);
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
    int32_t fixedNeedingFall = 0;
    for (const FixedLevel &fixed : kFixedTileLevels) {
        levels[fixed.index] = std::string(fixed.record);
        fixedNeedingFall += needsFall(levels[fixed.index]) ? 1 : 0;
    }

    std::vector<int32_t> open;
    for (int32_t n = 0; n < kLevelCount; ++n)
        if (levels[n].empty()) open.push_back(n);
    std::vector<int32_t> drawOrder = open;
    shuffle(drawOrder, rng);
    std::vector<bool> wantsFall(kLevelCount, false);
    for (int32_t i = 0; i < kLevelsNeedingFall - fixedNeedingFall; ++i) wantsFall[drawOrder[i]] = true;

    const auto draw = [&rng, &wantsFall](int32_t n) {
        std::vector<int32_t> order = drawShape(cellsForLevel(n, rng), rng);
        if (wantsFall[n]) shuffle(order, rng);
        else order = grownOrder(order, rng);
        const std::string record = recordPlacements(order);
        return wantsFall[n] && !needsFall(record) ? std::string() : record;
    };
    const auto measure = [](std::string_view record, double ceiling) {
        return measureTileDifficulty(record, ceiling).laidPerWin;
    };
    if (!fillAlongCurve(levels, kTileLayout, kAim, draw, measure, kDrawsPerLevel)) {
        std::cerr << "generate_tiles: a place found no level\n";
        return 1;
    }
    if (!writeLevels(argv[1], levels)) {
        std::cerr << "generate_tiles: cannot write " << argv[1] << '\n';
        return 1;
    }
    return 0;
}

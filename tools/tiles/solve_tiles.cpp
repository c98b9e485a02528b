// SPDX-License-Identifier: MIT
#include "solve_tiles.h"

#include "neighbours.h"

#include <algorithm>

// A placed tile shows 1 plus the number of its neighbours placed after it, with
// 5 falling to 1. So every cell has a demand: how many of its neighbours must come
// after it. Targets 2 to 4 fix it; a target of 1 allows 0, or 4 when the fall is
// in play and the cell has four neighbours.
//
// The order is built backwards, last placement first. A cell can take the next
// place back when exactly its demand of neighbours is already taken; once more
// are taken it can never be placed. Two such ready cells side by side therefore
// mean a dead end, and when the ready cells stand apart, taking any one of them
// leaves the others ready, so the choice among them does not matter. With the
// demands fixed, a greedy pass decides the level. Only the cells of target 1 with
// four neighbours leave a choice (0 or 4), and those are tried in every mix whose
// demands add up to the number of edges, since each edge counts once, for the
// cell placed first.

namespace {

struct Cell {
    int32_t code = 0;
    int32_t demand = 0;
    bool flexible = false;
    std::vector<int32_t> neighbours; // indices into the cell list
};

std::vector<Cell> readCells(const TileBoard &level, bool withFall)
{
    std::vector<Cell> cells;
    int32_t indexAt[TileBoard::kColonnes][TileBoard::kLignes];
    for (int32_t y = 0; y < TileBoard::kLignes; ++y) {
        for (int32_t x = 0; x < TileBoard::kColonnes; ++x) {
            indexAt[x][y] = -1;
            if (level.tabCible1[x][y] > 0) {
                indexAt[x][y] = static_cast<int32_t>(cells.size());
                cells.push_back({y * TileBoard::kColonnes + x, level.tabCible1[x][y] - 1, false, {}});
            }
        }
    }
    for (Cell &cell : cells) {
        const int32_t x = cell.code % TileBoard::kColonnes;
        const int32_t y = cell.code / TileBoard::kColonnes;
        forEachNeighbour(TileBoard::kColonnes, TileBoard::kLignes, x, y, [&](int32_t nx, int32_t ny) {
            if (indexAt[nx][ny] >= 0) cell.neighbours.push_back(indexAt[nx][ny]);
        });
        cell.flexible = withFall && cell.demand == 0 && cell.neighbours.size() == 4;
    }
    return cells;
}

// Builds the order backwards with the demands fixed; empty when there is none.
std::optional<std::vector<int32_t>> orderForDemands(const std::vector<Cell> &cells, const std::vector<int32_t> &demand)
{
    const size_t n = cells.size();
    std::vector<int32_t> taken(n, 0); // neighbours already given a later place
    std::vector<bool> placed(n, false);
    std::vector<int32_t> order;
    order.reserve(n);
    for (size_t step = 0; step < n; ++step) {
        size_t next = 0;
        while (next < n && (placed[next] || taken[next] != demand[next])) ++next;
        if (next == n) return std::nullopt;
        placed[next] = true;
        order.push_back(cells[next].code);
        for (int32_t k : cells[next].neighbours) {
            if (placed[k]) continue;
            taken[k] += 1;
            if (taken[k] > demand[k]) return std::nullopt;
        }
    }
    std::reverse(order.begin(), order.end());
    return order;
}

struct FlexibleSearch {
    const std::vector<Cell> &cells;
    std::vector<int32_t> flexible; // indices of the cells whose demand may be 0 or 4
    std::vector<int32_t> demand;

    // Gives `fours` more of the flexible cells from position `from` on a demand of 4.
    std::optional<std::vector<int32_t>> search(size_t from, int32_t fours)
    {
        if (fours == 0) return orderForDemands(cells, demand);
        if (flexible.size() - from < static_cast<size_t>(fours)) return std::nullopt;
        const int32_t c = flexible[from];
        // A cell placed before all of its neighbours cannot have a neighbour that does the same.
        const bool besideFour = std::any_of(cells[c].neighbours.begin(), cells[c].neighbours.end(),
                                            [this](int32_t k) { return demand[k] == 4; });
        if (!besideFour) {
            demand[c] = 4;
            auto order = search(from + 1, fours - 1);
            demand[c] = 0;
            if (order) return order;
        }
        return search(from + 1, fours);
    }
};

} // namespace

std::optional<std::vector<int32_t>> solveTiles(const TileBoard &level, bool withFall)
{
    const std::vector<Cell> cells = readCells(level, withFall);
    int32_t edges = 0;
    int32_t fixedDemand = 0;
    FlexibleSearch flex{cells, {}, {}};
    for (size_t i = 0; i < cells.size(); ++i) {
        const Cell &cell = cells[i];
        if (cell.demand > static_cast<int32_t>(cell.neighbours.size())) return std::nullopt;
        edges += static_cast<int32_t>(cell.neighbours.size());
        fixedDemand += cell.demand;
        flex.demand.push_back(cell.demand);
        if (cell.flexible) flex.flexible.push_back(static_cast<int32_t>(i));
    }
    edges /= 2;
    const int32_t missing = edges - fixedDemand;
    if (missing < 0 || missing % 4 != 0) return std::nullopt;
    return flex.search(0, missing / 4);
}

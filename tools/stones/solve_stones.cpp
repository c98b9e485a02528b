// SPDX-License-Identifier: MIT
#include "solve_stones.h"

#include "neighbours.h"

#include <bitset>
#include <utility>

namespace {

constexpr int kCells = StoneBoard::kOctetsParNiveau;
constexpr int kColumns = StoneBoard::kColonnes;
constexpr int kRows = StoneBoard::kLignes;

using CellSet = std::bitset<kCells>;
// One equation per cell: the clicks that flip it, and in the last bit whether it holds a stone.
using Equation = std::bitset<kCells + 1>;

// The cells flipped by a click on cell code c.
CellSet cellsFlippedBy(int c)
{
    CellSet cells;
    cells.set(c);
    forEachNeighbour(kColumns, kRows, c % kColumns, c / kColumns,
                     [&cells](int32_t nx, int32_t ny) { cells.set(ny * kColumns + nx); });
    return cells;
}

// The system brought to reduced row echelon form: row r has its leading one in pivotColumn[r].
struct ReducedSystem {
    std::vector<Equation> rows;
    std::vector<int> pivotColumn;
    bool consistent = true;
};

ReducedSystem reduce(const CellSet &stones)
{
    ReducedSystem system;
    system.rows.resize(kCells);
    for (int c = 0; c < kCells; ++c) {
        const CellSet flipped = cellsFlippedBy(c);
        for (int cell = 0; cell < kCells; ++cell)
            if (flipped[cell]) system.rows[cell].set(c);
    }
    for (int cell = 0; cell < kCells; ++cell)
        system.rows[cell][kCells] = stones[cell];

    size_t rank = 0;
    for (int column = 0; column < kCells && rank < system.rows.size(); ++column) {
        size_t pivot = rank;
        while (pivot < system.rows.size() && !system.rows[pivot][column]) ++pivot;
        if (pivot == system.rows.size()) continue;
        std::swap(system.rows[rank], system.rows[pivot]);
        for (size_t r = 0; r < system.rows.size(); ++r)
            if (r != rank && system.rows[r][column]) system.rows[r] ^= system.rows[rank];
        system.pivotColumn.push_back(column);
        ++rank;
    }
    for (size_t r = rank; r < system.rows.size(); ++r)
        if (system.rows[r][kCells]) system.consistent = false;
    return system;
}

std::vector<int> freeColumns(const ReducedSystem &system)
{
    std::vector<bool> isPivot(kCells, false);
    for (int column : system.pivotColumn) isPivot[column] = true;
    std::vector<int> result;
    for (int column = 0; column < kCells; ++column)
        if (!isPivot[column]) result.push_back(column);
    return result;
}

std::vector<CellSet> kernelBasis(const ReducedSystem &system)
{
    std::vector<CellSet> basis;
    for (int free : freeColumns(system)) {
        CellSet clicks;
        clicks.set(free);
        for (size_t r = 0; r < system.pivotColumn.size(); ++r)
            if (system.rows[r][free]) clicks.set(system.pivotColumn[r]);
        basis.push_back(clicks);
    }
    return basis;
}

std::vector<int32_t> cellCodes(const CellSet &cells)
{
    std::vector<int32_t> codes;
    for (int c = 0; c < kCells; ++c)
        if (cells[c]) codes.push_back(c);
    return codes;
}

} // namespace

std::vector<std::vector<int32_t>> stoneClickKernel()
{
    std::vector<std::vector<int32_t>> result;
    for (const CellSet &clicks : kernelBasis(reduce(CellSet{})))
        result.push_back(cellCodes(clicks));
    return result;
}

std::optional<std::vector<int32_t>> solveStones(const StoneBoard &level)
{
    CellSet stones;
    for (int y = 0; y < kRows; ++y)
        for (int x = 0; x < kColumns; ++x)
            if (level.tabPions2[x][y] != StoneBoard::kFaux) stones.set(y * kColumns + x);

    const ReducedSystem system = reduce(stones);
    if (!system.consistent) return std::nullopt;

    // One solution with every free click left out; every other is it plus a kernel combination.
    CellSet particular;
    for (size_t r = 0; r < system.pivotColumn.size(); ++r)
        if (system.rows[r][kCells]) particular.set(system.pivotColumn[r]);

    const std::vector<CellSet> basis = kernelBasis(system);
    CellSet best = particular;
    for (unsigned long mask = 1; mask < (1UL << basis.size()); ++mask) {
        CellSet candidate = particular;
        for (size_t i = 0; i < basis.size(); ++i)
            if (mask & (1UL << i)) candidate ^= basis[i];
        if (candidate.count() < best.count()) best = candidate;
    }
    return cellCodes(best);
}

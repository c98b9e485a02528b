// SPDX-License-Identifier: MIT
#include "check_tiles.h"

#include "difficulty_curve.h"
#include "difficulty_tiles.h"
#include "level_symmetry.h"
#include "solve_tiles.h"
#include "tile_board.h"

#include <algorithm>
#include <iomanip>
#include <optional>
#include <string>
#include <vector>

namespace {

constexpr int32_t kLevelCount = 100;
constexpr int32_t kFewestCells = 5;
constexpr int32_t kMostCells = 37;
constexpr int32_t kLevelWithMostCells = 77;
constexpr int32_t kLevelsNeedingFall = 53;
constexpr int32_t kFirstLevelNeedingFall = 1;
constexpr int32_t kBlockSize = 20;
constexpr int32_t kRecord = TileBoard::kOctetsParNiveau;

struct LevelFigures {
    int32_t cells = 0;
    bool rectangle = false;
    bool solvable = false;
    bool solvableWithoutFall = false;
    bool replayCompletes = false;
    double difficulty = 0; // tiles laid per win
};

// True when the cells of the record fill their bounding box and nothing else.
bool isRectangle(std::string_view record)
{
    int32_t left = TileBoard::kColonnes, right = -1, top = TileBoard::kLignes, bottom = -1, cells = 0;
    for (int32_t i = 0; i < kRecord; ++i) {
        if (record[i] == '0') continue;
        const int32_t x = i % TileBoard::kColonnes, y = i / TileBoard::kColonnes;
        left = std::min(left, x);
        right = std::max(right, x);
        top = std::min(top, y);
        bottom = std::max(bottom, y);
        ++cells;
    }
    return cells > 0 && cells == (right - left + 1) * (bottom - top + 1);
}

bool replayCompletes(std::string_view store, int32_t n, const std::vector<int32_t> &order)
{
    TileBoard board;
    board.LitNiveau1(store, n);
    for (int32_t code : order) board.Pose1(code % TileBoard::kColonnes, code / TileBoard::kColonnes);
    return board.Complet1();
}

LevelFigures measureLevel(std::string_view store, int32_t n)
{
    const std::string_view record = store.substr(n * kRecord, kRecord);
    LevelFigures figures;
    figures.cells = static_cast<int32_t>(std::count_if(record.begin(), record.end(), [](char c) { return c != '0'; }));
    figures.rectangle = isRectangle(record);
    TileBoard board;
    board.LitNiveau1(store, n);
    const std::optional<std::vector<int32_t>> order = solveTiles(board, true);
    figures.solvable = order.has_value();
    figures.replayCompletes = order && replayCompletes(store, n, *order);
    figures.solvableWithoutFall = solveTiles(board, false).has_value();
    figures.difficulty = rememberedDifficulty(record, [](std::string_view r) { return measureTileDifficulty(r).laidPerWin; });
    return figures;
}

} // namespace

StoreVerdict checkTileLevels(std::string_view store, std::ostream &out)
{
    Failures failures;
    const int32_t levels = static_cast<int32_t>(store.size()) / kRecord;
    failures.expect(store.size() % kRecord == 0, "store size " + std::to_string(store.size()) + " is not a multiple of 40");
    failures.expect(levels == kLevelCount, "the store holds " + std::to_string(levels) + " levels, not 100");
    const size_t badByte = store.find_first_not_of("01234");
    failures.expect(badByte == std::string_view::npos, "byte " + std::to_string(badByte) + " is not one of \"0\" to \"4\"");
    if (badByte != std::string_view::npos) {
        // The figures below would be read from meaningless cells.
        failures.print(out);
        return {};
    }
    expectFixedLevels(store, kRecord, kFixedTileLevels, failures);

    std::vector<LevelFigures> figures;
    for (int32_t n = 0; n < levels; ++n) figures.push_back(measureLevel(store, n));

    int32_t fewest = kRecord, most = 0, solvable = 0, needingFall = 0, rectangles = 0;
    int32_t firstNeedingFall = -1;
    std::vector<int32_t> withMostCells;
    std::vector<double> difficulty;
    for (int32_t n = 0; n < levels; ++n) {
        const LevelFigures &f = figures[n];
        fewest = std::min(fewest, f.cells);
        most = std::max(most, f.cells);
        if (f.cells == kMostCells) withMostCells.push_back(n);
        solvable += f.solvable ? 1 : 0;
        rectangles += f.rectangle ? 1 : 0;
        if (f.solvable && !f.solvableWithoutFall) {
            ++needingFall;
            if (firstNeedingFall < 0) firstNeedingFall = n;
        }
        difficulty.push_back(f.difficulty);
        failures.expect(f.solvable, "level " + std::to_string(n) + " has no solution");
        failures.expect(!f.solvable || f.replayCompletes,
                        "level " + std::to_string(n) + ": the solution found does not complete the board");
    }

    std::vector<double> blockMeans;
    for (int32_t start = 0; start + kBlockSize <= levels; start += kBlockSize) {
        int32_t sum = 0;
        for (int32_t n = start; n < start + kBlockSize; ++n) sum += figures[n].cells;
        blockMeans.push_back(static_cast<double>(sum) / kBlockSize);
    }
    const auto repeats = repeatedLevels(store, kTileLayout);
    const int32_t nonRectangular = levels - rectangles;

    const std::ios::fmtflags oldFlags = out.flags();
    const std::streamsize oldPrecision = out.precision();
    out << "Jeu 1, pip tiles\n";
    auto row = [&out](const char *name) -> std::ostream & { return out << "  " << std::left << std::setw(28) << name; };
    row("levels") << levels << '\n';
    row("cells, fewest / most") << fewest << " / " << most << '\n';
    row("levels with 37 cells") << withMostCells.size() << '\n';
    row("levels solvable") << solvable << '\n';
    row("levels needing the fall") << needingFall << " (first: " << firstNeedingFall << ")\n";
    row("mean cells per 20 levels");
    for (size_t b = 0; b < blockMeans.size(); ++b) out << (b ? " " : "") << std::fixed << std::setprecision(2) << blockMeans[b];
    out << '\n';
    row("non-rectangular levels") << nonRectangular << '\n';
    row("distinct levels") << levels - static_cast<int32_t>(repeats.size()) << '\n';
    out.flags(oldFlags);
    out.precision(oldPrecision);
    judgeDifficulty(difficulty, kFixedTileLevels, "tiles a careful player lays per win", out, failures);

    failures.expect(fewest == kFewestCells, "the fewest cells in a level is " + std::to_string(fewest) + ", not 5");
    failures.expect(most == kMostCells, "the most cells in a level is " + std::to_string(most) + ", not 37");
    failures.expect(withMostCells == std::vector<int32_t>{kLevelWithMostCells}, "level 77 is not the only level with 37 cells");
    failures.expect(needingFall == kLevelsNeedingFall, std::to_string(needingFall) + " levels need the fall, not 53");
    failures.expect(firstNeedingFall == kFirstLevelNeedingFall,
                    "the first level needing the fall is " + std::to_string(firstNeedingFall) + ", not 1");
    for (size_t b = 1; b < blockMeans.size(); ++b)
        failures.expect(blockMeans[b] > blockMeans[b - 1],
                        "levels " + std::to_string(b * kBlockSize) + " to " + std::to_string(b * kBlockSize + kBlockSize - 1) +
                            " have no more cells on average than the 20 before");
    for (const auto &[later, earlier] : repeats)
        failures.expect(false, "level " + std::to_string(later) + " repeats level " + std::to_string(earlier) +
                                   ", moved, mirrored or turned");
    failures.expect(2 * nonRectangular >= levels, "only " + std::to_string(nonRectangular) + " levels are not rectangles");

    failures.print(out);
    return {failures.none(), difficulty};
}

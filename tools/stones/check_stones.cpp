// SPDX-License-Identifier: MIT
#include "check_stones.h"

#include "difficulty_curve.h"
#include "level_symmetry.h"
#include "solve_stones.h"
#include "stone_board.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <iomanip>
#include <optional>
#include <string>

namespace {

constexpr size_t kRecordSize = StoneBoard::kOctetsParNiveau;
constexpr int32_t kLevelCount = 100;
constexpr int32_t kBlockSize = 20;
constexpr size_t kFewestStones = 5;
constexpr size_t kMostStones = 52;
constexpr size_t kShortestSolution = 2;
constexpr size_t kLongestSolution = 42;

// Cell code of (x, y).
constexpr int32_t cell(int32_t x, int32_t y) { return y * StoneBoard::kColonnes + x; }

// The shortest solutions the first fixed levels are known by.
struct KnownSolution {
    int32_t level;
    std::vector<int32_t> clicks;
};
const std::vector<KnownSolution> kKnownSolutions = {
    {0, {cell(3, 4), cell(4, 4)}},
    {1, {cell(4, 3), cell(3, 4)}},
    {13, {cell(5, 2), cell(4, 3), cell(5, 3), cell(6, 3), cell(5, 4)}},
};

// The board's edges count in this game, so a level may only be moved, or mirrored as the board is.
constexpr LevelLayout kLayout{StoneBoard::kColonnes, StoneBoard::kLignes, Symmetries::Rectangle};

struct LevelFigures {
    size_t stones = 0;
    std::optional<std::vector<int32_t>> shortest;
};

LevelFigures figuresOf(std::string_view store, int32_t level)
{
    LevelFigures figures;
    const std::string_view record = store.substr(level * kRecordSize, kRecordSize);
    figures.stones = static_cast<size_t>(std::count(record.begin(), record.end(), '1'));
    StoneBoard board;
    board.LitNiveau2(store, level);
    figures.shortest = solveStones(board);
    return figures;
}

// Plays the clicks on the level through the board's own rules and tells whether it ends empty.
bool clicksClearLevel(std::string_view store, int32_t level, const std::vector<int32_t> &clicks)
{
    StoneBoard board;
    board.LitNiveau2(store, level);
    for (int32_t c : clicks) board.Retourne2(c % StoneBoard::kColonnes, c / StoneBoard::kColonnes);
    return board.Vide2();
}

std::optional<size_t> stonesOf(const LevelFigures &f) { return f.stones; }

std::optional<size_t> clicksOf(const LevelFigures &f)
{
    if (!f.shortest) return std::nullopt;
    return f.shortest->size();
}

struct Extreme {
    size_t value = 0;
    std::vector<int32_t> levels;
};

// The smallest or largest value over the levels that have one, and the levels holding it.
Extreme extremeOf(const std::vector<LevelFigures> &all,
                  const std::function<std::optional<size_t>(const LevelFigures &)> &valueOf, bool smallest)
{
    Extreme result;
    for (int32_t n = 0; n < static_cast<int32_t>(all.size()); ++n) {
        const std::optional<size_t> v = valueOf(all[n]);
        if (!v) continue;
        if (result.levels.empty() || (smallest ? *v < result.value : *v > result.value)) result = {*v, {}};
        if (*v == result.value) result.levels.push_back(n);
    }
    return result;
}

struct BlockMeans {
    int32_t first = 0;
    int32_t last = 0;
    double stones = 0;
    double clicks = 0;
};

std::vector<BlockMeans> blockMeans(const std::vector<LevelFigures> &all)
{
    std::vector<BlockMeans> blocks;
    const int32_t levels = static_cast<int32_t>(all.size());
    for (int32_t first = 0; first < levels; first += kBlockSize) {
        BlockMeans block{first, std::min(first + kBlockSize, levels) - 1};
        const double count = block.last - block.first + 1;
        for (int32_t n = block.first; n <= block.last; ++n) {
            block.stones += static_cast<double>(all[n].stones) / count;
            block.clicks += static_cast<double>(clicksOf(all[n]).value_or(0)) / count;
        }
        blocks.push_back(block);
    }
    return blocks;
}

void checkExtreme(Failures &failures, const std::string &what, const Extreme &found, size_t value,
                  const std::vector<int32_t> &levels)
{
    failures.expect(found.value == value && found.levels == levels,
                    what + " should be " + std::to_string(value) + " at " + levelList(levels) + ", is " +
                        std::to_string(found.value) + " at " + levelList(found.levels));
}

void checkKnownSolutions(Failures &failures, const std::vector<LevelFigures> &all)
{
    for (const KnownSolution &known : kKnownSolutions) {
        if (known.level >= static_cast<int32_t>(all.size()) || !all[known.level].shortest) continue;
        std::vector<int32_t> expected = known.clicks;
        std::sort(expected.begin(), expected.end());
        failures.expect(*all[known.level].shortest == expected,
                        "level " + std::to_string(known.level) + " has a shortest solution other than its known one");
    }
}

struct StoreFigures {
    std::vector<LevelFigures> levels;
    Extreme fewest, most, shortest, longest;
    std::vector<int32_t> unclearable;
    std::vector<BlockMeans> blocks;
    std::vector<std::pair<int32_t, int32_t>> repeats;
    std::vector<double> difficulty;
};

StoreFigures figuresOfStore(std::string_view store)
{
    StoreFigures figures;
    const int32_t levels = static_cast<int32_t>(store.size() / kRecordSize);
    for (int32_t n = 0; n < levels; ++n) {
        figures.levels.push_back(figuresOf(store, n));
        const std::optional<size_t> clicks = clicksOf(figures.levels.back());
        if (!clicks) figures.unclearable.push_back(n);
        figures.difficulty.push_back(clicks ? static_cast<double>(*clicks) : std::numeric_limits<double>::infinity());
    }
    figures.repeats = repeatedLevels(store, kLayout);
    figures.fewest = extremeOf(figures.levels, stonesOf, true);
    figures.most = extremeOf(figures.levels, stonesOf, false);
    figures.shortest = extremeOf(figures.levels, clicksOf, true);
    figures.longest = extremeOf(figures.levels, clicksOf, false);
    figures.blocks = blockMeans(figures.levels);
    return figures;
}

void printTable(std::ostream &out, const StoreFigures &f)
{
    const std::ios::fmtflags oldFlags = out.flags();
    out << std::fixed << std::setprecision(2);
    out << "Jeu 2, stones\n"
        << "  levels             " << f.levels.size() << '\n'
        << "  fewest stones      " << f.fewest.value << " (" << levelList(f.fewest.levels) << ")\n"
        << "  most stones        " << f.most.value << " (" << levelList(f.most.levels) << ")\n"
        << "  shortest solution  " << f.shortest.value << " clicks (" << levelList(f.shortest.levels) << ")\n"
        << "  longest solution   " << f.longest.value << " clicks (" << levelList(f.longest.levels) << ")\n";
    for (const BlockMeans &block : f.blocks)
        out << "  levels " << std::setw(2) << block.first << '-' << std::setw(2) << block.last << "       mean "
            << block.stones << " stones, " << block.clicks << " clicks\n";
    out << "  distinct levels    " << f.levels.size() - f.repeats.size() << '\n'
        << "  clearable levels   " << f.levels.size() - f.unclearable.size() << '\n';
    out.flags(oldFlags);
}

void checkLayout(Failures &failures, std::string_view store)
{
    failures.expect(store.size() % kRecordSize == 0,
                    "size " + std::to_string(store.size()) + " is not a multiple of " + std::to_string(kRecordSize));
    const size_t levelCount = store.size() / kRecordSize;
    failures.expect(levelCount == kLevelCount,
                    std::to_string(levelCount) + " levels instead of " + std::to_string(kLevelCount));
    failures.expect(store.find_first_not_of("01") == std::string_view::npos, "a byte other than \"0\" or \"1\"");
}

void checkFigures(Failures &failures, std::string_view store, const StoreFigures &f)
{
    expectFixedLevels(store, kRecordSize, kFixedStoneLevels, failures);
    checkKnownSolutions(failures, f.levels);
    checkExtreme(failures, "fewest stones", f.fewest, kFewestStones, {13});
    checkExtreme(failures, "most stones", f.most, kMostStones, {61});
    failures.expect(f.unclearable.empty(), "cannot be cleared: " + levelList(f.unclearable));
    checkExtreme(failures, "shortest solution", f.shortest, kShortestSolution, {0, 1});
    checkExtreme(failures, "longest solution", f.longest, kLongestSolution, {61});
    for (size_t b = 1; b < f.blocks.size(); ++b) {
        const BlockMeans &block = f.blocks[b];
        const std::string name = "levels " + std::to_string(block.first) + "-" + std::to_string(block.last);
        failures.expect(block.stones > f.blocks[b - 1].stones, name + " do not hold more stones on average");
        failures.expect(block.clicks > f.blocks[b - 1].clicks, name + " do not need more clicks on average");
    }
    for (const auto &[later, earlier] : f.repeats)
        failures.expect(false, "level " + std::to_string(later) + " repeats level " + std::to_string(earlier) +
                                   ", moved or mirrored");
    for (int32_t n = 0; n < static_cast<int32_t>(f.levels.size()); ++n)
        if (f.levels[n].shortest)
            failures.expect(clicksClearLevel(store, n, *f.levels[n].shortest),
                            "the solution of level " + std::to_string(n) + " does not clear it on the board");
}

} // namespace

StoreVerdict checkStoneLevels(std::string_view store, std::ostream &out)
{
    Failures failures;
    if (store.size() < kRecordSize) {
        checkLayout(failures, store);
        failures.print(out);
        return {};
    }
    const StoreFigures figures = figuresOfStore(store);
    printTable(out, figures);
    judgeDifficulty(figures.difficulty, kFixedStoneLevels, "clicks of the shortest solution", out, failures);
    checkLayout(failures, store);
    checkFigures(failures, store, figures);
    failures.print(out);
    return {failures.none(), figures.difficulty};
}

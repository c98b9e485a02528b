#include "check_stones.h"

#include "solve_stones.h"
#include "stone_board.h"

#include <algorithm>
#include <functional>
#include <iomanip>
#include <optional>
#include <set>
#include <sstream>
#include <string>

namespace {

constexpr size_t kRecordSize = StoneBoard::kOctetsParNiveau;
constexpr size_t kLevelCount = 100;
constexpr size_t kBlockSize = 20;
constexpr size_t kFewestStones = 5;
constexpr size_t kMostStones = 52;
constexpr size_t kShortestSolution = 2;
constexpr size_t kLongestSolution = 42;

// Cell code of (x, y).
constexpr int32_t cell(int32_t x, int32_t y) { return y * StoneBoard::kColonnes + x; }

// The fixed levels, one string per row from the top.
const std::vector<TellingStoneLevel> kTellingLevels = {
    {0, "00000000" "00000000" "00000000" "00011000" "00100100" "00011000" "00000000" "00000000" "00000000",
     {cell(3, 4), cell(4, 4)}},
    {1, "00000000" "00000000" "00001000" "00001100" "00110000" "00010000" "00000000" "00000000" "00000000",
     {cell(4, 3), cell(3, 4)}},
    {13, "00000000" "00000100" "00000000" "00010101" "00000000" "00000100" "00000000" "00000000" "00000000",
     {cell(5, 2), cell(4, 3), cell(5, 3), cell(6, 3), cell(5, 4)}},
    {61, "11111111" "10000001" "01111110" "01111110" "01111110" "10000001" "11111111" "11111111" "01111110", {}},
    {99, "11000101" "10011101" "00101100" "00101110" "00110100" "01101101" "00100100" "10000011" "11000010", {}},
};

struct LevelFigures {
    size_t stones = 0;
    std::optional<std::vector<int32_t>> shortest;
};

LevelFigures figuresOf(std::string_view store, size_t level)
{
    LevelFigures figures;
    const std::string_view record = store.substr(level * kRecordSize, kRecordSize);
    figures.stones = static_cast<size_t>(std::count(record.begin(), record.end(), '1'));
    StoneBoard board;
    board.LitNiveau2(store, static_cast<int32_t>(level));
    figures.shortest = solveStones(board);
    return figures;
}

// Plays the clicks on the level through the board's own rules and tells whether it ends empty.
bool clicksClearLevel(std::string_view store, size_t level, const std::vector<int32_t> &clicks)
{
    StoneBoard board;
    board.LitNiveau2(store, static_cast<int32_t>(level));
    for (int32_t c : clicks) board.Retourne2(c % StoneBoard::kColonnes, c / StoneBoard::kColonnes);
    return board.Vide2();
}

std::vector<size_t> levelsWhere(const std::vector<LevelFigures> &all,
                                const std::function<bool(const LevelFigures &)> &holds)
{
    std::vector<size_t> levels;
    for (size_t n = 0; n < all.size(); ++n)
        if (holds(all[n])) levels.push_back(n);
    return levels;
}

std::string levelList(const std::vector<size_t> &levels)
{
    std::ostringstream text;
    text << (levels.size() == 1 ? "level " : "levels ");
    for (size_t i = 0; i < levels.size(); ++i) text << (i ? ", " : "") << levels[i];
    return text.str();
}

std::optional<size_t> stonesOf(const LevelFigures &f) { return f.stones; }

std::optional<size_t> clicksOf(const LevelFigures &f)
{
    if (!f.shortest) return std::nullopt;
    return f.shortest->size();
}

struct Extreme {
    size_t value = 0;
    std::vector<size_t> levels;
};

// The smallest or largest value over the levels that have one, and the levels holding it.
Extreme extremeOf(const std::vector<LevelFigures> &all,
                  const std::function<std::optional<size_t>(const LevelFigures &)> &valueOf, bool smallest)
{
    Extreme result;
    for (size_t n = 0; n < all.size(); ++n) {
        const std::optional<size_t> v = valueOf(all[n]);
        if (!v) continue;
        if (result.levels.empty() || (smallest ? *v < result.value : *v > result.value)) result = {*v, {}};
        if (*v == result.value) result.levels.push_back(n);
    }
    return result;
}

struct BlockMeans {
    size_t first = 0;
    size_t last = 0;
    double stones = 0;
    double clicks = 0;
};

std::vector<BlockMeans> blockMeans(const std::vector<LevelFigures> &all)
{
    std::vector<BlockMeans> blocks;
    for (size_t first = 0; first < all.size(); first += kBlockSize) {
        BlockMeans block{first, std::min(first + kBlockSize, all.size()) - 1};
        const double count = static_cast<double>(block.last - block.first + 1);
        for (size_t n = block.first; n <= block.last; ++n) {
            block.stones += static_cast<double>(all[n].stones) / count;
            block.clicks += static_cast<double>(clicksOf(all[n]).value_or(0)) / count;
        }
        blocks.push_back(block);
    }
    return blocks;
}

class Verdict {
public:
    explicit Verdict(std::ostream &out) : out_(out) {}
    void expect(bool holds, const std::string &failure)
    {
        if (holds) return;
        ok_ = false;
        out_ << "FAILED: " << failure << '\n';
    }
    bool ok() const { return ok_; }

private:
    std::ostream &out_;
    bool ok_ = true;
};

void checkExtreme(Verdict &verdict, const std::string &what, const Extreme &found, size_t value,
                  const std::vector<size_t> &levels)
{
    verdict.expect(found.value == value && found.levels == levels,
                   what + " should be " + std::to_string(value) + " at " + levelList(levels) + ", is " +
                       std::to_string(found.value) + " at " + levelList(found.levels));
}

void checkTellingLevels(Verdict &verdict, std::string_view store, const std::vector<LevelFigures> &all)
{
    for (const TellingStoneLevel &telling : kTellingLevels) {
        const size_t n = static_cast<size_t>(telling.level);
        const std::string name = "level " + std::to_string(n);
        if (n >= all.size()) {
            verdict.expect(false, name + " is missing");
            continue;
        }
        verdict.expect(store.substr(n * kRecordSize, kRecordSize) == telling.record,
                       name + " differs from its fixed record");
        if (!telling.shortestClicks.empty() && all[n].shortest) {
            std::vector<int32_t> expected = telling.shortestClicks;
            std::sort(expected.begin(), expected.end());
            verdict.expect(*all[n].shortest == expected, name + " has a shortest solution other than its known one");
        }
    }
}

struct StoreFigures {
    size_t levelCount = 0;
    std::vector<LevelFigures> levels;
    Extreme fewest, most, shortest, longest;
    std::vector<size_t> unclearable;
    std::vector<BlockMeans> blocks;
    size_t distinct = 0;
};

StoreFigures figuresOfStore(std::string_view store)
{
    StoreFigures figures;
    figures.levelCount = store.size() / kRecordSize;
    std::set<std::string_view> records;
    for (size_t n = 0; n < figures.levelCount; ++n) {
        figures.levels.push_back(figuresOf(store, n));
        records.insert(store.substr(n * kRecordSize, kRecordSize));
    }
    figures.distinct = records.size();
    figures.fewest = extremeOf(figures.levels, stonesOf, true);
    figures.most = extremeOf(figures.levels, stonesOf, false);
    figures.shortest = extremeOf(figures.levels, clicksOf, true);
    figures.longest = extremeOf(figures.levels, clicksOf, false);
    figures.unclearable = levelsWhere(figures.levels, [](const LevelFigures &f) { return !f.shortest; });
    figures.blocks = blockMeans(figures.levels);
    return figures;
}

void printTable(std::ostream &out, const StoreFigures &f)
{
    out << std::fixed << std::setprecision(2);
    out << "Jeu 2, stones\n"
        << "  levels             " << f.levelCount << '\n'
        << "  fewest stones      " << f.fewest.value << " (" << levelList(f.fewest.levels) << ")\n"
        << "  most stones        " << f.most.value << " (" << levelList(f.most.levels) << ")\n"
        << "  shortest solution  " << f.shortest.value << " clicks (" << levelList(f.shortest.levels) << ")\n"
        << "  longest solution   " << f.longest.value << " clicks (" << levelList(f.longest.levels) << ")\n";
    for (const BlockMeans &block : f.blocks)
        out << "  levels " << std::setw(2) << block.first << '-' << std::setw(2) << block.last << "       mean "
            << block.stones << " stones, " << block.clicks << " clicks\n";
    out << "  distinct levels    " << f.distinct << '\n'
        << "  clearable levels   " << f.levelCount - f.unclearable.size() << '\n';
}

void checkLayout(Verdict &verdict, std::string_view store)
{
    verdict.expect(store.size() % kRecordSize == 0,
                   "size " + std::to_string(store.size()) + " is not a multiple of " + std::to_string(kRecordSize));
    const size_t levelCount = store.size() / kRecordSize;
    verdict.expect(levelCount == kLevelCount,
                   std::to_string(levelCount) + " levels instead of " + std::to_string(kLevelCount));
    verdict.expect(store.find_first_not_of("01") == std::string_view::npos, "a byte other than \"0\" or \"1\"");
}

void checkFigures(Verdict &verdict, std::string_view store, const StoreFigures &f)
{
    checkTellingLevels(verdict, store, f.levels);
    checkExtreme(verdict, "fewest stones", f.fewest, kFewestStones, {13});
    checkExtreme(verdict, "most stones", f.most, kMostStones, {61});
    verdict.expect(f.unclearable.empty(), "cannot be cleared: " + levelList(f.unclearable));
    checkExtreme(verdict, "shortest solution", f.shortest, kShortestSolution, {0, 1});
    checkExtreme(verdict, "longest solution", f.longest, kLongestSolution, {61});
    for (size_t b = 1; b < f.blocks.size(); ++b) {
        const BlockMeans &block = f.blocks[b];
        const std::string name = "levels " + std::to_string(block.first) + "-" + std::to_string(block.last);
        verdict.expect(block.stones > f.blocks[b - 1].stones, name + " do not hold more stones on average");
        verdict.expect(block.clicks > f.blocks[b - 1].clicks, name + " do not need more clicks on average");
    }
    verdict.expect(f.distinct == f.levelCount, std::to_string(f.levelCount - f.distinct) + " levels repeat another");
    for (size_t n = 0; n < f.levelCount; ++n)
        if (f.levels[n].shortest)
            verdict.expect(clicksClearLevel(store, n, *f.levels[n].shortest),
                           "the solution of level " + std::to_string(n) + " does not clear it on the board");
}

} // namespace

std::span<const TellingStoneLevel> tellingStoneLevels() { return kTellingLevels; }

bool checkStoneLevels(std::string_view store, std::ostream &out)
{
    Verdict verdict(out);
    if (store.size() < kRecordSize) {
        checkLayout(verdict, store);
        return false;
    }
    const StoreFigures figures = figuresOfStore(store);
    printTable(out, figures);
    checkLayout(verdict, store);
    checkFigures(verdict, store, figures);
    return verdict.ok();
}

#include "check_pairs.h"

#include "solve_pairs.h"

#include <algorithm>
#include <chrono>
#include <iomanip>
#include <set>
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

std::string levelList(const std::vector<int32_t> &levels)
{
    std::ostringstream text;
    text << (levels.size() == 1 ? "level " : "levels ");
    for (size_t i = 0; i < levels.size(); ++i) text << (i == 0 ? "" : ", ") << levels[i];
    return text.str();
}

void row(std::ostream &out, std::string_view name, const std::string &value)
{
    out << "  " << std::left << std::setw(22) << name << value << '\n';
}

} // namespace

bool checkPairLevels(std::string_view store, std::ostream &out)
{
    std::vector<std::string> failures;
    auto fail = [&failures](const std::string &line) { failures.push_back(line); };
    auto record = [store](int32_t n) { return store.substr(static_cast<size_t>(n) * kLevelBytes, kLevelBytes); };

    const int32_t levels = static_cast<int32_t>(store.size() / kLevelBytes);
    out << "Jeu 3, tile pairs\n";
    row(out, "bytes", std::to_string(store.size()));
    row(out, "levels", std::to_string(levels));
    if (store.size() % kLevelBytes != 0 || levels != kLevels) {
        out << "FAILED: the store must hold " << kLevels << " levels of " << kLevelBytes << " bytes\n";
        return false;
    }
    const size_t badByte = store.find_first_not_of(kAllowedBytes);
    if (badByte != std::string_view::npos) {
        out << "FAILED: byte " << badByte << " of level " << badByte / kLevelBytes << " is not a tile or '0'\n";
        return false;
    }

    for (const KnownPairLevel &known : kKnownPairLevels)
        if (record(known.level) != known.record)
            fail("level " + std::to_string(known.level) + " differs from its fixed record");

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
    if (fewest != kFewestTiles || fewestAt != std::vector<int32_t>{4})
        fail("level 4 alone must have the fewest tiles, " + std::to_string(kFewestTiles));
    if (most != kMostTiles || mostAt != std::vector<int32_t>{95})
        fail("level 95 alone must have the most tiles, " + std::to_string(kMostTiles));

    int32_t evenColours = 0;
    for (int32_t n = 0; n < kLevels; ++n) {
        if (coloursEven(record(n))) ++evenColours;
        else fail("level " + std::to_string(n) + " has an odd number of tiles of some colour");
    }
    row(out, "colours even", std::to_string(evenColours) + " of " + std::to_string(kLevels));

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
            if (p != expected->p)
                fail("level " + std::to_string(n) + " has P=" + std::to_string(p) + ", not " +
                     std::to_string(expected->p));
            if (solvePairs(board)) fail("level " + std::to_string(n) + " has a solution");
            continue;
        }
        if (p % 2 != 0) fail("level " + std::to_string(n) + " has an odd P and so no solution");
        const auto moves = solvePairs(board);
        if (moves && playsToEmpty(board, *moves)) ++solved;
        else fail("level " + std::to_string(n) + ": no solution found");
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
        if (mean <= previous)
            fail("the levels " + std::to_string(block * kBlock) + " to " + std::to_string((block + 1) * kBlock - 1) +
                 " do not have more tiles on average than the block before");
        previous = mean;
    }
    row(out, "mean tiles per 20", means.str());

    std::set<std::string_view> distinct;
    int32_t notRectangles = 0;
    for (int32_t n = 0; n < kLevels; ++n) {
        distinct.insert(record(n));
        if (!fullRectangle(record(n))) ++notRectangles;
    }
    row(out, "distinct levels", std::to_string(distinct.size()));
    row(out, "not full rectangles", std::to_string(notRectangles));
    if (static_cast<int32_t>(distinct.size()) != kLevels) fail("some levels are equal");
    if (notRectangles * 2 < kLevels) fail("fewer than half of the levels are other than full rectangles");

    std::ostringstream time;
    time << std::fixed << std::setprecision(3) << seconds << " s";
    row(out, "solver time", time.str());

    for (const std::string &line : failures) out << "FAILED: " << line << '\n';
    return failures.empty();
}

// SPDX-License-Identifier: MIT
// The stones game: its board model worked by hand, its solver's shortest solution, and the store's
// check.
#include "check_stones.h"
#include "level_edits.h"
#include "solve_stones.h"
#include "stone_board.h"

#include <QFile>
#include <QTest>

#include <algorithm>
#include <functional>
#include <numeric>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

std::string storedLevels()
{
    QFile file(LEVELS_DIR "/niveaux2.dat");
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

StoneBoard boardOf(const std::string &store, int n)
{
    StoneBoard board;
    board.LitNiveau2(store, n);
    return board;
}

void click(StoneBoard &board, int32_t cell) { board.Retourne2(cell % 8, cell / 8); }

// The entries of the whole 9 by 9 array that differ between the two boards.
int changedEntries(const StoneBoard &a, const StoneBoard &b)
{
    return static_cast<int>(std::inner_product(&a.tabPions2[0][0], &a.tabPions2[0][0] + 81, &b.tabPions2[0][0], 0,
                                               std::plus<>(), std::not_equal_to<>()));
}

// The thirty cells whose clicks together change nothing.
std::vector<int32_t> thirtyCellPattern()
{
    std::vector<int32_t> pattern;
    for (int y = 0; y < 9; y += 2)
        for (int x : {0, 1, 3, 4, 6, 7}) pattern.push_back(y * 8 + x);
    return pattern;
}

} // namespace

class TestStoneLevels : public QObject {
    Q_OBJECT

    const std::string store = storedLevels();

private slots:
    void readingAndClearing()
    {
        QCOMPARE(store.size(), size_t(7200));
        for (int first : {3, 4}) {
            StoneBoard board = boardOf(store, 0);
            board.Retourne2(first, 4);
            QVERIFY(!board.Vide2());
            board.Retourne2(7 - first, 4);
            QVERIFY(board.Vide2());
        }
        // Digits above zero read as stones, the last click is forgotten, and the spare column is never read.
        StoneBoard board;
        board.Retourne2(0, 0);
        board.LitNiveau2(std::string(143, '0') + "2", 1);
        QCOMPARE(board.iCoup2, -1);
        QCOMPARE(board.tabPions2[7][8], StoneBoard::kVrai);
        QCOMPARE(board.tabPions2[0][0], StoneBoard::kFaux);
        board.tabPions2[7][8] = StoneBoard::kFaux;
        for (int y = 0; y < 9; ++y) board.tabPions2[8][y] = StoneBoard::kVrai;
        QVERIFY(board.Vide2());
    }

    // A click flips its cell and the neighbours on the board, never the spare column, and is on record.
    void clickFlipsCellAndNeighboursOnTheBoard()
    {
        // Corners, edges and inside: x, y and the entries flipped.
        for (const auto &[x, y, flipped] : {std::tuple{0, 0, 3}, {7, 8, 3}, {3, 0, 4}, {7, 4, 4}, {3, 4, 5}}) {
            StoneBoard board;
            board.Retourne2(x, y);
            QCOMPARE(changedEntries(board, StoneBoard{}), flipped);
            QCOMPARE(board.tabPions2[x][y], StoneBoard::kVrai);
            QVERIFY(std::all_of(std::begin(board.tabPions2[8]), std::end(board.tabPions2[8]),
                                [](int16_t v) { return v == 0; }));
            QCOMPARE(board.iCoup2, y * 8 + x);
            board.Retourne2(x, y);
            QCOMPARE(changedEntries(board, StoneBoard{}), 0);
        }
    }

    void thePatternAndTheShorterSolution()
    {
        QCOMPARE(stoneClickKernel(), std::vector<std::vector<int32_t>>{thirtyCellPattern()});
        StoneBoard level99 = boardOf(store, 99);
        for (int32_t c : thirtyCellPattern()) click(level99, c);
        QCOMPARE(changedEntries(level99, boardOf(store, 99)), 0);
        // A clearable board has two solutions, one the other with the thirty-cell pattern toggled: the
        // solver's clears the board and is the shorter.
        QCOMPARE(solveStones(StoneBoard{}), std::optional<std::vector<int32_t>>(std::vector<int32_t>{}));
        const std::vector<int32_t> pattern = thirtyCellPattern();
        std::mt19937 rng(11);
        int clearable = 0;
        for (int trial = 0; trial < 300 && !QTest::currentTestFailed(); ++trial) {
            StoneBoard board;
            for (int y = 0; y < 9; ++y)
                for (int x = 0; x < 8; ++x) board.tabPions2[x][y] = int(rng() % 4) <= trial % 3 ? -1 : 0;
            auto solution = solveStones(board);
            if (!solution) continue;
            ++clearable;
            for (int32_t c : *solution) click(board, c);
            QVERIFY(board.Vide2());
            std::sort(solution->begin(), solution->end());
            std::vector<int32_t> other;
            std::set_symmetric_difference(solution->begin(), solution->end(), pattern.begin(), pattern.end(),
                                          std::back_inserter(other));
            QVERIFY(solution->size() <= other.size());
        }
        QVERIFY(clearable > 100 && clearable < 200);
    }

    void storeCheck()
    {
        std::ostringstream shipped;
        QVERIFY2(checkStoneLevels(store, shipped).ok, shipped.str().c_str());
        QVERIFY(shipped.str().find("distinct levels    100") != std::string::npos);
        const auto damaged = [this](const std::function<void(std::string &)> &damage) {
            std::string s = store;
            damage(s);
            return s;
        };
        const auto flipped = [](int x, int y) { return std::pair{x, -y}; };
        const std::pair<std::string, const char *> cases[] = {
            {damaged([](std::string &s) { s.pop_back(); }), "not a multiple of 72"},
            {damaged([](std::string &s) { s.resize(99 * 72); }), "99 levels"},
            {damaged([](std::string &s) { s[500] = '2'; }), "other than"},
            {damaged([](std::string &s) { s[99 * 72] = '0'; }), "level 99 differs"},
            {damaged([&](std::string &s) { s.replace(31 * 72, 72, movedLevel(s.substr(30 * 72, 72), 8, 9, flipped)); }),
             "level 31 repeats level 30"},
            {withLevelsSwapped(store, 72, 3, 97), "level 97 of the last quarter is easier"},
            // One stone added on the thirty-cell pattern leaves the level without a solution.
            {damaged([](std::string &s) { s[50 * 72] ^= 1; }), "cannot be cleared: level 50"},
            {damaged([](std::string &s) {
                 const std::string later = s.substr(80 * 72, 18 * 72);
                 s.replace(80 * 72, 18 * 72, s, 62 * 72, 18 * 72);
                 s.replace(62 * 72, 18 * 72, later);
             }),
             "levels 80-99 do not hold more stones"},
        };
        for (const auto &[damagedStore, failure] : cases) {
            std::ostringstream out;
            QVERIFY(!checkStoneLevels(damagedStore, out).ok);
            QVERIFY2(out.str().find("FAILED: ") != std::string::npos && out.str().find(failure) != std::string::npos,
                     out.str().c_str());
        }
    }
};

QTEST_APPLESS_MAIN(TestStoneLevels)
#include "tst_stone_board_and_levels.moc"

// SPDX-License-Identifier: MIT
// The stones game: its board model worked by hand, its solver against an exhaustive search, every
// stored level cleared by its solution on the real board, and the store's check.
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

// Every click set that clears the board, found by trying each set of top-row clicks:
// the stones left on a row can then only be cleared by clicking the cells below them.
std::vector<std::vector<int32_t>> everySolution(const StoneBoard &start)
{
    std::vector<std::vector<int32_t>> solutions;
    for (int topRow = 0; topRow < 256; ++topRow) {
        StoneBoard board = start;
        std::vector<int32_t> clicks;
        for (int32_t cell = 0; cell < 72; ++cell)
            if (cell < 8 ? (topRow & (1 << cell)) != 0 : board.tabPions2[cell % 8][cell / 8 - 1] != 0) {
                clicks.push_back(cell);
                click(board, cell);
            }
        if (board.Vide2()) solutions.push_back(clicks);
    }
    return solutions;
}

// Compares the solver with the exhaustive search, which also shows that a clearable board has
// exactly two solutions, and replays the solver's clicks on the board.
void expectShortestSolution(const StoneBoard &board)
{
    const auto solution = solveStones(board);
    const auto all = everySolution(board);
    QCOMPARE(solution.has_value(), !all.empty());
    if (!solution) return;
    QCOMPARE(all.size(), size_t(2));
    QCOMPARE(solution->size(), std::min(all[0].size(), all[1].size()));
    StoneBoard replay = board;
    for (int32_t c : *solution) click(replay, c);
    QVERIFY(replay.Vide2());
}

} // namespace

using Damage = std::function<void(std::string &)>;
Q_DECLARE_METATYPE(Damage)

class TestStoneLevels : public QObject {
    Q_OBJECT

    const std::string store = storedLevels();

private slots:
    void levelZeroIsClearedByTwoClicksInEitherOrder()
    {
        QCOMPARE(store.size(), size_t(7200));
        for (int first : {3, 4}) {
            StoneBoard board = boardOf(store, 0);
            board.Retourne2(first, 4);
            QVERIFY(!board.Vide2());
            board.Retourne2(7 - first, 4);
            QVERIFY(board.Vide2());
        }
    }

    // Digits above zero read as stones, the last click is forgotten, and the spare column is never read.
    void readingAndTheSpareColumn()
    {
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

    void clickFlipsCellAndNeighboursOnTheBoard_data()
    {
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("y");
        QTest::addColumn<int>("flipped");
        QTest::newRow("top left") << 0 << 0 << 3;
        QTest::newRow("bottom right") << 7 << 8 << 3;
        QTest::newRow("top edge") << 3 << 0 << 4;
        QTest::newRow("right edge") << 7 << 4 << 4;
        QTest::newRow("inside") << 3 << 4 << 5;
    }
    void clickFlipsCellAndNeighboursOnTheBoard()
    {
        QFETCH(int, x);
        QFETCH(int, y);
        QFETCH(int, flipped);
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

    void onlyTheThirtyCellPatternChangesNothing()
    {
        std::vector<int32_t> pattern;
        for (int y = 0; y < 9; y += 2)
            for (int x : {0, 1, 3, 4, 6, 7}) pattern.push_back(y * 8 + x);
        QCOMPARE(stoneClickKernel(), std::vector<std::vector<int32_t>>{pattern});
        StoneBoard board = boardOf(store, 99);
        for (int32_t c : pattern) click(board, c);
        QCOMPARE(changedEntries(board, boardOf(store, 99)), 0);
    }

    void solverAgreesWithExhaustiveSearch()
    {
        QCOMPARE(solveStones(StoneBoard{}), std::optional<std::vector<int32_t>>(std::vector<int32_t>{}));
        std::mt19937 rng(11);
        int clearable = 0;
        for (int trial = 0; trial < 300 && !QTest::currentTestFailed(); ++trial) {
            StoneBoard board;
            for (int y = 0; y < 9; ++y)
                for (int x = 0; x < 8; ++x) board.tabPions2[x][y] = int(rng() % 4) <= trial % 3 ? -1 : 0;
            expectShortestSolution(board);
            clearable += solveStones(board).has_value();
        }
        QVERIFY(clearable > 100 && clearable < 200);
    }

    // Every stored level survives random clicks taken back; the store's check clears each one.
    void everyStoredLevelSurvivesTakeBacks()
    {
        std::mt19937 rng(7);
        for (int n = 0; n < 100 && !QTest::currentTestFailed(); ++n) {
            StoneBoard board = boardOf(store, n);
            for (int i = 0; i < 30; ++i) {
                const int cell = int(rng() % 72);
                click(board, cell);
                board.Annule2();
                QVERIFY2(changedEntries(board, boardOf(store, n)) == 0,
                         qPrintable(QString("level %1, cell %2").arg(n).arg(cell)));
            }
        }
    }

    void checkerAcceptsTheShippedStore()
    {
        std::ostringstream out;
        QVERIFY2(checkStoneLevels(store, out).ok, out.str().c_str());
        QVERIFY(out.str().find("distinct levels    100") != std::string::npos);
    }

    void checkerRejectsDamagedStores_data()
    {
        QTest::addColumn<Damage>("damage");
        QTest::addColumn<QString>("failure");
        QTest::newRow("short by a byte") << Damage([](std::string &s) { s.pop_back(); }) << "not a multiple of 72";
        QTest::newRow("one level fewer") << Damage([](std::string &s) { s.resize(99 * 72); }) << "99 levels";
        QTest::newRow("foreign byte") << Damage([](std::string &s) { s[500] = '2'; }) << "other than";
        QTest::newRow("fixed level changed") << Damage([](std::string &s) { s[99 * 72] = '0'; }) << "level 99 differs";
        QTest::newRow("level repeated") << Damage([](std::string &s) { s.replace(30 * 72, 72, s, 31 * 72, 72); })
                                        << "level 31 repeats level 30";
        QTest::newRow("level moved and mirrored") << Damage([](std::string &s) {
            s.replace(31 * 72, 72, movedLevel(s.substr(30 * 72, 72), 8, 9, [](int x, int y) { return std::pair{x, -y}; }));
        }) << "level 31 repeats level 30";
        QTest::newRow("easy level last") << Damage([](std::string &s) { s = withLevelsSwapped(s, 72, 3, 97); })
                                         << "level 97 of the last quarter is easier";
        // One stone added on the thirty-cell pattern leaves the level without a solution.
        QTest::newRow("level unclearable")
            << Damage([](std::string &s) { s[50 * 72] ^= 1; }) << "cannot be cleared: level 50";
        QTest::newRow("hard levels earlier") << Damage([](std::string &s) {
            const std::string later = s.substr(80 * 72, 18 * 72);
            s.replace(80 * 72, 18 * 72, s, 62 * 72, 18 * 72);
            s.replace(62 * 72, 18 * 72, later);
        }) << "levels 80-99 do not hold more stones";
    }
    void checkerRejectsDamagedStores()
    {
        QFETCH(Damage, damage);
        QFETCH(QString, failure);
        std::string damaged = store;
        damage(damaged);
        std::ostringstream out;
        QVERIFY(!checkStoneLevels(damaged, out).ok);
        QVERIFY2(out.str().find("FAILED: ") != std::string::npos
                     && out.str().find(failure.toStdString()) != std::string::npos,
                 out.str().c_str());
    }
};

QTEST_APPLESS_MAIN(TestStoneLevels)
#include "tst_stone_board_and_levels.moc"

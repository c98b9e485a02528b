#include "check_stones.h"
#include "solve_stones.h"
#include "stone_board.h"

#include <QFile>
#include <QTest>

#include <functional>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

std::string storedLevels()
{
    QFile file(LEVELS_DIR "/niveaux2.dat");
    if (!file.open(QIODevice::ReadOnly)) return {};
    return file.readAll().toStdString();
}

void click(StoneBoard &board, int32_t cell) { board.Retourne2(cell % 8, cell / 8); }

// Every click set that clears the board, found by trying each set of top-row clicks:
// the stones left on a row can then only be cleared by clicking the cells below them.
std::vector<std::vector<int32_t>> everySolution(const StoneBoard &start)
{
    std::vector<std::vector<int32_t>> solutions;
    for (int topRow = 0; topRow < 256; ++topRow) {
        StoneBoard board = start;
        std::vector<int32_t> clicks;
        for (int x = 0; x < 8; ++x)
            if (topRow & (1 << x)) clicks.push_back(x);
        for (int32_t c : clicks) click(board, c);
        for (int y = 1; y < 9; ++y)
            for (int x = 0; x < 8; ++x)
                if (board.tabPions2[x][y - 1]) {
                    clicks.push_back(y * 8 + x);
                    click(board, y * 8 + x);
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

private slots:
    void onlyTheThirtyCellPatternChangesNothing()
    {
        std::vector<int32_t> pattern;
        for (int y = 0; y < 9; y += 2)
            for (int x : {0, 1, 3, 4, 6, 7}) pattern.push_back(y * 8 + x);
        QCOMPARE(stoneClickKernel(), std::vector<std::vector<int32_t>>{pattern});

        StoneBoard start;
        start.LitNiveau2(storedLevels(), 99);
        StoneBoard board = start;
        for (int32_t c : pattern) click(board, c);
        QVERIFY(std::equal(&board.tabPions2[0][0], &board.tabPions2[0][0] + 81, &start.tabPions2[0][0]));
    }

    void solverAgreesWithExhaustiveSearch()
    {
        QCOMPARE(solveStones(StoneBoard{}), std::optional<std::vector<int32_t>>(std::vector<int32_t>{}));
        std::mt19937 rng(11);
        int clearable = 0;
        for (int trial = 0; trial < 300; ++trial) {
            StoneBoard board;
            for (int y = 0; y < 9; ++y)
                for (int x = 0; x < 8; ++x) board.tabPions2[x][y] = int(rng() % 4) <= trial % 3 ? -1 : 0;
            expectShortestSolution(board);
            if (QTest::currentTestFailed()) return;
            clearable += solveStones(board).has_value();
        }
        QVERIFY(clearable > 100 && clearable < 200);
    }

    void everyStoredLevelHasAShortestSolution()
    {
        const std::string store = storedLevels();
        QCOMPARE(store.size(), size_t(7200));
        for (int n = 0; n < 100; ++n) {
            StoneBoard board;
            board.LitNiveau2(store, n);
            QVERIFY2(solveStones(board), qPrintable(QString("level %1").arg(n)));
            expectShortestSolution(board);
            if (QTest::currentTestFailed()) return;
        }
    }

    void checkerAcceptsTheShippedStore()
    {
        std::ostringstream out;
        QVERIFY2(checkStoneLevels(storedLevels(), out), out.str().c_str());
        QVERIFY(out.str().find("distinct levels    100") != std::string::npos);
    }

    void checkerRejectsDamagedStores_data()
    {
        QTest::addColumn<Damage>("damage");
        QTest::addColumn<QString>("failure");
        QTest::newRow("short by a byte") << Damage([](std::string &s) { s.pop_back(); }) << "not a multiple of 72";
        QTest::newRow("one level fewer") << Damage([](std::string &s) { s.resize(99 * 72); }) << "99 levels";
        QTest::newRow("foreign byte") << Damage([](std::string &s) { s[500] = '2'; }) << "other than";
        QTest::newRow("fixed level changed")
            << Damage([](std::string &s) { s[99 * 72] = '0'; }) << "level 99 differs";
        QTest::newRow("level repeated")
            << Damage([](std::string &s) { s.replace(30 * 72, 72, s, 31 * 72, 72); }) << "repeat";
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
        std::string store = storedLevels();
        damage(store);
        std::ostringstream out;
        QVERIFY(!checkStoneLevels(store, out));
        QVERIFY2(out.str().find("FAILED: ") != std::string::npos &&
                     out.str().find(failure.toStdString()) != std::string::npos,
                 out.str().c_str());
    }
};

QTEST_APPLESS_MAIN(TestStoneLevels)
#include "tst_stone_levels.moc"

#include "check_pairs.h"
#include "solve_pairs.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <sstream>
#include <string>

namespace {

std::string storedLevels()
{
    QFile file(LEVELS_DIR "/niveaux3.dat");
    if (!file.open(QIODevice::ReadOnly)) return {};
    return file.readAll().toStdString();
}

PairBoard storedLevel(const std::string &store, int level)
{
    PairBoard board;
    board.LitNiveau3(store, level);
    return board;
}

// Plays the moves through the model, failing the test at the first pair that does not match.
void replayToEmpty(PairBoard board, const std::vector<PairMove> &moves)
{
    for (const auto &[first, second] : moves) {
        QVERIFY(first != second);
        QVERIFY(board.tabPions3[first % 9][first / 9] != 0);
        board.Selectionne3(first % 9, first / 9);
        QVERIFY(board.Pareil3(second % 9, second / 9));
        board.Retire3(second % 9, second / 9);
    }
    QVERIFY(board.Vide3());
}

} // namespace

class TestPairLevels : public QObject {
    Q_OBJECT

private slots:
    void solutionsEmptyEverySolvableLevel()
    {
        const std::string store = storedLevels();
        QCOMPARE(store.size(), size_t(9720));
        for (int level = 0; level < 120; ++level) {
            if (level == 18 || level == 35) continue;
            const PairBoard board = storedLevel(store, level);
            const auto moves = solvePairs(board);
            QVERIFY2(moves.has_value(), qPrintable(QString("level %1").arg(level)));
            replayToEmpty(board, *moves);
        }
    }

    void oddParityLevelsHaveNoSolution()
    {
        const std::string store = storedLevels();
        QCOMPARE(pairParity(storedLevel(store, 18)), 119);
        QCOMPARE(pairParity(storedLevel(store, 35)), 59);
        QVERIFY(!solvePairs(storedLevel(store, 18)).has_value());
        QVERIFY(!solvePairs(storedLevel(store, 35)).has_value());
    }

    void parityCountsPipsAndTouchingPairs()
    {
        std::string rows(81, '0');
        rows.replace(0, 3, "14a");
        rows[9] = 'T';
        PairBoard board;
        board.LitNiveau3(rows, 0);
        // Pips 1 + 4 + 1 + 4, touching pairs 1-4, 4-a, 1-T.
        QCOMPARE(pairParity(board), 13);
        QVERIFY(!solvePairs(board).has_value());
    }

    void solverGivesUpWhenItsBudgetRunsOut()
    {
        const std::string store = storedLevels();
        QVERIFY(!solvePairs(storedLevel(store, 95), 3).has_value());
        QVERIFY(solvePairs(storedLevel(store, 95)).has_value());
    }

    void checkerAcceptsTheShippedStore()
    {
        std::ostringstream out;
        QVERIFY2(checkPairLevels(storedLevels(), out), out.str().c_str());
        QVERIFY(out.str().find("118 of 118") != std::string::npos);
    }

    void checkerRejectsCorruptedStores_data()
    {
        QTest::addColumn<QString>("change");
        QTest::newRow("byte outside the alphabet") << "alien";
        QTest::newRow("fixed record changed") << "fixed";
        QTest::newRow("tile taken away") << "remove";
        QTest::newRow("tile of another colour") << "recolour";
        QTest::newRow("one pip more, so P odd") << "pip";
        QTest::newRow("two levels equal") << "copy";
        QTest::newRow("store cut short") << "cut";
    }

    void checkerRejectsCorruptedStores()
    {
        QFETCH(QString, change);
        std::string store = storedLevels();
        const size_t tile = store.find_first_not_of('0', 50 * 81);
        const char blue = static_cast<char>('1' + (store[tile] - 49) % 16);
        if (change == "alien") store[tile] = 'Z';
        if (change == "fixed") store[95 * 81] = '4';
        if (change == "remove") store[tile] = '0';
        if (change == "recolour") store[tile] = blue == store[tile] ? 'A' : blue;
        if (change == "pip") store[tile] = static_cast<char>(store[tile] % 16 == 4 ? store[tile] - 3 : store[tile] + 1);
        if (change == "copy") store.replace(61 * 81, 81, store, 60 * 81, 81);
        if (change == "cut") store.resize(store.size() - 81);
        std::ostringstream out;
        QVERIFY(!checkPairLevels(store, out));
        QVERIFY(out.str().find("FAILED") != std::string::npos);
    }

    // A level built backwards from an empty board by the take-back of the model is emptied
    // by its pairs played forwards.
    void levelBuiltBackwardsIsSolvedForwards()
    {
        QRandomGenerator random(77);
        for (int round = 0; round < 20; ++round) {
            std::vector<int> cells;
            for (int c = 0; c < 81; ++c) cells.push_back(c);
            PairBoard board;
            std::vector<PairMove> moves;
            for (int pair = 0; pair < 8 + round; ++pair) {
                const int first = cells.at(random.bounded(int(cells.size())));
                std::erase(cells, first);
                int second = cells.at(random.bounded(int(cells.size())));
                if (pair % 2 == 0 && first % 9 < 8 && std::find(cells.begin(), cells.end(), first + 1) != cells.end())
                    second = first + 1;
                std::erase(cells, second);
                moves.emplace_back(first, second);
                board.iCoup3 += 1;
                board.tabCoupA3[board.iCoup3] = first;
                board.tabCoupB3[board.iCoup3] = second;
                board.tabCoupV3[board.iCoup3] = 49 + 16 * random.bounded(4) + random.bounded(4);
            }
            while (board.iCoup3 >= 0) board.Annule3();
            QVERIFY(!board.Vide3());
            replayToEmpty(board, moves);
            const auto found = solvePairs(board);
            QVERIFY(found.has_value());
            replayToEmpty(board, *found);
        }
    }
};

QTEST_APPLESS_MAIN(TestPairLevels)
#include "tst_pair_levels.moc"

// SPDX-License-Identifier: MIT
// The pairs game: its board model worked by hand and at random, the solver's limits, and the store's
// check, which solves every stored level and plays the solution on the real board.
#include "check_pairs.h"
#include "level_edits.h"
#include "solve_pairs.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

namespace {

std::string storedLevels()
{
    QFile file(LEVELS_DIR "/niveaux3.dat");
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

// A board read from a store of nine rows of nine bytes per level.
PairBoard boardOf(const std::string &store, int level = 0)
{
    PairBoard board;
    board.LitNiveau3(store, level);
    return board;
}

// A board with the single row `row` at row 4, from column 0.
PairBoard boardWithRow(const std::string &row) { return boardOf(std::string(81, '0').replace(36, row.size(), row)); }

char byteAt(const PairBoard &board, int x, int y)
{
    return board.tabPions3[x][y] == 0 ? '.' : static_cast<char>(board.tabPions3[x][y]);
}

bool sameCells(const PairBoard &a, const PairBoard &b)
{
    return std::equal(&a.tabPions3[0][0], &a.tabPions3[0][0] + 100, &b.tabPions3[0][0]);
}

// The second cells that match `first` once it is selected.
std::vector<int> matchesOf(PairBoard board, int first)
{
    std::vector<int> found;
    board.Selectionne3(first % 9, first / 9);
    for (int c = 0; c < 81; ++c)
        if (c != first && board.tabPions3[c % 9][c / 9] != 0 && board.Pareil3(c % 9, c / 9)) found.push_back(c);
    return found;
}

} // namespace

class TestPairLevels : public QObject {
    Q_OBJECT

    const std::string store = storedLevels();

private slots:
    // Reading a level forgets the pairs played and the selection.
    void readingALevelForgetsThePlay()
    {
        QCOMPARE(store.size(), size_t(9720));
        PairBoard board = boardOf(store);
        const PairBoard fresh = board;
        board.Selectionne3(5, 3);
        board.Retire3(3, 3);
        board.Selectionne3(3, 2);
        board.LitNiveau3(store, 0);
        QCOMPARE((std::pair{board.iCoup3, board.iChoix3}), (std::pair{-1, -1}));
        QVERIFY(sameCells(board, fresh));
    }

    void turningStaysInItsColour_data()
    {
        QTest::addColumn<char>("high");
        QTest::addColumn<char>("low");
        QTest::newRow("blue") << '4' << '1';
        QTest::newRow("red") << 'D' << 'A';
        QTest::newRow("green") << 'T' << 'Q';
        QTest::newRow("yellow") << 'd' << 'a';
    }
    void turningStaysInItsColour()
    {
        QFETCH(char, high);
        QFETCH(char, low);
        PairBoard board = boardWithRow(std::string("1") + high);
        board.TourneVoisins3(0, 4);
        QCOMPARE(byteAt(board, 1, 4), low);
        board.DetourneVoisins3(0, 4);
        QCOMPARE(byteAt(board, 1, 4), high);
        board.DetourneVoisins3(0, 4);
        QCOMPARE(byteAt(board, 1, 4), char(high - 1));
        QCOMPARE(byteAt(board, 0, 4), '1');
    }

    // A tile matches by the value its selection turned the other to; a lonely one turns nothing.
    void pairingRule_data()
    {
        QTest::addColumn<QString>("row");
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("second");
        QTest::addColumn<bool>("match");
        QTest::newRow("1 turns 4 to 1") << "14" << 0 << 1 << true;
        QTest::newRow("1 turns 1 to 2, from the left") << "11" << 0 << 1 << false;
        QTest::newRow("1 turns 1 to 2, from the right") << "11" << 1 << 0 << false;
        QTest::newRow("lonely tiles") << "1010" << 0 << 2 << true;
    }
    void pairingRule()
    {
        QFETCH(QString, row);
        QFETCH(int, first);
        QFETCH(int, second);
        QFETCH(bool, match);
        PairBoard board = boardWithRow(row.toStdString());
        const PairBoard before = board;
        board.Selectionne3(first, 4);
        if (std::abs(second - first) > 1) QVERIFY(sameCells(board, before));
        QCOMPARE(board.Pareil3(second, 4), match);
        if (!match) return;
        board.Retire3(second, 4);
        QVERIFY(board.Vide3());
    }

    // Tiles in the corners turn only the neighbours on the board, never the spare row and column.
    void cornersLeaveTheSpareRowAndColumnAlone()
    {
        PairBoard board = boardOf(std::string(81, '1'));
        for (int i = 0; i < 10; ++i) board.tabPions3[9][i] = board.tabPions3[i][9] = 7;
        const PairBoard before = board;
        const auto spareHeld = [&board] {
            for (int i = 0; i < 10; ++i)
                if (board.tabPions3[9][i] != 7 || board.tabPions3[i][9] != 7) return false;
            return true;
        };
        board.Selectionne3(8, 8);
        QVERIFY(spareHeld());
        QCOMPARE((std::string{byteAt(board, 7, 8), byteAt(board, 8, 7), byteAt(board, 7, 7)}), std::string("221"));
        board.Retire3(0, 0);
        QVERIFY(spareHeld());
        QCOMPARE((std::string{byteAt(board, 1, 0), byteAt(board, 0, 1), byteAt(board, 1, 1)}), std::string("221"));
        board.Annule3();
        QVERIFY(sameCells(board, before));
    }

    // Random pairs on every stored level, each position kept, then all taken back one by one.
    void takingBackRestoresEveryPosition()
    {
        QRandomGenerator random(1951);
        int touchingPairs = 0;
        for (int level = 0; level < 120; ++level) {
            PairBoard board = boardOf(store, level);
            QVERIFY(!board.Vide3());
            std::vector<PairBoard> seen{board};
            for (int tries = 0; tries < 200 && !board.Vide3(); ++tries) {
                const int first = random.bounded(81);
                if (board.tabPions3[first % 9][first / 9] == 0) continue;
                const std::vector<int> matches = matchesOf(board, first);
                if (matches.empty()) continue;
                const int second = matches[random.bounded(int(matches.size()))];
                const int distance = std::abs(second - first);
                touchingPairs += distance == 9 || (distance == 1 && second / 9 == first / 9);
                board.Selectionne3(first % 9, first / 9);
                board.Retire3(second % 9, second / 9);
                seen.push_back(board);
            }
            QCOMPARE(board.iCoup3, int(seen.size()) - 2);
            while (board.iCoup3 >= 0) {
                board.Annule3();
                seen.pop_back();
                QVERIFY2(sameCells(board, seen.back()), qPrintable(QString("level %1").arg(level)));
            }
        }
        QVERIFY(touchingPairs > 20);
    }

    void solverGivesUpWhenItsBudgetRunsOut()
    {
        QVERIFY(!solvePairs(boardOf(store, 95), 3).has_value());
        QVERIFY(solvePairs(boardOf(store, 95)).has_value());
    }

    void checkerAcceptsTheShippedStore()
    {
        std::ostringstream out;
        QVERIFY2(checkPairLevels(store, out).ok, out.str().c_str());
        QVERIFY(out.str().find("118 of 118") != std::string::npos);
    }

    void checkerRejectsCorruptedStores_data()
    {
        QTest::addColumn<QString>("change");
        QTest::addColumn<QString>("complaint");
        QTest::newRow("alien") << "alien" << "is not a tile or '0'";
        QTest::newRow("fixed") << "fixed" << "level 95 differs from its fixed record";
        QTest::newRow("remove") << "remove" << "level 50 has an odd number of tiles of some colour";
        QTest::newRow("pip") << "pip" << "level 50 has an odd P";
        QTest::newRow("mirror") << "mirror" << "level 61 repeats level 60";
        QTest::newRow("colours swapped") << "colours swapped" << "level 61 repeats level 60";
        QTest::newRow("easy last") << "easy last" << "level 110 of the last quarter is easier";
        QTest::newRow("cut") << "cut" << "the store must hold 120 levels";
    }
    void checkerRejectsCorruptedStores()
    {
        QFETCH(QString, change);
        QFETCH(QString, complaint);
        std::string damaged = store;
        const size_t tile = damaged.find_first_not_of('0', 50 * 81);
        char &t = damaged[tile];
        // Level 60 with each colour moved on by one and the pips of its blue tiles turned.
        std::string recoloured = store.substr(60 * 81, 81);
        for (char &c : recoloured) {
            if (c == '0') continue;
            const int colour = (c - 48) / 16, pips = (c - 48) % 16;
            c = static_cast<char>(48 + 16 * ((colour + 1) % 4) + (colour == 0 ? pips % 4 + 1 : pips));
        }
        if (change == "alien") t = 'Z';                                          // a byte outside the alphabet
        if (change == "fixed") damaged[95 * 81] = '4';                           // a fixed record changed
        if (change == "remove") t = '0';                                         // a tile taken away
        if (change == "pip") t = static_cast<char>(t % 16 == 4 ? t - 3 : t + 1); // one pip more, so P odd
        if (change == "mirror")
            damaged.replace(61 * 81, 81, movedLevel(store.substr(60 * 81, 81), 9, 9, [](int x, int y) { return std::pair{-x, y}; }));
        if (change == "colours swapped") damaged.replace(61 * 81, 81, recoloured);
        if (change == "easy last") damaged = withLevelsSwapped(damaged, 81, 3, 110);
        if (change == "cut") damaged.resize(damaged.size() - 81); // the store cut short
        std::ostringstream out;
        QVERIFY(!checkPairLevels(damaged, out).ok);
        QVERIFY2(out.str().find("FAILED: ") != std::string::npos && out.str().find(complaint.toStdString()) != std::string::npos,
                 out.str().c_str());
    }
};

QTEST_APPLESS_MAIN(TestPairLevels)
#include "tst_pair_board_and_levels.moc"

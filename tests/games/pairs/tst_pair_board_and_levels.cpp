// SPDX-License-Identifier: MIT
// The pairs game: its board model worked by hand, the solver's limits, and the store's check, which
// solves every stored level and plays the solution on the real board.
#include "check_pairs.h"
#include "level_edits.h"
#include "solve_pairs.h"

#include <QFile>
#include <QTest>

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <string>

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

    // Each colour's 4 turns to its 1 and back, and taken back once more to its 3; the turning tile stays.
    void turningStaysInItsColour()
    {
        for (const char *highLow : {"41", "DA", "TQ", "da"}) {
            PairBoard board = boardWithRow(std::string("1") + highLow[0]);
            board.TourneVoisins3(0, 4);
            const char turned = byteAt(board, 1, 4);
            board.DetourneVoisins3(0, 4);
            const char back = byteAt(board, 1, 4);
            board.DetourneVoisins3(0, 4);
            QCOMPARE((std::string{turned, back, byteAt(board, 1, 4), byteAt(board, 0, 4)}),
                     (std::string{highLow[1], highLow[0], char(highLow[0] - 1), '1'}));
        }
    }

    // A tile matches by the value its selection turned the other to; a lonely one turns nothing.
    void pairingRule()
    {
        struct Case {
            const char *row;
            int first, second;
            bool match;
        };
        for (const Case &c : {Case{"14", 0, 1, true}, Case{"11", 0, 1, false}, Case{"11", 1, 0, false},
                              Case{"1010", 0, 2, true}}) {
            PairBoard board = boardWithRow(c.row);
            const PairBoard before = board;
            board.Selectionne3(c.first, 4);
            QVERIFY(std::abs(c.second - c.first) == 1 || sameCells(board, before));
            QCOMPARE(board.Pareil3(c.second, 4), c.match);
            if (!c.match) continue;
            board.Retire3(c.second, 4);
            QVERIFY(board.Vide3());
        }
    }

    // Tiles in the corners turn only the neighbours on the board, never the spare row and column.
    void cornersLeaveTheSpareRowAndColumnAlone()
    {
        PairBoard board = boardOf(std::string(81, '1'));
        for (int i = 0; i < 10; ++i) board.tabPions3[9][i] = board.tabPions3[i][9] = 7;
        const PairBoard before = board;
        board.Selectionne3(8, 8);
        QCOMPARE((std::string{byteAt(board, 7, 8), byteAt(board, 8, 7), byteAt(board, 7, 7)}), std::string("221"));
        board.Retire3(0, 0);
        QCOMPARE((std::string{byteAt(board, 1, 0), byteAt(board, 0, 1), byteAt(board, 1, 1)}), std::string("221"));
        for (int i = 0; i < 10; ++i) QVERIFY(board.tabPions3[9][i] == 7 && board.tabPions3[i][9] == 7);
        board.Annule3();
        QVERIFY(sameCells(board, before));
    }

    void solverAndStoreCheck()
    {
        QVERIFY(!solvePairs(boardOf(store, 95), 3).has_value());
        QVERIFY(solvePairs(boardOf(store, 95)).has_value());
        std::ostringstream shipped;
        QVERIFY2(checkPairLevels(store, shipped).ok, shipped.str().c_str());
        QVERIFY(shipped.str().find("118 of 118") != std::string::npos);
        const size_t tile = store.find_first_not_of('0', 50 * 81);
        const char t = store[tile];
        const auto changed = [this](size_t at, char byte) { return std::string(store).replace(at, 1, 1, byte); };
        const auto mirrored = [](int x, int y) { return std::pair{-x, y}; };
        const std::pair<std::string, const char *> cases[] = {
            {changed(tile, 'Z'), "is not a tile or '0'"},
            {changed(95 * 81, '4'), "level 95 differs from its fixed record"},
            {changed(tile, '0'), "level 50 has an odd number of tiles of some colour"},
            {changed(tile, char(t % 16 == 4 ? t - 3 : t + 1)), "level 50 has an odd P"}, // one pip more
            {std::string(store).replace(61 * 81, 81, movedLevel(store.substr(60 * 81, 81), 9, 9, mirrored)),
             "level 61 repeats level 60"},
            {withLevelsSwapped(store, 81, 3, 110), "level 110 of the last quarter is easier"},
            {store.substr(0, store.size() - 81), "the store must hold 120 levels"},
        };
        for (const auto &[damaged, complaint] : cases) {
            std::ostringstream out;
            QVERIFY(!checkPairLevels(damaged, out).ok);
            QVERIFY2(out.str().find("FAILED: ") != std::string::npos && out.str().find(complaint) != std::string::npos,
                     out.str().c_str());
        }
    }
};

QTEST_APPLESS_MAIN(TestPairLevels)
#include "tst_pair_board_and_levels.moc"

// SPDX-License-Identifier: MIT
// The tiles game: its board model worked by hand, and the store's check, which solves
// every stored level and replays the solution on the real board.
#include "check_tiles.h"
#include "level_edits.h"
#include "solve_tiles.h"
#include "tile_board.h"

#include <QFile>
#include <QTest>

#include <algorithm>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr int32_t kCells = TileBoard::kOctetsParNiveau;
constexpr int32_t kSocle = TileBoard::kSocle;

std::string readStore()
{
    QFile file(QStringLiteral(LEVELS_DIR "/niveaux1.dat"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

int32_t at(const TileBoard &board, int32_t code) { return board.tabJeu1[code % 8][code / 8]; }
void place(TileBoard &board, int32_t code) { board.Pose1(code % 8, code / 8); }

TileBoard loaded(std::string_view store, int32_t n)
{
    TileBoard board;
    board.LitNiveau1(store, n);
    return board;
}

std::vector<int32_t> cellsOf(std::string_view store, int32_t n)
{
    std::vector<int32_t> cells;
    for (int32_t code = 0; code < kCells; ++code)
        if (store[n * kCells + code] != '0') cells.push_back(code);
    return cells;
}

std::string withLevel(std::string store, int32_t n, const std::string &record)
{
    return store.replace(n * kCells, kCells, record);
}

} // namespace

class TestTileLevels : public QObject {
    Q_OBJECT

    std::string store;

private slots:
    void initTestCase()
    {
        store = readStore();
        QCOMPARE(store.size(), size_t(4000));
    }

    void levelZeroCompletesOnlyInTheRightOrder()
    {
        TileBoard board = loaded(store, 0);
        for (int32_t i = 0, order[5] = {4, 3, 0, 1, 2}; i < 5; ++i) {
            QVERIFY(!board.Complet1());
            board.Pose1(3, order[i]);
        }
        QCOMPARE(std::vector<int32_t>(board.tabCoups1, board.tabCoups1 + board.iCoup1 + 1),
                 (std::vector<int32_t>{35, 27, 3, 11, 19}));
        QVERIFY(board.Complet1());
        // Top to bottom fills every socket wrongly.
        board = loaded(store, 0);
        for (int32_t y = 0; y < 5; ++y) board.Pose1(3, y);
        QCOMPARE((std::vector<int32_t>{at(board, 3), at(board, 11), at(board, 19), at(board, 27), at(board, 35)}),
                 (std::vector<int32_t>{2, 2, 2, 2, 1}));
        QVERIFY(!board.Complet1());
    }

    void levelOneCentreFallsFromFourToOneAndBack()
    {
        TileBoard board = loaded(store, 1);
        for (int32_t code : {19, 20, 21, 27, 35, 11, 3}) place(board, code);
        QCOMPARE(board.tabJeu1[3][2], 4);
        board.Pose1(2, 2);
        QCOMPARE(board.tabJeu1[3][2], 1);
        board.Annule1();
        QCOMPARE(board.tabJeu1[3][2], 4);
        QCOMPARE(board.tabJeu1[2][2], kSocle);
        board.Pose1(2, 2);
        QVERIFY(!board.Complet1());
        board.Pose1(1, 2);
        QVERIFY(board.Complet1());
        // Without the fall it has no solution; with it, the centre takes all four neighbours first.
        QVERIFY(solveTiles(loaded(store, 0), false).has_value());
        QVERIFY(!solveTiles(loaded(store, 1), false).has_value());
        const auto order = solveTiles(loaded(store, 1), true);
        QVERIFY(order.has_value());
        QCOMPARE(order->front(), 2 * 8 + 3);
    }

    void placementsStayWithinTheBoard()
    {
        // Every cell of the board, placed row by row: no neighbour outside the board,
        // and no wrap from the end of one row to the start of the next.
        TileBoard board = loaded(std::string(kCells, '1'), 0);
        for (int32_t code = 0; code < kCells; ++code) {
            place(board, code);
            for (int32_t i = 0; i < 9; ++i)
                QVERIFY(board.tabJeu1[8][std::min(i, 5)] == 0 && board.tabCible1[8][std::min(i, 5)] == 0
                        && board.tabJeu1[i][5] == 0 && board.tabCible1[i][5] == 0);
        }
        // Placed later: the row below (1) and the right neighbour (1), except on the edges.
        QCOMPARE((std::vector<int32_t>{at(board, 0), at(board, 7), at(board, 32), at(board, 39), at(board, 19)}),
                 (std::vector<int32_t>{3, 2, 2, 1, 3}));
    }

    void storeCheck()
    {
        std::ostringstream shipped;
        QVERIFY2(checkTileLevels(store, shipped).ok, shipped.str().c_str());
        QVERIFY(shipped.str().find("levels needing the fall") != std::string::npos);
        QVERIFY(shipped.str().find("FAILED") == std::string::npos);
        for (int32_t n = 0; n < 100; ++n) QVERIFY2(!loaded(store, n).Complet1(), qPrintable(QString::number(n)));
        std::string oneCellChanged = store;
        char &cell = oneCellChanged[50 * kCells + cellsOf(store, 50).front()];
        cell = cell == '4' ? '1' : static_cast<char>(cell + 1);
        int32_t solvableWithoutFall = 3;
        while (!solveTiles(loaded(store, solvableWithoutFall), false)) ++solvableWithoutFall;
        std::string middleReversed = store;
        for (int32_t n = 21; n < 49; ++n) middleReversed = withLevelsSwapped(middleReversed, kCells, n, 97 - n);
        const auto mirrored = [](int x, int y) { return std::pair{-x, y}; };
        const std::pair<std::string, const char *> cases[] = {
            {oneCellChanged, "level 50 has no solution"},
            {withLevel(store, 20, "0000000000142000004310000013200000000001"), "level 20 differs"},
            {withLevel(store, 51, movedLevel(store.substr(50 * kCells, kCells), 8, 5, mirrored)),
             "level 51 repeats level 50"},
            {withLevelsSwapped(store, kCells, 3, 97), "easier than the median of the first"},
            {middleReversed, "rises too unevenly"},
            {store.substr(20 * kCells) + store.substr(0, 20 * kCells), "no more cells on average"},
            {store.substr(0, store.size() - 1), "not a multiple of 40"},
            {store.substr(0, store.size() - kCells), "99 levels"},
            {withLevel(store, 60, std::string(kCells, '5')), "is not one of"},
            {withLevel(store, solvableWithoutFall, "0001000000020000012121000002000000010001"),
             "levels need the fall, not 53"},
            {withLevel(store, 78, store.substr(77 * kCells, kCells)), "only level with 37 cells"},
        };
        for (const auto &[damaged, complaint] : cases) {
            std::ostringstream out;
            QVERIFY(!checkTileLevels(damaged, out).ok);
            QVERIFY2(out.str().find("FAILED: ") != std::string::npos && out.str().find(complaint) != std::string::npos,
                     out.str().c_str());
        }
    }
};

QTEST_APPLESS_MAIN(TestTileLevels)
#include "tst_tile_board_and_levels.moc"

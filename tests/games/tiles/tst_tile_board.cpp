#include "tile_board.h"

#include <QFile>
#include <QTest>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr int32_t kCellsOnBoard = TileBoard::kOctetsParNiveau;

std::string readStore()
{
    QFile file(QStringLiteral(LEVELS_DIR "/niveaux1.dat"));
    if (!file.open(QIODevice::ReadOnly)) return {};
    return file.readAll().toStdString();
}

int32_t below(std::mt19937 &rng, int32_t n)
{
    return static_cast<int32_t>((static_cast<uint64_t>(rng()) * static_cast<uint64_t>(n)) >> 32);
}

void place(TileBoard &board, int32_t code) { board.Pose1(code % TileBoard::kColonnes, code / TileBoard::kColonnes); }

int32_t at(const TileBoard &board, int32_t x, int32_t y) { return board.tabJeu1[x][y]; }

// Names the first place where two boards differ, unused column and row included.
std::string firstDifference(const TileBoard &a, const TileBoard &b)
{
    for (int32_t x = 0; x < 9; ++x)
        for (int32_t y = 0; y < 6; ++y) {
            if (a.tabJeu1[x][y] != b.tabJeu1[x][y])
                return "tabJeu1(" + std::to_string(x) + "," + std::to_string(y) + ")";
            if (a.tabCible1[x][y] != b.tabCible1[x][y])
                return "tabCible1(" + std::to_string(x) + "," + std::to_string(y) + ")";
        }
    for (int32_t i = 0; i < 51; ++i)
        if (a.tabCoups1[i] != b.tabCoups1[i]) return "tabCoups1(" + std::to_string(i) + ")";
    if (a.iCoup1 != b.iCoup1) return "iCoup1";
    return {};
}

// Checks what must hold between two operations; empty when all of it does.
std::string brokenInvariant(const TileBoard &board)
{
    std::vector<bool> named(kCellsOnBoard, false);
    for (int32_t i = 0; i <= board.iCoup1; ++i) {
        const int32_t code = board.tabCoups1[i];
        if (code < 0 || code >= kCellsOnBoard || named[code]) return "bad history entry " + std::to_string(i);
        named[code] = true;
    }
    for (int32_t i = board.iCoup1 + 1; i < 51; ++i)
        if (board.tabCoups1[i] != -1) return "history entry " + std::to_string(i) + " is not free";
    for (int32_t code = 0; code < kCellsOnBoard; ++code) {
        const int32_t x = code % TileBoard::kColonnes, y = code / TileBoard::kColonnes;
        const int32_t v = board.tabJeu1[x][y];
        if ((v == TileBoard::kHorsJeu) != (board.tabCible1[x][y] == 0))
            return "cell kind changed at " + std::to_string(code);
        if ((v >= 1 && v <= 4) != named[code]) return "placed tiles and history disagree at " + std::to_string(code);
        if (v != TileBoard::kSocle && v != TileBoard::kHorsJeu && (v < 1 || v > 4))
            return "value out of range at " + std::to_string(code);
    }
    return {};
}

// A one-level store from five rows.
std::string levelOf(const char *r0, const char *r1, const char *r2, const char *r3, const char *r4)
{
    return std::string(r0) + r1 + r2 + r3 + r4;
}

} // namespace

class TestTileBoard : public QObject {
    Q_OBJECT

private:
    std::string store;

private slots:
    void initTestCase()
    {
        store = readStore();
        QCOMPARE(store.size(), size_t(4000));
    }

    void levelZeroCompletesOnlyOnItsFifthPlacement()
    {
        TileBoard board;
        board.LitNiveau1(store, 0);
        const int32_t order[5][2] = {{3, 4}, {3, 3}, {3, 0}, {3, 1}, {3, 2}};
        for (int32_t i = 0; i < 5; ++i) {
            QVERIFY(!board.Complet1());
            board.Pose1(order[i][0], order[i][1]);
            QCOMPARE(board.iCoup1, i);
            QCOMPARE(board.tabCoups1[i], order[i][1] * 8 + order[i][0]);
        }
        QVERIFY(board.Complet1());
    }

    void levelZeroTopToBottomFillsEverySocketWrongly()
    {
        TileBoard board;
        board.LitNiveau1(store, 0);
        for (int32_t y = 0; y < 5; ++y) board.Pose1(3, y);
        const int32_t expected[5] = {2, 2, 2, 2, 1};
        for (int32_t y = 0; y < 5; ++y) QCOMPARE(at(board, 3, y), expected[y]);
        QVERIFY(!board.Complet1());
    }

    void levelOneCentreFallsFromFourToOneAndBack()
    {
        TileBoard board;
        board.LitNiveau1(store, 1);
        const int32_t order[9][2] = {{3, 2}, {4, 2}, {5, 2}, {3, 3}, {3, 4}, {3, 1}, {3, 0}, {2, 2}, {1, 2}};
        for (int32_t i = 0; i < 7; ++i) board.Pose1(order[i][0], order[i][1]);
        QCOMPARE(at(board, 3, 2), 4);
        board.Pose1(2, 2);
        QCOMPARE(at(board, 3, 2), 1);
        board.Annule1();
        QCOMPARE(at(board, 3, 2), 4);
        QCOMPARE(at(board, 2, 2), int32_t(TileBoard::kSocle));
        board.Pose1(2, 2);
        QVERIFY(!board.Complet1());
        board.Pose1(1, 2);
        QVERIFY(board.Complet1());
    }

    void placementsStayWithinTheBoard()
    {
        // Every cell of the board, placed row by row: no neighbour outside the board,
        // and no wrap from the end of one row to the start of the next.
        TileBoard board;
        board.LitNiveau1(std::string(kCellsOnBoard, '1'), 0);
        for (int32_t code = 0; code < kCellsOnBoard; ++code) {
            place(board, code);
            for (int32_t y = 0; y < 6; ++y) {
                QCOMPARE(board.tabJeu1[8][y], 0);
                QCOMPARE(board.tabCible1[8][y], 0);
            }
            for (int32_t x = 0; x < 9; ++x) {
                QCOMPARE(board.tabJeu1[x][5], 0);
                QCOMPARE(board.tabCible1[x][5], 0);
            }
        }
        // Placed later: the row below (1) and the right neighbour (1), except on the edges.
        QCOMPARE(at(board, 0, 0), 3);
        QCOMPARE(at(board, 7, 0), 2);
        QCOMPARE(at(board, 0, 4), 2);
        QCOMPARE(at(board, 7, 4), 1);
        QCOMPARE(at(board, 3, 2), 3);
    }

    void socketsAndNonCellsAreLeftAlone()
    {
        TileBoard board;
        board.LitNiveau1(levelOf("00000000", "00100000", "01110000", "00000000", "00000000"), 0);
        board.Pose1(2, 2);
        QCOMPARE(at(board, 1, 2), int32_t(TileBoard::kSocle));
        QCOMPARE(at(board, 3, 2), int32_t(TileBoard::kSocle));
        QCOMPARE(at(board, 2, 1), int32_t(TileBoard::kSocle));
        QCOMPARE(at(board, 2, 3), int32_t(TileBoard::kHorsJeu));
        board.Pose1(2, 1);
        QCOMPARE(at(board, 2, 2), 2);
        QCOMPARE(at(board, 1, 1), int32_t(TileBoard::kHorsJeu));
        QCOMPARE(at(board, 2, 0), int32_t(TileBoard::kHorsJeu));
        board.Annule1();
        QCOMPARE(at(board, 2, 2), 1);
        QCOMPARE(at(board, 2, 1), int32_t(TileBoard::kSocle));
    }

    void everyStoredLevelStartsIncomplete()
    {
        TileBoard board;
        for (int32_t n = 0; n < 100; ++n) {
            board.LitNiveau1(store, n);
            QVERIFY2(!board.Complet1(), qPrintable(QStringLiteral("level %1").arg(n)));
            QVERIFY2(brokenInvariant(board).empty(), qPrintable(QStringLiteral("level %1").arg(n)));
        }
    }

    void takeBacksRestoreEveryStepOnEveryLevel()
    {
        std::mt19937 rng(7);
        for (int32_t n = 0; n < 100; ++n) {
            TileBoard board;
            board.LitNiveau1(store, n);
            std::vector<int32_t> cells;
            for (int32_t code = 0; code < kCellsOnBoard; ++code)
                if (store[n * kCellsOnBoard + code] != '0') cells.push_back(code);
            for (int32_t trial = 0; trial < 6; ++trial) {
                for (int32_t i = static_cast<int32_t>(cells.size()) - 1; i > 0; --i)
                    std::swap(cells[i], cells[below(rng, i + 1)]);
                // The first trial fills the whole level; the others stop somewhere on the way.
                const int32_t length = trial == 0 ? static_cast<int32_t>(cells.size())
                                                  : 1 + below(rng, static_cast<int32_t>(cells.size()));
                std::vector<TileBoard> before;
                for (int32_t i = 0; i < length; ++i) {
                    before.push_back(board);
                    place(board, cells[i]);
                    const std::string broken = brokenInvariant(board);
                    QVERIFY2(broken.empty(), qPrintable(QStringLiteral("level %1: %2").arg(n).arg(broken.c_str())));
                }
                for (int32_t i = length - 1; i >= 0; --i) {
                    board.Annule1();
                    const std::string diff = firstDifference(board, before[i]);
                    QVERIFY2(diff.empty(),
                             qPrintable(QStringLiteral("level %1, take-back %2: %3").arg(n).arg(i).arg(diff.c_str())));
                }
            }
        }
    }
};

QTEST_APPLESS_MAIN(TestTileBoard)
#include "tst_tile_board.moc"

// The tiles game: its board model worked by hand and at random, its solver against a brute force,
// every stored level solved on the real board,
// and the store's check.
#include "check_tiles.h"
#include "level_edits.h"
#include "solve_tiles.h"
#include "tile_board.h"

#include <QFile>
#include <QTest>

#include <algorithm>
#include <cstdint>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr int32_t kCells = TileBoard::kOctetsParNiveau;
constexpr int32_t kSocle = TileBoard::kSocle;
constexpr int32_t kNeighbours[4][2] = {{-1, 0}, {1, 0}, {0, -1}, {0, 1}};

std::string readStore()
{
    QFile file(QStringLiteral(LEVELS_DIR "/niveaux1.dat"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

bool onBoard(int32_t x, int32_t y) { return x >= 0 && x < 8 && y >= 0 && y < 5; }
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

bool wouldFall(const TileBoard &board, int32_t code)
{
    const int32_t x = code % 8, y = code / 8;
    return std::any_of(std::begin(kNeighbours), std::end(kNeighbours), [&](const int32_t *d) {
        return onBoard(x + d[0], y + d[1]) && board.tabJeu1[x + d[0]][y + d[1]] == 4;
    });
}

// True when the tile at (x, y) and all of its neighbours are placed and it does not
// show its target: no later placement can change it.
bool settledWrongly(const TileBoard &board, int32_t x, int32_t y)
{
    if (!onBoard(x, y)) return false;
    const int32_t v = board.tabJeu1[x][y];
    return v >= 1 && v <= 4 && v != board.tabCible1[x][y]
           && std::none_of(std::begin(kNeighbours), std::end(kNeighbours), [&](const int32_t *d) {
                  return onBoard(x + d[0], y + d[1]) && board.tabJeu1[x + d[0]][y + d[1]] == kSocle;
              });
}

// Tries every order of placement on the real board, dropping an order as soon as a
// tile is settled on a wrong value. Without the fall, an order that takes a tile
// past 4 is dropped too, since that tile could never match again.
bool bruteForceSolvable(TileBoard &board, const std::vector<int32_t> &cells, bool withFall)
{
    if (board.iCoup1 + 1 == static_cast<int32_t>(cells.size())) return board.Complet1();
    for (int32_t code : cells) {
        const int32_t x = code % 8, y = code / 8;
        if (at(board, code) != kSocle || (!withFall && wouldFall(board, code))) continue;
        place(board, code);
        bool dead = settledWrongly(board, x, y);
        for (const auto &d : kNeighbours) dead = dead || settledWrongly(board, x + d[0], y + d[1]);
        const bool solved = !dead && bruteForceSolvable(board, cells, withFall);
        board.Annule1();
        if (solved) return true;
    }
    return false;
}

// Replays an order on the real board: true when it places each cell once and completes it,
// and, without the fall, never takes a tile past 4.
bool replaySolves(std::string_view store, int32_t n, const std::vector<int32_t> &order, bool withFall)
{
    TileBoard board = loaded(store, n);
    for (int32_t code : order) {
        if (code < 0 || code >= kCells || at(board, code) != kSocle || (!withFall && wouldFall(board, code)))
            return false;
        place(board, code);
    }
    return board.Complet1();
}

// A small level inside a 5 by 3 window somewhere on the board: up to 9 cells, often
// around one or two crosses so that cells have four neighbours. Its targets are either
// left by a random order of placement or drawn at random.
std::string smallLevel(std::mt19937 &rng)
{
    constexpr int32_t kWidth = 5, kArea = 15, kMostCells = 9;
    const int32_t left = below(rng, 8 - kWidth + 1), top = below(rng, 3);
    std::vector<bool> chosen(kArea, false);
    int32_t count = 0;
    for (int32_t centre = 6; centre <= 8; ++centre) {
        const int32_t cross[5] = {centre, centre - 1, centre + 1, centre - kWidth, centre + kWidth};
        const auto added =
            std::count_if(std::begin(cross), std::end(cross), [&chosen](int32_t k) { return !chosen[k]; });
        if (below(rng, 3) != 0 || count + added >= kMostCells) continue;
        for (int32_t k : cross) chosen[k] = true;
        count += static_cast<int32_t>(added);
    }
    for (const int32_t wanted = count + 1 + below(rng, kMostCells - count); count < wanted;)
        if (const int32_t k = below(rng, kArea); !chosen[k]) chosen[k] = true, ++count;
    std::vector<int32_t> cells;
    for (int32_t k = 0; k < kArea; ++k)
        if (chosen[k]) cells.push_back((top + k / kWidth) * 8 + left + k % kWidth);

    std::string level(kCells, '0');
    const bool drawn = below(rng, 2) == 0;
    if (!drawn) shuffle(cells, rng);
    for (int32_t code : cells) level[code] = drawn ? static_cast<char>('1' + below(rng, 4)) : '1';
    if (drawn) return level;
    TileBoard board = loaded(level, 0);
    for (int32_t code : cells) place(board, code);
    for (int32_t code : cells) level[code] = static_cast<char>('0' + at(board, code));
    return level;
}

std::string withLevel(std::string store, int32_t n, const std::string &record)
{
    return store.replace(n * kCells, kCells, record);
}

bool sameBoard(const TileBoard &a, const TileBoard &b)
{
    return std::equal(&a.tabJeu1[0][0], &a.tabJeu1[0][0] + 54, &b.tabJeu1[0][0])
           && std::equal(&a.tabCible1[0][0], &a.tabCible1[0][0] + 54, &b.tabCible1[0][0])
           && std::equal(a.tabCoups1, a.tabCoups1 + 51, b.tabCoups1) && a.iCoup1 == b.iCoup1;
}

// Checks what must hold between two operations; empty when all of it does.
std::string brokenInvariant(const TileBoard &board)
{
    std::vector<bool> named(kCells, false);
    for (int32_t i = 0; i <= board.iCoup1; ++i) {
        const int32_t code = board.tabCoups1[i];
        if (code < 0 || code >= kCells || named[code]) return "bad history entry " + std::to_string(i);
        named[code] = true;
    }
    for (int32_t i = board.iCoup1 + 1; i < 51; ++i)
        if (board.tabCoups1[i] != -1) return "history entry " + std::to_string(i) + " is not free";
    for (int32_t code = 0; code < kCells; ++code) {
        const int32_t v = at(board, code);
        if ((v == TileBoard::kHorsJeu) != (board.tabCible1[code % 8][code / 8] == 0))
            return "cell kind changed at " + std::to_string(code);
        if ((v >= 1 && v <= 4) != named[code]) return "placed tiles and history disagree at " + std::to_string(code);
        if (v != kSocle && v != TileBoard::kHorsJeu && (v < 1 || v > 4))
            return "value out of range at " + std::to_string(code);
    }
    return {};
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
            QCOMPARE(board.iCoup1, i);
            QCOMPARE(board.tabCoups1[i], order[i] * 8 + 3);
        }
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

    // Every stored level starts incomplete; random orders keep the invariant, and take-backs
    // restore every step.
    void takeBacksRestoreEveryStepOnEveryLevel()
    {
        std::mt19937 rng(7);
        for (int32_t n = 0; n < 100; ++n) {
            TileBoard board = loaded(store, n);
            QVERIFY2(!board.Complet1() && brokenInvariant(board).empty(),
                     qPrintable(QStringLiteral("level %1").arg(n)));
            std::vector<int32_t> cells = cellsOf(store, n);
            for (int32_t trial = 0; trial < 6; ++trial) {
                shuffle(cells, rng);
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
                    QVERIFY2(sameBoard(board, before[i]),
                             qPrintable(QStringLiteral("level %1, take-back %2").arg(n).arg(i)));
                }
            }
        }
    }

    void solverAgreesWithBruteForce()
    {
        std::mt19937 rng(11);
        int32_t unsolvable = 0, needingFall = 0, solvableWithoutFall = 0;
        for (int32_t trial = 0; trial < 1500; ++trial) {
            const std::string level = smallLevel(rng);
            TileBoard board = loaded(level, 0);
            bool solvable[2] = {};
            for (bool withFall : {false, true}) {
                solvable[withFall] = bruteForceSolvable(board, cellsOf(level, 0), withFall);
                const auto order = solveTiles(board, withFall);
                QVERIFY2(order.has_value() == solvable[withFall], level.c_str());
                if (order) QVERIFY2(replaySolves(level, 0, *order, withFall), level.c_str());
            }
            unsolvable += !solvable[true];
            needingFall += solvable[true] && !solvable[false];
            solvableWithoutFall += solvable[false];
        }
        // Each kind of answer must have come up often enough for the comparison to mean something.
        QVERIFY(unsolvable > 300 && needingFall > 60 && solvableWithoutFall > 300);
    }

    void everyStoredLevelIsSolvedOnTheRealBoard()
    {
        for (int32_t n = 0; n < 100; ++n)
            for (bool withFall : {true, false}) {
                const auto order = solveTiles(loaded(store, n), withFall);
                QVERIFY2(order ? replaySolves(store, n, *order, withFall) : !withFall,
                         qPrintable(QStringLiteral("level %1").arg(n)));
            }
    }

    void shippedStorePassesTheCheck()
    {
        std::ostringstream out;
        QVERIFY2(checkTileLevels(store, out).ok, out.str().c_str());
        QVERIFY(out.str().find("levels needing the fall") != std::string::npos);
        QVERIFY(out.str().find("FAILED") == std::string::npos);
    }

    void damagedStoreFailsTheCheck_data()
    {
        QTest::addColumn<QByteArray>("damaged");
        QTest::addColumn<QString>("complaint");
        const std::string good = readStore();
        const auto row = [](const char *name, const std::string &store, const char *complaint) {
            QTest::newRow(name) << QByteArray::fromStdString(store) << QString::fromLatin1(complaint);
        };
        std::string oneCellChanged = good;
        char &cell = oneCellChanged[50 * kCells + cellsOf(good, 50).front()];
        cell = cell == '4' ? '1' : static_cast<char>(cell + 1);
        int32_t solvableWithoutFall = 3;
        while (!solveTiles(loaded(good, solvableWithoutFall), false)) ++solvableWithoutFall;
        row("a cell changed", oneCellChanged, "level 50 has no solution");
        row("a fixed level changed", withLevel(good, 20, "0000000000142000004310000013200000000001"),
            "level 20 differs");
        const std::string level50 = good.substr(50 * kCells, kCells);
        row("a level repeated", withLevel(good, 51, level50), "level 51 repeats level 50");
        row("a level moved and mirrored",
            withLevel(good, 51, movedLevel(level50, 8, 5, [](int x, int y) { return std::pair{-x, y}; })),
            "level 51 repeats level 50");
        const std::string level3Turned =
            movedLevel(good.substr(3 * kCells, kCells), 8, 5, [](int x, int y) { return std::pair{-y, x}; });
        QVERIFY(!level3Turned.empty());
        row("a level turned", withLevel(good, 4, level3Turned), "level 4 repeats level 3");
        row("an easy level last", withLevelsSwapped(good, kCells, 3, 97), "easier than the median of the first");
        std::string middleReversed = good;
        for (int32_t n = 21; n < 49; ++n) middleReversed = withLevelsSwapped(middleReversed, kCells, n, 97 - n);
        row("levels 21 to 76 reversed", middleReversed, "rises too unevenly");
        row("levels out of order", good.substr(20 * kCells) + good.substr(0, 20 * kCells), "no more cells on average");
        row("a level cut short", good.substr(0, good.size() - 1), "not a multiple of 40");
        row("a level missing", good.substr(0, good.size() - kCells), "99 levels");
        row("a foreign byte", withLevel(good, 60, std::string(kCells, '5')), "is not one of");
        row("the fall needed once more",
            withLevel(good, solvableWithoutFall,
                      "00010000"
                      "00020000"
                      "01212100"
                      "00020000"
                      "00010001"),
            "levels need the fall, not 53");
        row("a second level of 37 cells", withLevel(good, 78, good.substr(77 * kCells, kCells)),
            "only level with 37 cells");
    }
    void damagedStoreFailsTheCheck()
    {
        QFETCH(QByteArray, damaged);
        QFETCH(QString, complaint);
        std::ostringstream out;
        QVERIFY(!checkTileLevels(damaged.toStdString(), out).ok);
        QVERIFY2(out.str().find("FAILED: ") != std::string::npos
                     && QString::fromStdString(out.str()).contains(complaint),
                 out.str().c_str());
    }
};

QTEST_APPLESS_MAIN(TestTileLevels)
#include "tst_tile_board_and_levels.moc"

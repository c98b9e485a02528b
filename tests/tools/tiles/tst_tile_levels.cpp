#include "check_tiles.h"
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

bool wouldFall(const TileBoard &board, int32_t code)
{
    const int32_t x = code % TileBoard::kColonnes, y = code / TileBoard::kColonnes;
    return (x > 0 && board.tabJeu1[x - 1][y] == 4) || (x < 7 && board.tabJeu1[x + 1][y] == 4) ||
           (y > 0 && board.tabJeu1[x][y - 1] == 4) || (y < 4 && board.tabJeu1[x][y + 1] == 4);
}

// True when the tile at (x, y) and all of its neighbours are placed and it does not
// show its target: no later placement can change it.
bool settledWrongly(const TileBoard &board, int32_t x, int32_t y)
{
    auto open = [&board](int32_t nx, int32_t ny) {
        return nx >= 0 && nx < 8 && ny >= 0 && ny < 5 && board.tabJeu1[nx][ny] == TileBoard::kSocle;
    };
    const int32_t v = board.tabJeu1[x][y];
    return v >= 1 && v <= 4 && v != board.tabCible1[x][y] && !open(x - 1, y) && !open(x + 1, y) &&
           !open(x, y - 1) && !open(x, y + 1);
}

// Tries every order of placement on the real board, dropping an order as soon as a
// tile is settled on a wrong value. Without the fall, an order that takes a tile
// past 4 is dropped too, since that tile could never match again.
bool bruteForceSolvable(TileBoard &board, const std::vector<int32_t> &cells, bool withFall)
{
    if (board.iCoup1 + 1 == static_cast<int32_t>(cells.size())) return board.Complet1();
    for (int32_t code : cells) {
        const int32_t x = code % TileBoard::kColonnes, y = code / TileBoard::kColonnes;
        if (board.tabJeu1[x][y] != TileBoard::kSocle || (!withFall && wouldFall(board, code))) continue;
        board.Pose1(x, y);
        const bool dead = settledWrongly(board, x, y) || (x > 0 && settledWrongly(board, x - 1, y)) ||
                          (x < 7 && settledWrongly(board, x + 1, y)) || (y > 0 && settledWrongly(board, x, y - 1)) ||
                          (y < 4 && settledWrongly(board, x, y + 1));
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
    TileBoard board;
    board.LitNiveau1(store, n);
    for (int32_t code : order) {
        const int32_t x = code % TileBoard::kColonnes, y = code / TileBoard::kColonnes;
        if (code < 0 || code >= kCellsOnBoard || board.tabJeu1[x][y] != TileBoard::kSocle) return false;
        if (!withFall && wouldFall(board, code)) return false;
        board.Pose1(x, y);
    }
    return board.Complet1();
}

// A small level inside a 5 by 3 window somewhere on the board: up to 9 cells, often
// around one or two crosses so that cells have four neighbours. Its targets are either
// left by a random order of placement or drawn at random.
std::string smallLevel(std::mt19937 &rng)
{
    constexpr int32_t kWidth = 5, kArea = 15, kMostCells = 9;
    const int32_t left = below(rng, TileBoard::kColonnes - kWidth + 1), top = below(rng, 3);
    std::vector<bool> chosen(kArea, false);
    int32_t count = 0;
    for (int32_t centre = 6; centre <= 8; ++centre) {
        const int32_t cross[5] = {centre, centre - 1, centre + 1, centre - kWidth, centre + kWidth};
        const auto added = std::count_if(std::begin(cross), std::end(cross), [&chosen](int32_t k) { return !chosen[k]; });
        if (below(rng, 3) != 0 || count + added >= kMostCells) continue;
        for (int32_t k : cross) chosen[k] = true;
        count += static_cast<int32_t>(added);
    }
    const int32_t wanted = count + 1 + below(rng, kMostCells - count);
    while (count < wanted) {
        const int32_t k = below(rng, kArea);
        if (!chosen[k]) chosen[k] = true, ++count;
    }
    std::vector<int32_t> cells;
    for (int32_t k = 0; k < kArea; ++k)
        if (chosen[k]) cells.push_back((top + k / kWidth) * TileBoard::kColonnes + left + k % kWidth);

    std::string level(kCellsOnBoard, '0');
    if (below(rng, 2) == 0) {
        for (int32_t code : cells) level[code] = static_cast<char>('1' + below(rng, 4));
        return level;
    }
    for (int32_t i = static_cast<int32_t>(cells.size()) - 1; i > 0; --i) std::swap(cells[i], cells[below(rng, i + 1)]);
    for (int32_t code : cells) level[code] = '1';
    TileBoard board;
    board.LitNiveau1(level, 0);
    for (int32_t code : cells) board.Pose1(code % TileBoard::kColonnes, code / TileBoard::kColonnes);
    for (int32_t code : cells)
        level[code] = static_cast<char>('0' + board.tabJeu1[code % TileBoard::kColonnes][code / TileBoard::kColonnes]);
    return level;
}

std::string withLevel(std::string store, int32_t n, const std::string &record)
{
    store.replace(n * kCellsOnBoard, kCellsOnBoard, record);
    return store;
}

} // namespace

class TestTileLevels : public QObject {
    Q_OBJECT

private:
    std::string store;

private slots:
    void initTestCase()
    {
        store = readStore();
        QCOMPARE(store.size(), size_t(4000));
    }

    void solverAgreesWithBruteForce()
    {
        std::mt19937 rng(11);
        int32_t unsolvable = 0, needingFall = 0, solvableWithoutFall = 0;
        for (int32_t trial = 0; trial < 1500; ++trial) {
            const std::string level = smallLevel(rng);
            TileBoard board;
            board.LitNiveau1(level, 0);
            std::vector<int32_t> cells;
            for (int32_t code = 0; code < kCellsOnBoard; ++code)
                if (level[code] != '0') cells.push_back(code);
            bool solvable[2] = {};
            for (bool withFall : {false, true}) {
                solvable[withFall] = bruteForceSolvable(board, cells, withFall);
                const auto order = solveTiles(board, withFall);
                QVERIFY2(order.has_value() == solvable[withFall], level.c_str());
                if (order) QVERIFY2(replaySolves(level, 0, *order, withFall), level.c_str());
            }
            unsolvable += solvable[true] ? 0 : 1;
            needingFall += solvable[true] && !solvable[false] ? 1 : 0;
            solvableWithoutFall += solvable[false] ? 1 : 0;
        }
        // Each kind of answer must have come up often enough for the comparison to mean something.
        QVERIFY(unsolvable > 300);
        QVERIFY(needingFall > 60);
        QVERIFY(solvableWithoutFall > 300);
    }

    void everyStoredLevelIsSolvedOnTheRealBoard()
    {
        for (int32_t n = 0; n < 100; ++n) {
            TileBoard board;
            board.LitNiveau1(store, n);
            const auto order = solveTiles(board, true);
            QVERIFY2(order.has_value(), qPrintable(QStringLiteral("level %1").arg(n)));
            QVERIFY2(replaySolves(store, n, *order, true), qPrintable(QStringLiteral("level %1").arg(n)));
            const auto orderWithoutFall = solveTiles(board, false);
            if (orderWithoutFall)
                QVERIFY2(replaySolves(store, n, *orderWithoutFall, false), qPrintable(QStringLiteral("level %1").arg(n)));
        }
    }

    void firstLevelsNeedTheFallOrNotAsTheirShapesSay()
    {
        TileBoard board;
        board.LitNiveau1(store, 0);
        QVERIFY(solveTiles(board, false).has_value());
        board.LitNiveau1(store, 1);
        QVERIFY(!solveTiles(board, false).has_value());
        const auto order = solveTiles(board, true);
        QVERIFY(order.has_value());
        QCOMPARE(order->front(), 2 * 8 + 3); // the centre takes all four neighbours
    }

    void shippedStorePassesTheCheck()
    {
        std::ostringstream out;
        QVERIFY2(checkTileLevels(store, out), out.str().c_str());
        QVERIFY(out.str().find("levels needing the fall") != std::string::npos);
        QVERIFY(out.str().find("FAILED") == std::string::npos);
    }

    void damagedStoreFailsTheCheck_data()
    {
        QTest::addColumn<QByteArray>("damaged");
        QTest::addColumn<QString>("complaint");
        const std::string good = readStore();

        std::string oneCellChanged = good;
        char &cell = oneCellChanged[50 * kCellsOnBoard + oneCellChanged.substr(50 * kCellsOnBoard).find_first_not_of('0')];
        cell = cell == '4' ? '1' : static_cast<char>(cell + 1);
        const std::string rotated = good.substr(20 * kCellsOnBoard) + good.substr(0, 20 * kCellsOnBoard);
        int32_t solvableWithoutFall = 3;
        for (TileBoard board; board.LitNiveau1(good, solvableWithoutFall), !solveTiles(board, false);) ++solvableWithoutFall;
        const std::string fixedChanged = withLevel(good, 20, "0000000000142000004310000013200000000001");

        QTest::newRow("a cell changed") << QByteArray::fromStdString(oneCellChanged) << "level 50 has no solution";
        QTest::newRow("a fixed level changed") << QByteArray::fromStdString(fixedChanged) << "level 20 differs";
        QTest::newRow("a level repeated") << QByteArray::fromStdString(withLevel(good, 51, good.substr(50 * kCellsOnBoard, kCellsOnBoard)))
                                          << "repeat an earlier one";
        QTest::newRow("levels out of order") << QByteArray::fromStdString(rotated) << "no more cells on average";
        QTest::newRow("a level cut short") << QByteArray::fromStdString(good.substr(0, good.size() - 1)) << "not a multiple of 40";
        QTest::newRow("a level missing") << QByteArray::fromStdString(good.substr(0, good.size() - kCellsOnBoard)) << "99 levels";
        QTest::newRow("a foreign byte") << QByteArray::fromStdString(withLevel(good, 60, std::string(kCellsOnBoard, '5')))
                                        << "is not one of";
        QTest::newRow("the fall needed once more") << QByteArray::fromStdString(withLevel(good, solvableWithoutFall, "00010000" "00020000" "01212100" "00020000" "00010001"))
                                                   << "levels need the fall, not 53";
        QTest::newRow("a second level of 37 cells") << QByteArray::fromStdString(withLevel(good, 78, good.substr(77 * kCellsOnBoard, kCellsOnBoard)))
                                                    << "only level with 37 cells";
    }

    void damagedStoreFailsTheCheck()
    {
        QFETCH(QByteArray, damaged);
        QFETCH(QString, complaint);
        std::ostringstream out;
        QVERIFY(!checkTileLevels(damaged.toStdString(), out));
        QVERIFY2(out.str().find("FAILED: ") != std::string::npos, out.str().c_str());
        QVERIFY2(QString::fromStdString(out.str()).contains(complaint), out.str().c_str());
    }
};

QTEST_APPLESS_MAIN(TestTileLevels)
#include "tst_tile_levels.moc"

#include "pair_board.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace {

std::string storedLevels()
{
    QFile file(LEVELS_DIR "/niveaux3.dat");
    if (!file.open(QIODevice::ReadOnly)) return {};
    return file.readAll().toStdString();
}

// A board read from nine rows of nine bytes written one after the other.
PairBoard boardOf(const std::string &rows)
{
    PairBoard board;
    board.LitNiveau3(rows, 0);
    return board;
}

// A board with the single row `row` at row 4, from column 0.
PairBoard boardWithRow(const std::string &row)
{
    std::string rows(81, '0');
    rows.replace(36, row.size(), row);
    return boardOf(rows);
}

char byteAt(const PairBoard &board, int x, int y)
{
    return board.tabPions3[x][y] == 0 ? '.' : static_cast<char>(board.tabPions3[x][y]);
}

// Columns 3 to 6 of rows 2 to 4, rows parted by " / ".
std::string levelZeroBlock(const PairBoard &board)
{
    std::string text;
    for (int y = 2; y <= 4; ++y) {
        if (y > 2) text += " / ";
        for (int x = 3; x <= 6; ++x) text += byteAt(board, x, y);
    }
    return text;
}

// True when column 9 and row 9 of the array still hold the marker put there by the test.
bool spareCellsHold(const PairBoard &board, int marker)
{
    for (int i = 0; i < 10; ++i)
        if (board.tabPions3[9][i] != marker || board.tabPions3[i][9] != marker) return false;
    return true;
}

bool sameCells(const PairBoard &a, const PairBoard &b)
{
    for (int x = 0; x < 10; ++x)
        for (int y = 0; y < 10; ++y)
            if (a.tabPions3[x][y] != b.tabPions3[x][y]) return false;
    return true;
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

class TestPairBoard : public QObject {
    Q_OBJECT

private slots:
    void levelZeroStepByStep()
    {
        const std::string store = storedLevels();
        QCOMPARE(store.size(), size_t(9720));
        PairBoard board;
        board.LitNiveau3(store, 0);
        QCOMPARE(levelZeroBlock(board), std::string("2Sdd / C1C1 / BT2B"));
        const struct {
            int selectX, selectY, removeX, removeY;
            const char *block;
        } steps[] = {
            {5, 3, 3, 3, "3Sad / .3.2 / CT3B"}, {3, 2, 4, 3, ".Qad / ...2 / CQ3B"}, {5, 2, 6, 2, ".R.. / ...3 / CQ3B"},
            {5, 4, 6, 3, ".R.. / .... / CR.D"}, {4, 4, 4, 2, ".... / .... / D..D"}, {3, 4, 6, 4, ".... / .... / ...."},
        };
        for (const auto &step : steps) {
            QVERIFY(!board.Vide3());
            board.Selectionne3(step.selectX, step.selectY);
            QVERIFY(board.Pareil3(step.removeX, step.removeY));
            board.Retire3(step.removeX, step.removeY);
            QCOMPARE(board.iChoix3, -1);
            QCOMPARE(levelZeroBlock(board), std::string(step.block));
        }
        QVERIFY(board.Vide3());
        QCOMPARE(board.iCoup3, 5);

        board.LitNiveau3(store, 0);
        QCOMPARE(board.iCoup3, -1);
        QVERIFY(std::all_of(std::begin(board.tabCoupA3), std::end(board.tabCoupA3), [](int c) { return c == -1; }));
        QVERIFY(std::all_of(std::begin(board.tabCoupB3), std::end(board.tabCoupB3), [](int c) { return c == -1; }));
        board.Selectionne3(5, 3);
        board.LitNiveau3(store, 0);
        QCOMPARE(board.iChoix3, -1);
        QCOMPARE(levelZeroBlock(board), std::string("2Sdd / C1C1 / BT2B"));
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

    void edgesLeaveTheSpareRowAndColumnAlone()
    {
        PairBoard board = boardOf(std::string(81, '1'));
        for (int i = 0; i < 10; ++i) {
            board.tabPions3[9][i] = 7;
            board.tabPions3[i][9] = 7;
        }
        const PairBoard before = board;
        for (const auto &[x, y] : {std::pair{8, 4}, std::pair{4, 8}, std::pair{0, 4}, std::pair{4, 0}}) {
            board.Selectionne3(x, y);
            QVERIFY(spareCellsHold(board, 7));
            board.Deselectionne3();
        }
        board.Selectionne3(8, 8);
        QVERIFY(spareCellsHold(board, 7));
        QCOMPARE(byteAt(board, 7, 8), '2');
        QCOMPARE(byteAt(board, 8, 7), '2');
        QCOMPARE(byteAt(board, 7, 7), '1');
        board.Retire3(0, 0);
        QVERIFY(spareCellsHold(board, 7));
        QCOMPARE(byteAt(board, 1, 0), '2');
        QCOMPARE(byteAt(board, 0, 1), '2');
        QCOMPARE(byteAt(board, 1, 1), '1');
        board.Annule3();
        QVERIFY(sameCells(board, before));
    }

    void lonelyTileTurnsNothing()
    {
        PairBoard board = boardWithRow("1010");
        const PairBoard before = board;
        board.Selectionne3(0, 4);
        QVERIFY(sameCells(board, before));
        QVERIFY(board.Pareil3(2, 4));
    }

    void neighboursMatchOnlyByTheirTurnedValue()
    {
        PairBoard oneFour = boardWithRow("14");
        oneFour.Selectionne3(0, 4);
        QVERIFY(oneFour.Pareil3(1, 4));
        oneFour.Retire3(1, 4);
        QVERIFY(oneFour.Vide3());

        for (int first : {0, 1}) {
            PairBoard oneOne = boardWithRow("11");
            oneOne.Selectionne3(first, 4);
            QVERIFY(!oneOne.Pareil3(1 - first, 4));
        }
    }

    void selectingThenCancellingRestores()
    {
        const std::string store = storedLevels();
        PairBoard board;
        board.LitNiveau3(store, 95);
        const PairBoard before = board;
        for (int c = 0; c < 81; ++c) {
            if (board.tabPions3[c % 9][c / 9] == 0) continue;
            board.Selectionne3(c % 9, c / 9);
            QCOMPARE(board.iChoix3, c);
            board.Deselectionne3();
            QCOMPARE(board.iChoix3, -1);
            QVERIFY(sameCells(board, before));
        }
    }

    // Random pairs on every stored level, each position kept, then all taken back one by one.
    void takingBackRestoresEveryPosition()
    {
        const std::string store = storedLevels();
        QRandomGenerator random(1951);
        int touchingPairs = 0;
        for (int level = 0; level < 120; ++level) {
            PairBoard board;
            board.LitNiveau3(store, level);
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
};

QTEST_APPLESS_MAIN(TestPairBoard)
#include "tst_pair_board.moc"

#include "stone_board.h"

#include <QFile>
#include <QTest>

#include <algorithm>
#include <random>
#include <string>

namespace {

std::string storedLevels()
{
    QFile file(LEVELS_DIR "/niveaux2.dat");
    if (!file.open(QIODevice::ReadOnly)) return {};
    return file.readAll().toStdString();
}

bool sameBoard(const StoneBoard &a, const StoneBoard &b)
{
    return std::equal(&a.tabPions2[0][0], &a.tabPions2[0][0] + 81, &b.tabPions2[0][0]);
}

// The entries of the whole 9 by 9 array that differ between the two boards.
int changedEntries(const StoneBoard &a, const StoneBoard &b)
{
    int changed = 0;
    for (int x = 0; x < 9; ++x)
        for (int y = 0; y < 9; ++y) changed += a.tabPions2[x][y] != b.tabPions2[x][y];
    return changed;
}

} // namespace

class TestStoneBoard : public QObject {
    Q_OBJECT

private slots:
    void levelZeroIsSolvedByTwoClicksInEitherOrder()
    {
        const std::string store = storedLevels();
        QCOMPARE(store.size(), size_t(7200));
        for (bool leftFirst : {true, false}) {
            StoneBoard board;
            board.LitNiveau2(store, 0);
            board.Retourne2(leftFirst ? 3 : 4, 4);
            QVERIFY(!board.Vide2());
            board.Retourne2(leftFirst ? 4 : 3, 4);
            QVERIFY(board.Vide2());
        }
    }

    void readingTakesDigitsAboveZeroAsTrueAndForgetsTheLastClick()
    {
        const std::string store = std::string(72, '0') + std::string(71, '0') + "2";
        StoneBoard board;
        board.Retourne2(0, 0);
        board.LitNiveau2(store, 1);
        QCOMPARE(board.iCoup2, -1);
        QCOMPARE(board.tabPions2[7][8], int16_t(-1));
        QCOMPARE(board.tabPions2[0][0], int16_t(0));
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
        const StoneBoard empty;
        StoneBoard board;
        board.Retourne2(x, y);
        QCOMPARE(changedEntries(board, empty), flipped);
        QCOMPARE(board.tabPions2[x][y], StoneBoard::kVrai);
        for (int row = 0; row < 9; ++row) QCOMPARE(board.tabPions2[8][row], int16_t(0));
        QCOMPARE(board.iCoup2, y * 8 + x);
        board.Retourne2(x, y);
        QCOMPARE(board.tabPions2[x][y], int16_t(0));
    }

    void spareColumnIsNeverRead()
    {
        StoneBoard board;
        for (int y = 0; y < 9; ++y) board.tabPions2[8][y] = StoneBoard::kVrai;
        QVERIFY(board.Vide2());
    }

    void takeBackUndoesOnlyTheLastClick()
    {
        StoneBoard start;
        start.LitNiveau2(storedLevels(), 61);
        StoneBoard board = start;
        board.Retourne2(0, 0);
        board.Annule2();
        QVERIFY(sameBoard(board, start));
        QCOMPARE(board.iCoup2, -1);

        board.Retourne2(2, 3);
        const StoneBoard afterFirst = board;
        board.Retourne2(3, 3);
        board.Annule2();
        QVERIFY(sameBoard(board, afterFirst));

        board.Retourne2(7, 8);
        board.Retourne2(7, 8);
        QVERIFY(sameBoard(board, afterFirst));
        QCOMPARE(board.iCoup2, 71);
    }

    void everyStoredLevelSurvivesClickAndTakeBack()
    {
        const std::string store = storedLevels();
        QCOMPARE(store.size() % 72, size_t(0));
        std::mt19937 rng(7);
        for (int n = 0; n < int(store.size() / 72); ++n) {
            StoneBoard board;
            board.LitNiveau2(store, n);
            const StoneBoard start = board;
            for (int i = 0; i < 30; ++i) {
                const int cell = int(rng() % 72);
                board.Retourne2(cell % 8, cell / 8);
                board.Annule2();
                QVERIFY2(sameBoard(board, start), qPrintable(QString("level %1, cell %2").arg(n).arg(cell)));
            }
        }
    }
};

QTEST_APPLESS_MAIN(TestStoneBoard)
#include "tst_stone_board.moc"

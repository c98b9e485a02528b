// SPDX-License-Identifier: MIT
// Jeu 1 played at the real window with the mouse: a whole game from the start button to the closing
// message and the save, the way clicks map to cells, take-backs, the pause after a won level, and
// the best-times file as each won level leaves it.
// After every redraw the screen is checked cell by cell against the model, pixel for pixel.
// The clock never ticks on its own here: the tests count the seconds themselves.
#include "best_times_bytes.h"
#include "board_oracle.h"
#include "game_steps.h"

#include <vector>

namespace {

constexpr int kCell = 54;
constexpr int kLowerTop = 278;
const QRect kScreenPlace(128, 26, 432, 548);

// Solutions of levels 0 and 1 of the shipped store.
const std::vector<QPoint> kSolutions[2] = {{{3, 4}, {3, 3}, {3, 0}, {3, 1}, {3, 2}},
                                         {{3, 2}, {4, 2}, {5, 2}, {3, 3}, {3, 4}, {3, 1}, {3, 0}, {2, 2}, {1, 2}}};

QPoint upperPoint(QPoint cell) { return cell * kCell + QPoint(kCell / 2, kCell / 2); }
QPoint lowerPoint(QPoint cell) { return upperPoint(cell) + QPoint(0, kLowerTop); }
QRect sheetCell(int index) { return {index * kCell, 0, kCell, kCell}; }

enum class Upper { Targets, Won };

// What the screen must hold for the model: on each cell the sheet cell of its value (tiles 1 to 4
// are cells 0 to 3, the socket cell 4, a won target cell 5), elsewhere the window's own background.
QImage expectedScreen(const frmFond &fond, Upper upper)
{
    const QImage &sheet = fond.pctPion1->image;
    QImage wanted = backgroundUnder(fond, kScreenPlace);
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 8; ++x) {
            if (const int target = fond.tiles.tabCible1[x][y]; target > 0)
                putSprite(wanted, {kCell * x, kCell * y}, sheet, sheetCell(upper == Upper::Won ? 5 : target - 1));
            const int value = fond.tiles.tabJeu1[x][y];
            if ((value >= 1 && value <= 4) || value == TileBoard::kSocle)
                putSprite(wanted, {kCell * x, kLowerTop + kCell * y}, sheet, sheetCell(value <= 4 ? value - 1 : 4));
        }
    return wanted;
}

} // namespace

class TestTilesScreen : public QObject {
    Q_OBJECT

    PlaySession session;

    frmFond &fond() { return *session.fond; }
    QStringList &played() { return session.played(); }
    QByteArray board() { return bytesOf(fond().tiles); }

    void click(Qt::MouseButton button, QPoint at) { PlaySession::press(fond().pctEcran1, button, at); }
    void clickIgnored(Qt::MouseButton button, QPoint at)
    {
        verifyIgnored(session, fond().pctEcran1, button, at, [this] { return board(); });
    }

    // Empty when the screen shows the model, in the image and on the window.
    QString screenFault(Upper upper = Upper::Targets)
    {
        if (fond().pctPion1->image.deviceIndependentSize() != QSizeF(6 * kCell, kCell))
            return QStringLiteral("sheet of the wrong size");
        return ::screenFault(fond(), fond().pctEcran1, kScreenPlace, expectedScreen(fond(), upper));
    }

    // A click on a socket: one cue, the placement recorded, the screen redrawn, the level still on.
    void place(QPoint c, Qt::MouseButton button = Qt::LeftButton)
    {
        const QStringList before = played();
        const int32_t coup = fond().tiles.iCoup1;
        click(button, lowerPoint(c));
        QCOMPARE(played(), before + cues("010"));
        QCOMPARE(fond().tiles.iCoup1, coup + 1);
        QCOMPARE(fond().tiles.tabCoups1[coup + 1], c.y() * 8 + c.x());
        QCOMPARE(screenFault(), QString());
    }

private slots:
    void init()
    {
        session.start();
        session.stopClock();
    }
    void cleanup() { session.fond.reset(); }

    // A whole game of levels 0 and 1, from the start button to the close. Level 0 won in no time ties
    // with the empty rows and takes the first, with its cue, and the upper board shows the won art
    // through the pause. Level 1, won in 1 second, takes over that row at the close; the game is saved
    // under the name typed.
    void aWholeGameOfTwoLevels()
    {
        PlaySession::keepLevels(1, {0, 1});
        session.startGame(1, QStringLiteral("  anne  "));
        verifyPlaying(fond(), 1, 0, QString());
        QCOMPARE(screenFault(), QString());

        for (int i = 0; i < 4; ++i) place(kSolutions[0][i]);
        const QStringList heard = cues("008 009 002 010x5 001");
        winThroughThePause(
            session, fond().pctEcran1, lowerPoint(kSolutions[0][4]), QString(), 0, heard,
            timesFile(1, {timesLine(0, 0, "ANNE")}), [this] { return board(); },
            [this] { return screenFault(Upper::Won); });

        // The next level is up: fresh sockets, its own number, the clock running again.
        verifyPlaying(fond(), 1, 1, QString());
        QCOMPARE(fond().tiles.iCoup1, -1);
        QCOMPARE(screenFault(), QString());
        for (int i = 0; i < 8; ++i) {
            place(kSolutions[1][i]);
            if (i == 3) session.tick();
        }
        QCOMPARE(fond().labTemps->text(), QStringLiteral(" 1"));
        QCOMPARE(gTempsTotal, 0.0);
        winTheGame(
            session, [this] { click(Qt::LeftButton, lowerPoint(kSolutions[1][8])); },
            heard + cues("002 010x9 001 001"), "ANNE", 1, 2, 1, QStringLiteral("ma partie"));
        QCOMPARE(session.bestTimes(), timesFile(1, {timesLine(1, 1, "ANNE")}));
    }

    // Level 77 has cells in every corner and non-cells inside.
    void clicksMapToCellsOfTheLowerBoardOnly()
    {
        session.startOn(1, {77});
        QCOMPARE(screenFault(), QString());
        // Above the lower board, the upper board to its last pixel, the gap, the middle button there, non-cells.
        for (QPoint at :
             {QPoint(0, 277), QPoint(0, 0), QPoint(431, 269), QPoint(200, 270), lowerPoint({3, 1}), lowerPoint({3, 2})})
            clickIgnored(Qt::LeftButton, at);
        clickIgnored(Qt::MiddleButton, {431, 273});

        const QPoint topLeft(0, 278);
        click(Qt::LeftButton, topLeft);
        QCOMPARE(screenFault(), QString());

        // The tile just placed, to its last pixel, with either button.
        clickIgnored(Qt::LeftButton, topLeft);
        clickIgnored(Qt::LeftButton, {53, 331});
        clickIgnored(Qt::MiddleButton, {27, 300});

        click(Qt::MiddleButton, {431, 547});
        click(Qt::LeftButton, {431, 278});
        click(Qt::LeftButton, {0, 332});    // row 1 under the first tile, which gains a pip
        click(Qt::MiddleButton, {54, 278}); // column 1, beside the first tile: one more pip
        QCOMPARE(std::vector<int32_t>(fond().tiles.tabCoups1, fond().tiles.tabCoups1 + fond().tiles.iCoup1 + 1),
                 (std::vector<int32_t>{0, 4 * 8 + 7, 7, 8, 1}));
        QCOMPARE(fond().tiles.tabJeu1[0][0], 3);
        QCOMPARE(played(), cues("010x5"));
        verifyPlaying(fond(), 1, 0, QString());
        QCOMPARE(screenFault(), QString());
    }

    // Level 0 placed top to bottom fills every socket without the target: nothing happens until the
    // placements are taken back, by right clicks anywhere on the screen.
    void rightClicksTakeBackAnywhereAndNeverEndTheLevel()
    {
        session.startOn(1, {0, 1});
        clickIgnored(Qt::RightButton, upperPoint({3, 0}));
        clickIgnored(Qt::RightButton, lowerPoint({3, 0}));

        std::vector<QByteArray> before;
        for (int y = 0; y < 5; ++y) {
            before.push_back(board());
            place({3, y});
        }
        QVERIFY(!fond().tiles.Complet1());
        played().clear();

        const QPoint anywhere[5] = {upperPoint({3, 1}), {200, 274}, lowerPoint({0, 0}), lowerPoint({3, 2}), {431, 547}};
        for (int i = 0; i < 5; ++i) {
            click(Qt::RightButton, anywhere[i]);
            QCOMPARE(played(), QStringList(i + 1, QStringLiteral("marel007.wav")));
            QCOMPARE(board(), before[4 - i]);
            QCOMPARE(screenFault(), QString());
        }
        verifyPlaying(fond(), 1, 0, QString());
        clickIgnored(Qt::RightButton, upperPoint({0, 0}));
    }
};

QTEST_MAIN(TestTilesScreen)
#include "tst_tiles_screen.moc"

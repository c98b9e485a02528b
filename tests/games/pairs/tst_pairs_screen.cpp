// SPDX-License-Identifier: MIT
// Jeu 3 played at the real window with the mouse: the cell under the pointer, each button's path,
// the cues, the take-back seen step by step, the best times written at the close of a game and its
// save, with every redraw checked pixel by pixel against a plain model of the drawing.
#include "best_times_bytes.h"
#include "board_oracle.h"
#include "game_steps.h"
#include "pair_tiles_drawn.h"

#include <tuple>
#include <vector>

namespace {

constexpr int kCell = 52;
const QRect kScreenPlace(110, 66, 468, 468);

// A board as its 81 level bytes, row by row, '0' for an empty cell.
using Cells = QByteArray;

// Level 0 keeps its tiles in columns 3 to 6 of rows 2 to 4: the block is written as three rows of
// four cells parted by " / ", a point for an empty cell.
Cells levelZero(const char *block)
{
    Cells cells(81, '0');
    const QByteArray rows = QByteArray(block).replace(" / ", "");
    for (int i = 0; i < 12; ++i)
        if (rows[i] != '.') cells[(2 + i / 4) * 9 + 3 + i % 4] = rows[i];
    return cells;
}

const char *const kLevel95 =
    "33B3A2A30 3421B2AB3 4B43DB1CB 31231A2BD A3DDB2B30 B1AD14300 D2DBA000A BDB23ABDB 000000004";

// The five pairs of level 0 in a winning order: the first tile, the block with it selected, the
// second tile, the block after the pair. The "d" beside the third pair's first tile matches it by
// the value the selection turned it to.
const std::tuple<QPoint, const char *, QPoint, const char *> kLevelZeroPairs[] = {
    {{5, 3}, "2Sad / C2C2 / BT3B", {3, 3}, "3Sad / .3.2 / CT3B"},
    {{3, 2}, "3Tad / .3.2 / CT3B", {4, 3}, ".Qad / ...2 / CQ3B"},
    {{5, 2}, ".Raa / ...2 / CQ3B", {6, 2}, ".R.. / ...3 / CQ3B"},
    {{5, 4}, ".R.. / ...3 / CR3C", {6, 3}, ".R.. / .... / CR.D"},
    {{4, 4}, ".R.. / .... / DR.D", {4, 2}, ".... / .... / D..D"}};

int code(int x, int y) { return y * 9 + x; }
QPoint centreOf(int x, int y) { return {kCell * x + kCell / 2, kCell * y + kCell / 2}; }

// What the screen must hold for a board: the window's background behind it, and its tiles.
QImage drawnBoard(const frmFond &fond, const Cells &cells, int selected)
{
    QImage board = backgroundUnder(fond, kScreenPlace);
    drawPairTiles(
        board, fond.pctPion3->image,
        [&cells](int x, int y) { return cells[y * 9 + x] == '0' ? 0 : int(cells[y * 9 + x]); }, selected);
    return board;
}

Cells cellsOf(const PairBoard &pairs)
{
    Cells cells(81, '0');
    for (int i = 0; i < 81; ++i)
        if (const int value = pairs.tabPions3[i % 9][i / 9]) cells[i] = char(value);
    return cells;
}

// Records each new picture that the screen paints, with the number of cues heard by then.
struct Film : QObject {
    Film(Surface *screen, const QStringList &played) : played(played) { screen->installEventFilter(this); }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const QImage &image = static_cast<Surface *>(watched)->image;
        if (event->type() == QEvent::Paint && (frames.empty() || frames.back().first != image))
            frames.push_back({image.copy(), played.size()});
        return false;
    }
    const QStringList &played;
    std::vector<std::pair<QImage, qsizetype>> frames;
};

} // namespace

class TestPairsScreen : public QObject {
    Q_OBJECT

    PlaySession session;

    frmFond &fond() { return *session.fond; }
    QStringList &played() { return session.played(); }
    QByteArray board() { return bytesOf(fond().pairs); }

    void click(Qt::MouseButton button, QPoint at) { PlaySession::press(fond().pctEcran3, button, at); }
    void clickCell(int x, int y) { click(Qt::LeftButton, centreOf(x, y)); }
    void clickIgnored(Qt::MouseButton button, QPoint at)
    {
        verifyIgnored(session, fond().pctEcran3, button, at, [this] { return board(); });
    }

    // The model, the screen's image and what the window shows there all hold this board.
    QString screenHolds(const Cells &cells, int selected)
    {
        if (cellsOf(fond().pairs) != cells) return QStringLiteral("the board in play differs");
        if (fond().pairs.iChoix3 != selected)
            return QStringLiteral("selected cell %1, expected %2").arg(fond().pairs.iChoix3).arg(selected);
        return screenFault(fond(), fond().pctEcran3, kScreenPlace, drawnBoard(fond(), cells, selected));
    }

    // Plays pair i of level 0 as the player does, checking the board after each click.
    void playPair(int i, Qt::MouseButton button = Qt::LeftButton)
    {
        const auto &[first, selectedBlock, second, afterBlock] = kLevelZeroPairs[i];
        const qsizetype heard = played().size();
        click(button, centreOf(first.x(), first.y()));
        QCOMPARE(screenHolds(levelZero(selectedBlock), code(first.x(), first.y())), QString());
        click(button, centreOf(second.x(), second.y()));
        QCOMPARE(screenHolds(levelZero(afterBlock), -1), QString());
        QCOMPARE(played().mid(heard), cues("010x2"));
    }

private slots:
    void init()
    {
        session.start();
        // The clock's ticks come from the test, so that the seconds are known.
        session.stopClock();
    }
    void cleanup() { session.fond.reset(); }

    // A game of level 0 alone, won in no time: it ties with the empty rows and takes row 1 of game 3
    // at the close, and the game is saved under a name typed between spaces.
    void aWholeGameFromTheStartButtonToTheSave()
    {
        PlaySession::keepLevels(3, {0});
        session.startGame(3, QStringLiteral("anne"));
        verifyPlaying(fond(), 3, 0, QString());
        QCOMPARE(screenHolds(levelZero("2Sdd / C1C1 / BT2B"), -1), QString());

        for (int i = 0; i < 5; ++i) playPair(i);
        // The last pair: its first tile at (3, 4), its second at (6, 4).
        clickCell(3, 4);
        QCOMPARE(screenHolds(levelZero(".... / .... / D..D"), code(3, 4)), QString());
        winTheGame(
            session, [this] { clickCell(6, 4); }, cues("008 009 002 010x12 001 001"), "ANNE", 3, 1, 0,
            QStringLiteral("  fin  "));
        // The table keeps the last level won, never 999; the window shows its background where the screen was.
        QCOMPARE(session.bestTimes(), timesFile(3, {timesLine(0, 0, "ANNE")}));
        QCOMPARE(firstWrongPixel(shownOn(fond(), kScreenPlace), drawnBoard(fond(), Cells(81, '0'), -1)), QString());
    }

    // Each button's path through level 0: clicks that do nothing, a tile selected and unselected,
    // pairs played with the left or the middle button, then taken back with the right one.
    void theButtonsPaths_data()
    {
        QTest::addColumn<Qt::MouseButton>("button");
        QTest::newRow("left") << Qt::LeftButton;
        QTest::newRow("middle") << Qt::MiddleButton;
    }

    void theButtonsPaths()
    {
        QFETCH(Qt::MouseButton, button);
        session.startOn(3, {0});
        const Cells start = levelZero("2Sdd / C1C1 / BT2B");
        const Cells selected = levelZero("2Sad / C2C2 / BT3B");
        QCOMPARE(screenHolds(start, -1), QString());

        // Beyond the edges of the board, as a grabbed pointer reports it, and on empty cells: nothing;
        // nor does the right button with nothing to take back.
        for (QPoint at : {QPoint(468, 130), QPoint(130, 468), QPoint(-1, 130), QPoint(200, -1), QPoint(0, 1),
                          centreOf(2, 3), centreOf(7, 3)})
            clickIgnored(button, at);
        clickIgnored(Qt::RightButton, centreOf(4, 3));

        // A tile, anywhere in its cell: selected, drawn smaller.
        click(button, QPoint(kCell * 5, kCell * 4 - 1));
        QCOMPARE(played(), cues("010"));
        QCOMPARE(screenHolds(selected, code(5, 3)), QString());

        // With a tile selected: empty cells and a right click with no pair on record are ignored; a
        // tile of another value (here a neighbour that the selection turned) makes its sound only.
        clickIgnored(button, centreOf(2, 3));
        clickIgnored(button, QPoint(467, 467));
        clickIgnored(Qt::RightButton, centreOf(5, 3));
        click(button, centreOf(4, 3));
        click(button, centreOf(3, 2));
        QCOMPARE(played(), cues("010 010 010"));
        QCOMPARE(screenHolds(selected, code(5, 3)), QString());

        // The selected tile again: only the cancel sound, and the board as at the start.
        played().clear();
        click(button, QPoint(kCell * 6 - 1, kCell * 3));
        QCOMPARE(played(), cues("007"));
        QCOMPARE(screenHolds(start, -1), QString());

        // Pairs: one sound per click, no other, each on record, and the level goes on.
        played().clear();
        for (int i = 0; i < 3; ++i) playPair(i, button);
        verifyPlaying(fond(), 3, 0, QString());

        // A pair of touching tiles comes back in the steps the player sees: the second tile's
        // neighbour turns back, the second tile returns with the first one's neighbours turned back,
        // then the first tile; the board is then as before the pair was picked.
        played().clear();
        Film film(fond().pctEcran3, played());
        click(Qt::RightButton, QPoint(1, 1));
        QCOMPARE(played(), cues("007 007"));
        QCOMPARE(screenHolds(levelZero(".Qad / ...2 / CQ3B"), -1), QString());
        auto frames = film.frames;
        while (!frames.empty() && frames.front().second == 0) frames.erase(frames.begin());
        QCOMPARE(frames.size(), size_t(3));
        const char *const steps[] = {".R.. / ...2 / CQ3B", ".Q.d / ...2 / CQ3B", ".Qad / ...2 / CQ3B"};
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(firstWrongPixel(frames[i].first, drawnBoard(fond(), levelZero(steps[i]), -1)), QString());
            QCOMPARE(frames[i].second, qsizetype(std::min(i + 1, 2))); // the cues heard when the step showed
        }

        // With a tile selected, one right click cancels it and takes the last pair back.
        played().clear();
        click(button, centreOf(4, 4));
        QCOMPARE(screenHolds(levelZero(".Qad / ...2 / DQ4B"), code(4, 4)), QString());
        click(Qt::RightButton, QPoint(467, 467));
        QCOMPARE(played(), cues("010 007x3"));
        QCOMPARE(screenHolds(levelZero("3Sad / .3.2 / CT3B"), -1), QString());

        // Back to the start, after which the right button is silent again.
        played().clear();
        click(Qt::RightButton, centreOf(8, 0));
        QCOMPARE(played(), cues("007 007"));
        QCOMPARE(screenHolds(levelZero("2Sdd / C1C1 / BT2B"), -1), QString());
        clickIgnored(Qt::RightButton, centreOf(3, 3));
        verifyPlaying(fond(), 3, 0, QString());
    }

    // A level set up in a game under way: the label shows its index in the store from 000, its cue
    // plays, the screen shows it. Then the cell under the pointer, at the edges of cells and of the
    // board: 51 is the last pixel of the first cell, 52 the first of the second, 467 the last of the
    // board. A tile there is selected, then unselected by a second click; an empty cell does nothing.
    void aLevelSetUpAndTheCellUnderThePointer()
    {
        session.startGame(3, QStringLiteral("anne"));
        played().clear();
        gNiveau = 95;
        fond().PrepareEcran3();
        fond().ChargeNiveau3();
        verifyPlaying(fond(), 3, 95, QString());
        QCOMPARE(played(), cues("002"));
        const Cells cells = QByteArray(kLevel95).replace(' ', "");
        QCOMPARE(screenHolds(cells, -1), QString());

        // The pixel pressed and the cell under it.
        const std::tuple<QPoint, int, int> probes[] = {
            {{51, 51}, 0, 0},  {{52, 52}, 1, 1},  {{51, 52}, 0, 1},  {{52, 51}, 1, 0},  {{467, 467}, 8, 8},
            {{467, 52}, 8, 1}, {{467, 51}, 8, 0}, {{51, 467}, 0, 8}, {{52, 467}, 1, 8}, {{1, 0}, 0, 0},
            {{415, 415}, 7, 7}, {{416, 416}, 8, 8}};
        for (const auto &[at, x, y] : probes) {
            if (cells[code(x, y)] == '0') {
                clickIgnored(Qt::LeftButton, at);
                continue;
            }
            played().clear();
            click(Qt::LeftButton, at);
            QCOMPARE(fond().pairs.iChoix3, code(x, y));
            click(Qt::LeftButton, at);
            QCOMPARE(played(), cues("010 007"));
            QCOMPARE(fond().pairs.iChoix3, -1);
        }
        QCOMPARE(screenHolds(cells, -1), QString());
    }
};

QTEST_MAIN(TestPairsScreen)
#include "tst_pairs_screen.moc"

// Jeu 3 played at the real window with the mouse: the cell under the pointer, each button's path,
// the cues, the take-back seen step by step, the pause after a won level, the best times written
// after each won level and the close of a game with its save, with every redraw checked pixel by
// pixel against a plain model of the drawing.
#include "best_times_bytes.h"
#include "board_oracle.h"
#include "cue_names.h"
#include "dialog_log.h"
#include "file_bytes.h"
#include "first_moment.h"
#include "play_session.h"
#include "window_states.h"

#include <array>
#include <vector>

namespace {

constexpr int kCell = 52;
const QRect kScreenPlace(110, 66, 468, 468);

// A board as nine columns of nine cells, indexed [x][y] like the game's own array; 0 is empty.
using Cells = std::array<std::array<int, 9>, 9>;

// Nine rows of nine level bytes, rows parted by blanks.
Cells cellsOfRows(const char *rows)
{
    Cells cells{};
    const QString text = QString::fromLatin1(rows).remove(QLatin1Char(' '));
    for (int i = 0; i < 81; ++i) {
        const char byte = text.at(i).toLatin1();
        cells[i % 9][i / 9] = byte == '0' ? 0 : byte;
    }
    return cells;
}

// Level 0 keeps its tiles in columns 3 to 6 of rows 2 to 4: the block is written as three rows of
// four cells parted by " / ", a point for an empty cell.
Cells levelZero(const char *block)
{
    Cells cells{};
    const QStringList rows = QString::fromLatin1(block).split(QStringLiteral(" / "));
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 4; ++x) {
            const char byte = rows.at(y).at(x).toLatin1();
            cells[3 + x][2 + y] = byte == '.' ? 0 : byte;
        }
    return cells;
}

const char *const kLevel4 = "000000000 000000000 0000c0000 0000a0000 00dd0cd00 0000a0000 0000d0000 000000000 000000000";
const char *const kLevel35 =
    "000000000 000443400 040434000 000443400 000000000 000000000 000000000 000000000 000000000";
const char *const kLevel95 =
    "33B3A2A30 3421B2AB3 4B43DB1CB 31231A2BD A3DDB2B30 B1AD14300 D2DBA000A BDB23ABDB 000000004";
const char *const kLevel119 =
    "QQTQQQTTR RSRSTTQQT STRSQSTSQ TRSTRSTTQ TTSQRSSTR RTSSSTTTT TQTRTQRTR R00000000 000000000";

int code(int x, int y) { return y * 9 + x; }
QPoint centreOf(int x, int y) { return {kCell * x + kCell / 2, kCell * y + kCell / 2}; }

// What the screen must hold for a board: the window's background behind it, and each tile drawn
// through its mask, the selected tile from the smaller shape and pictures.
QImage drawnBoard(const frmFond &fond, const Cells &cells, int selected)
{
    QImage board = backgroundUnder(fond, kScreenPlace);
    for (int y = 0; y < 9; ++y)
        for (int x = 0; x < 9; ++x)
            if (const int value = cells[x][y]; value > 0) {
                const bool chosen = code(x, y) == selected;
                const int c = (value - 48) / 16, n = (value - 48) % 16;
                putMaskedSprite(board, {kCell * x, kCell * y}, fond.pctPion3->image,
                                {kCell * (n - 1) + (chosen ? 208 : 0), kCell * c, kCell, kCell},
                                {416, chosen ? kCell : 0});
            }
    return board;
}

Cells cellsOf(const PairBoard &pairs)
{
    Cells cells{};
    for (int x = 0; x < 9; ++x)
        for (int y = 0; y < 9; ++y) cells[x][y] = pairs.tabPions3[x][y];
    return cells;
}

// Records each new picture that the screen paints, with the number of cues heard by then.
class Film : public QObject {
public:
    struct Frame {
        QImage image;
        qsizetype cuesHeard;
    };

    Film(Surface *screen, const QStringList &played) : mPlayed(played) { screen->installEventFilter(this); }

    std::vector<Frame> frames;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            const QImage &image = static_cast<Surface *>(watched)->image;
            if (frames.empty() || frames.back().image != image) frames.push_back({image.copy(), mPlayed.size()});
        }
        return false;
    }

private:
    const QStringList &mPlayed;
};

} // namespace

class TestPairsScreen : public QObject {
    Q_OBJECT

    PlaySession session;

    frmFond &fond() { return *session.fond; }
    QStringList &played() { return session.fond->tambour.played; }
    QByteArray bestTimes() const { return readAll(session.dataFolder() + QStringLiteral("mlbestTime.dat")); }
    QByteArray savedFin() const { return readAll(session.dataFolder() + QStringLiteral("fin.sml")); }

    void click(Qt::MouseButton button, QPoint at) { PlaySession::press(fond().pctEcran3, button, at); }
    void clickCell(int x, int y) { click(Qt::LeftButton, centreOf(x, y)); }

    // The model, the screen's image and what the window shows there all hold this board.
    QString screenHolds(const Cells &cells, int selected)
    {
        if (cellsOf(fond().pairs) != cells) return QStringLiteral("the board in play differs");
        if (fond().pairs.iChoix3 != selected)
            return QStringLiteral("selected cell %1, expected %2").arg(fond().pairs.iChoix3).arg(selected);
        return screenFault(fond(), fond().pctEcran3, kScreenPlace, drawnBoard(fond(), cells, selected));
    }

    // Plays one pair of level 0 as the player does, checking the board after each click.
    void playPair(QPoint first, const char *selectedBlock, QPoint second, const char *afterBlock)
    {
        const qsizetype heard = played().size();
        clickCell(first.x(), first.y());
        QCOMPARE(screenHolds(levelZero(selectedBlock), code(first.x(), first.y())), QString());
        clickCell(second.x(), second.y());
        QCOMPARE(screenHolds(levelZero(afterBlock), -1), QString());
        QCOMPARE(played().mid(heard), cues("010x2"));
    }

    // Level 0 played up to its last pair, whose first tile is then at (3, 4) and second at (6, 4).
    void playLevelZeroUpToItsLastPair()
    {
        playPair({5, 3}, "2Sad / C2C2 / BT3B", {3, 3}, "3Sad / .3.2 / CT3B");
        playPair({3, 2}, "3Tad / .3.2 / CT3B", {4, 3}, ".Qad / ...2 / CQ3B");
        // The "d" beside the first tile matches it by the value the selection turned it to.
        playPair({5, 2}, ".Raa / ...2 / CQ3B", {6, 2}, ".R.. / ...3 / CQ3B");
        playPair({5, 4}, ".R.. / ...3 / CR3C", {6, 3}, ".R.. / .... / CR.D");
        playPair({4, 4}, ".R.. / .... / DR.D", {4, 2}, ".... / .... / D..D");
    }

private slots:
    void init()
    {
        session.start();
        // The clock's ticks come from the test, so that the seconds are known.
        session.stopClock();
    }
    void cleanup() { session.fond.reset(); }

    void aWholeGameFromTheStartButtonToTheSave()
    {
        QCOMPARE(bestTimes(), timesFile(3));

        PlaySession::keepLevels(3, {0, 4});
        session.startGame(3, QStringLiteral("anne"));
        verifyPlaying(fond(), 3, 0, QString());
        QCOMPARE(gNbNiveaux, 2);
        QCOMPARE(gNomJoueur, QStringLiteral("ANNE"));
        QCOMPARE(played(), cues("008 009 002"));
        QCOMPARE(screenHolds(levelZero("2Sdd / C1C1 / BT2B"), -1), QString());

        playLevelZeroUpToItsLastPair();
        verifyPlaying(fond(), 3, 0, QString());
        session.tick(2);
        QCOMPARE(fond().labTemps->text(), QStringLiteral(" 2"));

        // The pause after the won level: the empty board shows, the labels keep the level just won
        // and its seconds, and clicks are lost. Level 0 in 2 seconds scores below the empty rows:
        // no place in the table, so no cue and no write.
        const QImage background = drawnBoard(fond(), Cells{}, -1);
        const QStringList heardBeforeWin = played();
        Probe pause([this] { return fond().pairs.Vide3() && !fond().isEnabled() && gNiveau == 0; },
                    [&] {
                        verifyPaused(fond(), 0, QStringLiteral(" 2"), 2.0);
                        QCOMPARE(bestTimes(), timesFile(3));
                        QCOMPARE(screenHolds(Cells{}, -1), QString());
                        QCOMPARE(firstWrongPixel(fond().pctEcran3->image, background), QString());
                        expectRefusedClicks(2);
                        click(Qt::RightButton, centreOf(3, 4)); // would take the last pair back
                        click(Qt::LeftButton, centreOf(3, 4));
                        QCOMPARE(fond().pairs.iCoup3, 5);
                        QCOMPARE(played(), heardBeforeWin + cues("010x2"));
                    });
        clickCell(3, 4);
        QCOMPARE(screenHolds(levelZero(".... / .... / D..D"), code(3, 4)), QString());
        clickCell(6, 4);
        QVERIFY(pause.fired);

        // The next level, set up with no message.
        verifyPlaying(fond(), 3, 1, QStringLiteral(" 2"));
        QCOMPARE(fond().pairs.iCoup3, -1);
        QCOMPARE(screenHolds(cellsOfRows(kLevel4), -1), QString());
        QCOMPARE(played(), cues("008 009 002 010x12 002"));
        QCOMPARE(bestTimes(), timesFile(3));

        session.tick(3);
        QCOMPARE(fond().labTemps->text(), QStringLiteral(" 3"));

        const QPoint solution[4][2] = {{{4, 2}, {5, 4}}, {{2, 4}, {4, 6}}, {{4, 3}, {4, 5}}, {{3, 4}, {6, 4}}};
        for (int pair = 0; pair < 3; ++pair) {
            clickCell(solution[pair][0].x(), solution[pair][0].y());
            QCOMPARE(screenHolds(cellsOf(fond().pairs), code(solution[pair][0].x(), solution[pair][0].y())), QString());
            clickCell(solution[pair][1].x(), solution[pair][1].y());
            QCOMPARE(screenHolds(cellsOf(fond().pairs), -1), QString());
            QCOMPARE(fond().pairs.iCoup3, pair);
        }
        clickCell(3, 4);

        // The last level won, level 1 in a total of 5 seconds, takes row 1 of game 3 with its cue;
        // then the close: the screen goes first, then the cue, the pause and the message.
        const QByteArray afterFirstGame = timesFile(3, {"\"00100000005ANNE            \"\r\n"});
        const qsizetype heardBeforeLastWin = played().size();
        Probe closing([&] { return gNiveau == 999 && played().size() == heardBeforeLastWin + 3; },
                      [&] {
                          QCOMPARE(played().mid(heardBeforeLastWin), cues("010 001 001"));
                          QCOMPARE(bestTimes(), afterFirstGame);
                          verifyClosing(fond(), 5.0);
                      });
        // The closing message, then the offer to save, answered with a name between spaces.
        {
            DialogLog log(session,
                          {{QStringLiteral("Fermer")}, {QStringLiteral("Valider"), QStringLiteral("  fin  ")}});
            clickCell(6, 4);
            QVERIFY(closing.fired);
            QCOMPARE(log.seen, (QStringList{congratulations("ANNE", 2, 3), kSaveOffer}));
        }

        // The game is stored under the name without its spaces, as finished (level 999) in 5 seconds;
        // the table keeps the last level won, never 999.
        QCOMPARE(session.dataFiles(), (QStringList{QStringLiteral("fin.sml"), QStringLiteral("mlbestTime.dat")}));
        QCOMPARE(savedFin(), QByteArray("\"ANNE\"\r\n0\r\n0\r\n0\r\n0\r\n999\r\n5\r\n"));
        QCOMPARE(bestTimes(), afterFirstGame);

        QCOMPARE(played(), cues("008 009 002 010x12 002 010x8 001 001 008 009 008 009"));
        verifyIdle(fond());
        QCOMPARE(gNomJoueur, QStringLiteral("ANNE"));
        QCOMPARE(gTempsTotal, 5.0);
        QCOMPARE(firstWrongPixel(shownOn(fond(), kScreenPlace), background), QString());

        // A new game of the same player: level 0 won in 1 second is worse than the row's level 1, yet
        // the row takes it, and with a score below the empty rows' it falls to row 3. The cue still
        // plays and the file is rewritten; the saved game is left alone.
        played().clear();
        {
            DialogLog log(session, {{QStringLiteral("Lancer")}, {QStringLiteral("Valider"), QStringLiteral("anne")}});
            session.clickMenu(2);
            QCOMPARE(log.seen.size(), 2);
            QVERIFY2(log.seen[0].endsWith(QStringLiteral(" [Lancer|Charger|Annuler]")), qPrintable(log.seen[0]));
            QVERIFY2(log.seen[1].endsWith(QStringLiteral(" box:ANNE")), qPrintable(log.seen[1]));
        }
        QCOMPARE(gNomJoueur, QStringLiteral("ANNE"));
        verifyPlaying(fond(), 3, 0, QString());
        QCOMPARE(gNomPartie, QString());
        QCOMPARE(gTempsTotal, 0.0);
        QCOMPARE(played(), cues("008 009 008 009 002"));
        QCOMPARE(bestTimes(), afterFirstGame);

        played().clear();
        playLevelZeroUpToItsLastPair();
        session.tick();
        clickCell(3, 4);
        clickCell(6, 4);
        QCOMPARE(gNiveau, 1);
        QCOMPARE(gTempsTotal, 1.0);
        QCOMPARE(played(), cues("010x12 001 002"));
        QCOMPARE(bestTimes(), timesFile(3, {kEmptyTimesLine, kEmptyTimesLine, "\"00000000001ANNE            \"\r\n"}));
        QCOMPARE(savedFin(), QByteArray("\"ANNE\"\r\n0\r\n0\r\n0\r\n0\r\n999\r\n5\r\n"));
    }

    void leftAndMiddleButtonPaths_data()
    {
        QTest::addColumn<Qt::MouseButton>("button");
        QTest::newRow("left") << Qt::LeftButton;
        QTest::newRow("middle") << Qt::MiddleButton;
    }

    void leftAndMiddleButtonPaths()
    {
        QFETCH(Qt::MouseButton, button);
        PlaySession::keepLevels(3, {0});
        session.startGame(3, QStringLiteral("anne"));
        played().clear();
        const Cells start = levelZero("2Sdd / C1C1 / BT2B");
        const Cells selected = levelZero("2Sad / C2C2 / BT3B");
        const QImage startImage = fond().pctEcran3->image.copy();

        // Beyond the edges of the board, as a grabbed pointer reports it, and on empty cells: nothing.
        for (QPoint at : {QPoint(468, 130), QPoint(130, 468), QPoint(-1, 130), QPoint(200, -1), QPoint(0, 1),
                          centreOf(2, 3), centreOf(7, 3)})
            click(button, at);
        QCOMPARE(played(), QStringList());
        QCOMPARE(screenHolds(start, -1), QString());

        // A tile, anywhere in its cell: selected, drawn smaller with the background in a 2-pixel ring.
        click(button, QPoint(kCell * 5, kCell * 4 - 1));
        QCOMPARE(played(), cues("010"));
        QCOMPARE(screenHolds(selected, code(5, 3)), QString());
        const QImage &screen = fond().pctEcran3->image;
        for (int v = 0; v < kCell; ++v)
            for (int u = 0; u < kCell; ++u) {
                const QPoint at(kCell * 5 + u, kCell * 3 + v);
                const bool ring = u < 2 || v < 2 || u >= kCell - 2 || v >= kCell - 2;
                if (ring) QCOMPARE(screen.pixel(at), fond().image.pixel(at + QPoint(110, 66)));
            }
        for (QPoint edge : {QPoint(26, 0), QPoint(0, 26), QPoint(51, 26), QPoint(26, 51)}) {
            const QPoint at = QPoint(kCell * 5, kCell * 3) + edge;
            QVERIFY(startImage.pixel(at) != fond().image.pixel(at + QPoint(110, 66)));
        }
        const QImage selectedImage = screen.copy();

        // With a tile selected: empty cells, a right click with no pair on record, and a tile of
        // another value (here a neighbour that the selection turned) leave everything in place;
        // only the tile makes its sound.
        click(button, centreOf(2, 3));
        click(button, QPoint(467, 467));
        click(Qt::RightButton, centreOf(5, 3));
        QCOMPARE(played(), cues("010"));
        click(button, centreOf(4, 3));
        click(button, centreOf(3, 2));
        QCOMPARE(played(), cues("010 010 010"));
        QCOMPARE(screenHolds(selected, code(5, 3)), QString());
        QCOMPARE(firstWrongPixel(fond().pctEcran3->image, selectedImage), QString());

        // The selected tile again: only the cancel sound, and the board as at the start.
        played().clear();
        click(button, QPoint(kCell * 6 - 1, kCell * 3));
        QCOMPARE(played(), cues("007"));
        QCOMPARE(screenHolds(start, -1), QString());
        QCOMPARE(firstWrongPixel(fond().pctEcran3->image, startImage), QString());

        // A pair: one sound per click, no other, and the level goes on.
        played().clear();
        click(button, centreOf(5, 3));
        click(button, centreOf(3, 3));
        QCOMPARE(played(), cues("010 010"));
        QCOMPARE(screenHolds(levelZero("3Sad / .3.2 / CT3B"), -1), QString());
        QCOMPARE(fond().pairs.iCoup3, 0);
        QCOMPARE(fond().pairs.tabCoupA3[0], code(5, 3));
        QCOMPARE(fond().pairs.tabCoupB3[0], code(3, 3));
        QCOMPARE(fond().pairs.tabCoupV3[0], int('C'));
        verifyPlaying(fond(), 3, 0, QString());
    }

    void theRightButtonTakesBackPairs()
    {
        PlaySession::keepLevels(3, {0});
        session.startGame(3, QStringLiteral("anne"));
        const QImage startImage = fond().pctEcran3->image.copy();
        click(Qt::RightButton, centreOf(4, 3));
        QCOMPARE(played(), cues("008 009 002"));

        playPair({5, 3}, "2Sad / C2C2 / BT3B", {3, 3}, "3Sad / .3.2 / CT3B");
        const QImage afterFirstPair = fond().pctEcran3->image.copy();
        playPair({3, 2}, "3Tad / .3.2 / CT3B", {4, 3}, ".Qad / ...2 / CQ3B");
        const QImage beforeTouchingPair = fond().pctEcran3->image.copy();
        playPair({5, 2}, ".Raa / ...2 / CQ3B", {6, 2}, ".R.. / ...3 / CQ3B");

        // A pair of touching tiles comes back in the steps the player sees: the second tile's
        // neighbour turns back, the second tile returns with the first one's neighbours turned back,
        // then the first tile; the board is then as before the pair was picked.
        played().clear();
        Film film(fond().pctEcran3, played());
        click(Qt::RightButton, QPoint(1, 1));
        QCOMPARE(played(), cues("007 007"));
        QCOMPARE(screenHolds(levelZero(".Qad / ...2 / CQ3B"), -1), QString());
        QCOMPARE(firstWrongPixel(fond().pctEcran3->image, beforeTouchingPair), QString());
        QCOMPARE(fond().pairs.iCoup3, 1);
        std::vector<Film::Frame> frames = film.frames;
        while (!frames.empty() && frames.front().cuesHeard == 0) frames.erase(frames.begin());
        QCOMPARE(frames.size(), size_t(3));
        QCOMPARE(firstWrongPixel(frames[0].image, drawnBoard(fond(), levelZero(".R.. / ...2 / CQ3B"), -1)), QString());
        QCOMPARE(frames[0].cuesHeard, 1);
        QCOMPARE(firstWrongPixel(frames[1].image, drawnBoard(fond(), levelZero(".Q.d / ...2 / CQ3B"), -1)), QString());
        QCOMPARE(frames[1].cuesHeard, 2);
        QCOMPARE(firstWrongPixel(frames[2].image, beforeTouchingPair), QString());

        // With a tile selected, one right click cancels it and takes the last pair back.
        played().clear();
        clickCell(4, 4);
        QCOMPARE(screenHolds(levelZero(".Qad / ...2 / DQ4B"), code(4, 4)), QString());
        click(Qt::RightButton, QPoint(467, 467));
        QCOMPARE(played(), cues("010 007x3"));
        QCOMPARE(screenHolds(levelZero("3Sad / .3.2 / CT3B"), -1), QString());
        QCOMPARE(firstWrongPixel(fond().pctEcran3->image, afterFirstPair), QString());

        // Back to the start, after which the right button is silent again.
        played().clear();
        click(Qt::RightButton, centreOf(8, 0));
        QCOMPARE(played(), cues("007 007"));
        QCOMPARE(screenHolds(levelZero("2Sdd / C1C1 / BT2B"), -1), QString());
        QCOMPARE(firstWrongPixel(fond().pctEcran3->image, startImage), QString());
        QCOMPARE(fond().pairs.iCoup3, -1);
        click(Qt::RightButton, centreOf(3, 3));
        QCOMPARE(played(), cues("007 007"));
        QCOMPARE(screenHolds(levelZero("2Sdd / C1C1 / BT2B"), -1), QString());
        verifyPlaying(fond(), 3, 0, QString());
    }

    // The pixel at 51 is the last of the first cell, 52 the first of the second, 467 the last of the board.
    void theCellUnderThePointer()
    {
        PlaySession::keepLevels(3, {95});
        session.startGame(3, QStringLiteral("anne"));
        const Cells level = cellsOfRows(kLevel95);
        QCOMPARE(screenHolds(level, -1), QString());
        struct Probe {
            QPoint at;
            int x, y;
        };
        const Probe probes[] = {{{51, 51}, 0, 0},   {{52, 52}, 1, 1},  {{51, 52}, 0, 1},   {{52, 51}, 1, 0},
                                {{467, 467}, 8, 8}, {{467, 52}, 8, 1}, {{467, 51}, 8, 0},  {{51, 467}, 0, 8},
                                {{52, 467}, 1, 8},  {{1, 0}, 0, 0},    {{415, 415}, 7, 7}, {{416, 416}, 8, 8}};
        for (const Probe &probe : probes) {
            played().clear();
            click(Qt::LeftButton, probe.at);
            if (level[probe.x][probe.y] == 0) {
                QVERIFY2(played().isEmpty(),
                         qPrintable(QStringLiteral("at %1, %2").arg(probe.at.x()).arg(probe.at.y())));
                QCOMPARE(fond().pairs.iChoix3, -1);
                continue;
            }
            QCOMPARE(fond().pairs.iChoix3, code(probe.x, probe.y));
            click(Qt::LeftButton, probe.at);
            QCOMPARE(played(), cues("010 007"));
            QCOMPARE(fond().pairs.iChoix3, -1);
        }
        QCOMPARE(screenHolds(level, -1), QString());
    }

    // The label shows the index of the level, from 000.
    void theLevelLabel()
    {
        struct Case {
            int level;
            const char *rows;
            const char *label;
        };
        for (const Case &c : {Case{35, kLevel35, "035"}, Case{119, kLevel119, "119"}, Case{4, kLevel4, "004"}}) {
            played().clear();
            gNiveau = c.level;
            fond().PrepareEcran3();
            fond().ChargeNiveau3();
            QCOMPARE(fond().labNiveau->text(), QString::fromLatin1(c.label));
            QVERIFY(fond().labNiveau->isVisible());
            QCOMPARE(played(), cues("002"));
            QCOMPARE(screenHolds(cellsOfRows(c.rows), -1), QString());
        }
    }
};

QTEST_MAIN(TestPairsScreen)
#include "tst_pairs_screen.moc"

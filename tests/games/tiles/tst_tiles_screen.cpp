// Jeu 1 played at the real window with the mouse: a whole game from the start button to the closing
// message and the save, the way clicks map to cells, take-backs, the pause after a won level, the
// clock, and the best-times file as each won level leaves it.
// After every redraw the screen is checked cell by cell against the model, pixel for pixel.
// The clock never ticks on its own here: the tests count the seconds themselves.
#include "best_times_bytes.h"
#include "board_oracle.h"
#include "cue_names.h"
#include "dialog_log.h"
#include "file_bytes.h"
#include "first_moment.h"
#include "play_session.h"
#include "window_states.h"

#include <algorithm>
#include <vector>

namespace {

constexpr int kCell = 54;
constexpr int kLowerTop = 278;
constexpr int kSheetSocket = 4;
constexpr int kSheetWon = 5;
const QRect kScreenPlace(128, 26, 432, 548);

struct Cell {
    int x;
    int y;
};

// Solutions of levels 0 and 1 of the shipped store.
const std::vector<Cell> kSolutions[2] = {{{3, 4}, {3, 3}, {3, 0}, {3, 1}, {3, 2}},
                                         {{3, 2}, {4, 2}, {5, 2}, {3, 3}, {3, 4}, {3, 1}, {3, 0}, {2, 2}, {1, 2}}};

QPoint upperPoint(Cell c) { return {kCell * c.x + kCell / 2, kCell * c.y + kCell / 2}; }
QPoint lowerPoint(Cell c) { return {kCell * c.x + kCell / 2, kLowerTop + kCell * c.y + kCell / 2}; }
QRect sheetCell(int index) { return {index * kCell, 0, kCell, kCell}; }

bool showsWonArt(const frmFond &fond)
{
    const QImage won = fond.pctPion1->image.copy(sheetCell(kSheetWon));
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 8; ++x)
            if (fond.tiles.tabCible1[x][y] > 0 && fond.pctEcran1->image.copy(kCell * x, kCell * y, kCell, kCell) != won)
                return false;
    return true;
}

bool sameTiles(const TileBoard &a, const TileBoard &b)
{
    return std::equal(&a.tabCible1[0][0], &a.tabCible1[0][0] + 9 * 6, &b.tabCible1[0][0])
           && std::equal(&a.tabJeu1[0][0], &a.tabJeu1[0][0] + 9 * 6, &b.tabJeu1[0][0])
           && std::equal(a.tabCoups1, a.tabCoups1 + 51, b.tabCoups1) && a.iCoup1 == b.iCoup1;
}

enum class Upper { Targets, Won };

// A whole game of two levels: the levels kept, the name typed and as the program takes it, the
// placements after which the clock ticks on each level, the best-times rows the two wins leave (the
// first empty when it earns none), the name typed at the offer to save, and what the data folder
// then holds.
struct Game {
    QList<int> levels;
    QString typed;
    QByteArray player;
    QList<int> firstTicks, secondTicks;
    QByteArray firstRow, lastRow;
    QString gameName;
    QStringList dataFiles;
    QByteArray saved;
};

// What the screen must hold for the model: on each cell the sheet cell of its value, elsewhere the
// window's own background behind the screen.
QImage expectedScreen(const frmFond &fond, Upper upper)
{
    const QImage &sheet = fond.pctPion1->image;
    QImage wanted = backgroundUnder(fond, kScreenPlace);
    for (int y = 0; y < 5; ++y) {
        for (int x = 0; x < 8; ++x) {
            const int target = fond.tiles.tabCible1[x][y];
            if (target > 0)
                putSprite(wanted, {kCell * x, kCell * y}, sheet,
                          sheetCell(upper == Upper::Won ? kSheetWon : target - 1));
            const int value = fond.tiles.tabJeu1[x][y];
            const QPoint lower(kCell * x, kLowerTop + kCell * y);
            if (value >= 1 && value <= 4)
                putSprite(wanted, lower, sheet, sheetCell(value - 1));
            else if (value == TileBoard::kSocle)
                putSprite(wanted, lower, sheet, sheetCell(kSheetSocket));
        }
    }
    return wanted;
}

} // namespace

Q_DECLARE_METATYPE(Game)

class TestTilesScreen : public QObject {
    Q_OBJECT

    PlaySession session;

    frmFond &fond() { return *session.fond; }
    QStringList &played() { return session.fond->tambour.played; }
    QByteArray bestTimes() const { return readAll(session.dataFolder() + QStringLiteral("mlbestTime.dat")); }

    void click(Qt::MouseButton button, QPoint at) { PlaySession::press(fond().pctEcran1, button, at); }

    // Empty when the screen shows the model, in the image and on the window.
    QString screenFault(Upper upper = Upper::Targets)
    {
        if (fond().pctPion1->image.size() != QSize(6 * kCell, kCell)) return QStringLiteral("sheet of the wrong size");
        return ::screenFault(fond(), fond().pctEcran1, kScreenPlace, expectedScreen(fond(), upper));
    }

    // A click on a socket: one cue, the placement recorded, the screen redrawn, the level still on.
    void place(Cell c, Qt::MouseButton button = Qt::LeftButton)
    {
        const QStringList before = played();
        const int32_t coup = fond().tiles.iCoup1;
        QCOMPARE(fond().tiles.tabJeu1[c.x][c.y], TileBoard::kSocle);
        click(button, lowerPoint(c));
        QCOMPARE(played(), before + cues("010"));
        QCOMPARE(fond().tiles.iCoup1, coup + 1);
        QCOMPARE(fond().tiles.tabCoups1[coup + 1], c.y * 8 + c.x);
        QVERIFY(fond().isEnabled());
        QVERIFY(fond().myTimer.isActive());
        QCOMPARE(screenFault(), QString());
    }

    // A click that no rule accepts: no cue, no change to the model or to the screen.
    void clickIgnored(Qt::MouseButton button, QPoint at)
    {
        const QStringList before = played();
        const TileBoard tiles = fond().tiles;
        const QImage image = fond().pctEcran1->image;
        click(button, at);
        QCOMPARE(played(), before);
        QVERIFY(sameTiles(fond().tiles, tiles));
        QVERIFY(fond().pctEcran1->image == image);
        QVERIFY(fond().isEnabled());
    }

    // Places a level's solution but its last cell, with a tick of the clock after each placement listed.
    void placeAllButLast(const std::vector<Cell> &solution, const QList<int> &ticksAfter)
    {
        for (int i = 0; i + 1 < int(solution.size()); ++i) {
            place(solution[i]);
            if (ticksAfter.contains(i)) session.tick();
        }
    }

    // The winning click of a level that is not the last, with the window checked during the pause:
    // the level just won still current, input off, the won art, the labels kept, the clock stopped,
    // the best times as given; a right click then, which would take a tile back if it got through,
    // and a left click are both lost.
    void winCheckingThePause(Cell last, const QString &seconds, double total, const QByteArray &best)
    {
        const int32_t won = gNiveau;
        // Events are also handled before the won art is drawn, while the cue of a place in the best
        // times is started: the pause is from that art on.
        Probe pause(
            [&] { return !fond().isEnabled() && gNiveau == won && fond().tiles.Complet1() && showsWonArt(fond()); },
            [&] {
                verifyPaused(fond(), won, seconds, total);
                QCOMPARE(screenFault(Upper::Won), QString());
                QCOMPARE(bestTimes(), best);
                const QStringList cuesBefore = played();
                const TileBoard tiles = fond().tiles;
                const QImage image = fond().pctEcran1->image;
                expectRefusedClicks(2);
                click(Qt::RightButton, upperPoint({0, 0}));
                click(Qt::LeftButton, lowerPoint(last));
                QVERIFY2(played() == cuesBefore && sameTiles(fond().tiles, tiles) && fond().pctEcran1->image == image
                             && gNiveau == won,
                         "a click made during the pause was handled");
            });
        click(Qt::LeftButton, lowerPoint(last));
        QVERIFY2(pause.fired, "the pause after the won level was not caught");
    }

private slots:
    void init()
    {
        session.start();
        session.stopClock();
    }
    void cleanup() { session.fond.reset(); }

    // A whole game of two levels of the shipped store, from the start button to the close. Each level
    // won is written to the best times if it earns a row: in no time it ties with the empty rows and
    // takes the first, with its cue; in 2 seconds level 0 scores below them, with neither cue nor write.
    // The seconds of the first level join the total when it is won and stay on the label through the
    // pause. At the close the screen goes, the last level won takes its row, then come the closing
    // message and the offer to save, answered with a name or with blanks.
    void aWholeGameOfTwoLevels_data()
    {
        QTest::addColumn<Game>("game");
        QTest::newRow("ANNE in 0 then 1 s, saved") << Game{{0, 1},
                                                           "  anne  ",
                                                           "ANNE",
                                                           {},
                                                           {3},
                                                           timesLine(0, 0, "ANNE"),
                                                           timesLine(1, 1, "ANNE"),
                                                           "ma partie",
                                                           {"ma partie.sml", "mlbestTime.dat"},
                                                           "\"ANNE\"\r\n999\r\n1\r\n0\r\n0\r\n0\r\n0\r\n"};
        QTest::newRow("ZOE in 2 then 0 s, not saved")
            << Game{{1, 0}, "Zoe ", "ZOE", {2, 5}, {}, {}, timesLine(1, 2, "ZOE"), "   ", {"mlbestTime.dat"}, {}};
    }

    void aWholeGameOfTwoLevels()
    {
        QFETCH(Game, game);
        const auto &[levels, typed, player, firstTicks, secondTicks, firstRow, lastRow, gameName, dataFiles, saved] =
            game;
        const std::vector<Cell> &first = kSolutions[levels[0]];
        const std::vector<Cell> &second = kSolutions[levels[1]];
        const double firstSeconds = firstTicks.size(), total = firstSeconds + secondTicks.size();
        const QString firstLabel = firstTicks.isEmpty() ? QString() : QStringLiteral(" %1").arg(firstTicks.size());

        QCOMPARE(gCheminData, session.dataFolder());
        QCOMPARE(bestTimes(), timesFile());
        QCOMPARE(bestTimes().size(), 279);

        PlaySession::keepLevels(1, {levels[0], levels[1]});
        session.startGame(1, typed);

        verifyPlaying(fond(), 1, 0, QString());
        QCOMPARE(gNbNiveaux, 2);
        QCOMPARE(gNomJoueur, QString::fromLatin1(player));
        QCOMPARE(gTempsTotal, 0.0);
        QCOMPARE(gTempsNiveau, 0.0);
        QVERIFY(!gASauver);
        QCOMPARE(fond().myTimer.interval(), std::numeric_limits<int>::max());
        QVERIFY(menuShowsIdleArt(fond(), false));
        QCOMPARE(played(), cues("008 009 002"));
        QCOMPARE(screenFault(), QString());

        placeAllButLast(first, firstTicks);
        QCOMPARE(fond().labTemps->text(), firstLabel);
        QCOMPARE(gTempsTotal, 0.0);
        const QByteArray afterFirst = firstRow.isEmpty() ? timesFile() : timesFile(1, {firstRow});
        winCheckingThePause(first.back(), firstLabel, firstSeconds, afterFirst);

        // The next level is up: fresh sockets, its own number, the clock running again.
        verifyPlaying(fond(), 1, 1, firstLabel);
        QCOMPARE(fond().tiles.iCoup1, -1);
        QVERIFY(gASauver);
        QCOMPARE(gTempsNiveau, 0.0);
        QCOMPARE(gTempsTotal, firstSeconds);
        const QStringList firstCues = cues("008 009 002") + QStringList(first.size(), QStringLiteral("marel010.wav"))
                                      + (firstRow.isEmpty() ? QStringList() : cues("001")) + cues("002");
        QCOMPARE(played(), firstCues);
        QCOMPARE(screenFault(), QString());
        QCOMPARE(bestTimes(), afterFirst);

        placeAllButLast(second, secondTicks);
        if (!secondTicks.isEmpty()) QCOMPARE(fond().labTemps->text(), QStringLiteral(" %1").arg(secondTicks.size()));

        // The last level won: the screen goes and the last level won takes its row before the closing
        // message comes up; the offer to save finds no game saved yet.
        bool screenHidden = false, inputOff = false;
        int32_t niveau = -1, jeu = -1;
        QStringList cuesAtMessage, filesAtOffer;
        QByteArray bestAtMessage;
        DialogLog log(session, {{QStringLiteral("Fermer"), QString(),
                                 [&] {
                                     screenHidden = !fond().pctEcran1->isVisible();
                                     niveau = gNiveau;
                                     jeu = gJeu;
                                     inputOff = !fond().isEnabled();
                                     cuesAtMessage = played();
                                     bestAtMessage = bestTimes();
                                 }},
                                {QStringLiteral("Valider"), gameName, [&] { filesAtOffer = session.dataFiles(); }}});
        click(Qt::LeftButton, lowerPoint(second.back()));

        QVERIFY(screenHidden);
        QCOMPARE(niveau, 999);
        QCOMPARE(jeu, 1);
        QVERIFY(inputOff);
        const QStringList whole =
            firstCues + QStringList(second.size(), QStringLiteral("marel010.wav")) + cues("001 001 008");
        QCOMPARE(cuesAtMessage, whole);
        QCOMPARE(bestAtMessage, timesFile(1, {lastRow}));
        QCOMPARE(log.seen, (QStringList{congratulations(player.constData(), 2, 1), kSaveOffer}));
        QCOMPARE(filesAtOffer, QStringList{QStringLiteral("mlbestTime.dat")});

        QCOMPARE(session.dataFiles(), dataFiles);
        if (!saved.isEmpty()) QCOMPARE(readAll(session.dataFolder() + gameName + QStringLiteral(".sml")), saved);
        QCOMPARE(bestTimes(), timesFile(1, {lastRow}));
        QCOMPARE(played(), whole + cues("009 008 009"));
        verifyIdle(fond());
        QCOMPARE(gTempsTotal, total);
        QCOMPARE(gTempsNiveau, 0.0);
    }

    // Level 77 has cells in every corner and non-cells inside.
    void clicksMapToCellsOfTheLowerBoardOnly()
    {
        PlaySession::keepLevels(1, {77});
        session.startGame(1, QStringLiteral("x"));
        played().clear();
        QCOMPARE(screenFault(), QString());

        clickIgnored(Qt::LeftButton, {0, 277});   // row -1, just above the lower board
        clickIgnored(Qt::LeftButton, {0, 0});     // upper board
        clickIgnored(Qt::LeftButton, {431, 269}); // upper board, last pixel
        clickIgnored(Qt::LeftButton, {200, 270}); // gap
        clickIgnored(Qt::MiddleButton, {431, 273});
        clickIgnored(Qt::LeftButton, lowerPoint({3, 1})); // non-cell
        clickIgnored(Qt::LeftButton, lowerPoint({3, 2})); // non-cell
        QCOMPARE(fond().tiles.iCoup1, -1);

        const QPoint topLeft(0, 278);
        click(Qt::LeftButton, topLeft);
        QCOMPARE(played(), cues("010"));
        QCOMPARE(fond().tiles.iCoup1, 0);
        QCOMPARE(fond().tiles.tabCoups1[0], 0);
        QCOMPARE(fond().tiles.tabJeu1[0][0], 1);
        QCOMPARE(screenFault(), QString());

        clickIgnored(Qt::LeftButton, topLeft);   // the tile just placed
        clickIgnored(Qt::LeftButton, {53, 331}); // its last pixel
        clickIgnored(Qt::MiddleButton, {27, 300});

        click(Qt::MiddleButton, {431, 547});
        QCOMPARE(fond().tiles.tabCoups1[1], 4 * 8 + 7);
        click(Qt::LeftButton, {431, 278});
        QCOMPARE(fond().tiles.tabCoups1[2], 7);
        click(Qt::LeftButton, {0, 332}); // row 1 under the first tile, which gains a pip
        QCOMPARE(fond().tiles.tabCoups1[3], 8);
        QCOMPARE(fond().tiles.tabJeu1[0][0], 2);
        click(Qt::MiddleButton, {54, 278}); // column 1, beside the first tile
        QCOMPARE(fond().tiles.tabCoups1[4], 1);
        QCOMPARE(fond().tiles.tabJeu1[0][0], 3);
        QCOMPARE(fond().tiles.tabJeu1[2][0], TileBoard::kSocle);
        QCOMPARE(fond().tiles.iCoup1, 4);
        QCOMPARE(played(), cues("010x5"));
        verifyPlaying(fond(), 1, 0, QString());
        QCOMPARE(screenFault(), QString());
    }

    // Level 0 placed top to bottom fills every socket without the target: nothing happens until the
    // placements are taken back, by right clicks anywhere on the screen.
    void rightClicksTakeBackAnywhereAndNeverEndTheLevel()
    {
        PlaySession::keepLevels(1, {0, 1});
        session.startGame(1, QStringLiteral("x"));
        const QImage fresh = fond().pctEcran1->image;
        const TileBoard start = fond().tiles;
        played().clear();

        clickIgnored(Qt::RightButton, upperPoint({3, 0}));
        clickIgnored(Qt::RightButton, lowerPoint({3, 0}));

        std::vector<TileBoard> before;
        for (int y = 0; y < 5; ++y) {
            before.push_back(fond().tiles);
            place({3, y});
        }
        QVERIFY(!fond().tiles.Complet1());
        for (int y = 0; y < 5; ++y) QCOMPARE(fond().tiles.tabJeu1[3][y], y < 4 ? 2 : 1);
        QCOMPARE(gNiveau, 0);
        QCOMPARE(gTempsTotal, 0.0);
        QVERIFY(!gASauver);
        QCOMPARE(played(), cues("010x5"));
        played().clear();

        const QPoint anywhere[5] = {upperPoint({3, 1}), {200, 274}, lowerPoint({0, 0}), lowerPoint({3, 2}), {431, 547}};
        for (int i = 0; i < 5; ++i) {
            click(Qt::RightButton, anywhere[i]);
            QCOMPARE(played(), QStringList(i + 1, QStringLiteral("marel007.wav")));
            QVERIFY(sameTiles(fond().tiles, before[4 - i]));
            verifyPlaying(fond(), 1, 0, QString());
            QVERIFY(!gASauver);
            QCOMPARE(screenFault(), QString());
        }
        QVERIFY(sameTiles(fond().tiles, start));
        QVERIFY(fond().pctEcran1->image == fresh);
        clickIgnored(Qt::RightButton, upperPoint({0, 0}));

        // The way on: the right order, with the middle button, wins the level (in no time, which
        // takes the first row of the best times, hence marel001).
        played().clear();
        for (const Cell &c : kSolutions[0]) click(Qt::MiddleButton, lowerPoint(c));
        QCOMPARE(played(), cues("010x5 001 002"));
        verifyPlaying(fond(), 1, 1, QString());
        QCOMPARE(screenFault(), QString());
    }
};

QTEST_MAIN(TestTilesScreen)
#include "tst_tiles_screen.moc"

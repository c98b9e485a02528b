// SPDX-License-Identifier: MIT
// Jeu 2 played at the real window with the mouse: the set-up of a level, clicks and take-backs, the
// pause after a won level, the close of the game with its offer to save, and at each step the board,
// the pixels on the screen, the labels, the clock, the cues heard and the files left in the data folder.
#include "best_times_bytes.h"
#include "board_oracle.h"
#include "file_bytes.h"
#include "game_steps.h"
#include "level_store.h"
#include "stone_board.h"
#include "system_input.h"

#include <QWindow>

namespace {

constexpr int kCell = 60;
const QRect kScreenPlace(104, 30, 480, 540);

// The two clicks that win levels 0 and 1 of the shipped store.
const QPoint kSolutions[2][2] = {{{3, 4}, {4, 4}}, {{4, 3}, {3, 4}}};

QPoint centreOf(int x, int y) { return {kCell * x + kCell / 2, kCell * y + kCell / 2}; }
QPoint centreOf(QPoint cell) { return centreOf(cell.x(), cell.y()); }

// Level n of the current store, freshly set up, then clicked at the cells given.
StoneBoard levelBoard(int n, std::initializer_list<QPoint> clicks = {})
{
    StoneBoard board;
    board.LitNiveau2(storeBytes(gNiveaux2), n);
    for (const QPoint &cell : clicks) board.Retourne2(cell.x(), cell.y());
    return board;
}

// What the screen must show for a board: the window's background behind it, and each stone drawn
// through its mask.
QImage expectedScreen(const frmFond &fond, const StoneBoard &board)
{
    QImage wanted = backgroundUnder(fond, kScreenPlace);
    for (int y = 0; y < 9; ++y)
        for (int x = 0; x < 8; ++x)
            if (board.tabPions2[x][y] == StoneBoard::kVrai)
                putMaskedSprite(wanted, {kCell * x, kCell * y}, fond.pctPion2->image, {0, 0, kCell, kCell}, {kCell, 0});
    return wanted;
}

} // namespace

class TestStonesScreen : public QObject {
    Q_OBJECT

    PlaySession session;
    frmFond *fond = nullptr;

    QStringList &played() { return session.played(); }
    QByteArray board() { return bytesOf(fond->stones); }

    void press(Qt::MouseButton button, QPoint at) { PlaySession::press(fond->pctEcran2, button, at); }
    void click(int x, int y) { press(Qt::LeftButton, centreOf(x, y)); }
    void pressIgnored(Qt::MouseButton button, QPoint at)
    {
        verifyIgnored(session, fond->pctEcran2, button, at, [this] { return board(); });
    }
    // A press given to the window at a point of the screen, for the window to find the screen under
    // it; unlike a press given to the screen itself, it can reach the screen's pixel (0, 0).
    void pressThroughWindow(Qt::MouseButton button, QPoint at)
    {
        QWindow *window = fond->windowHandle();
        QTest::mousePress(window, button, {}, kScreenPlace.topLeft() + at);
        QTest::mouseRelease(window, button, {}, kScreenPlace.topLeft() + at);
    }

    // The board in play is the one given, with the click given last on record, and the screen shows it.
    void verifyBoard(const StoneBoard &board, int coup = -1)
    {
        // All nine columns of the array, the unused ninth too.
        QVERIFY(std::equal(&board.tabPions2[0][0], &board.tabPions2[0][0] + 81, &fond->stones.tabPions2[0][0]));
        QCOMPARE(fond->stones.iCoup2, coup);
        QCOMPARE(screenFault(fond->stones), QString());
    }
    QString screenFault(const StoneBoard &board)
    {
        return ::screenFault(*fond, fond->pctEcran2, kScreenPlace, expectedScreen(*fond, board));
    }

private slots:
    void init()
    {
        session.start();
        fond = session.fond.get();
        // The seconds of play come from tick().
        session.stopClock();
    }

    void cleanup()
    {
        session.fond.reset();
        fond = nullptr;
    }

    // A whole game from the start button back to idle: each level set up, its clock ticking, its two
    // clicks, the pause after it or the close of the game, and the best-times row each win leaves.
    void wholeGameFromTheStartButtonBackToIdle_data()
    {
        QTest::addColumn<QList<int>>("levels");
        QTest::addColumn<QList<int>>("seconds");
        QTest::addColumn<QByteArrayList>("rowsAfter");
        QTest::addColumn<QString>("gameName");

        const QString name = QStringLiteral("Anne du lundi");
        // Level 0 in no time scores exactly as an empty row, and a new player goes above its equals.
        QTest::newRow("level 0 in 0 s takes row 1")
            << QList<int>{0, 1} << QList<int>{0, 2} << QByteArrayList{timesLine(0, 0, "ANNE"), timesLine(1, 2, "ANNE")}
            << name;
        // A game of one level, the shipped level 1 as level 0, in 1 s: one second more than the empty
        // rows' score, so no row; an empty box declines the save.
        QTest::newRow("one level in 1 s, not saved")
            << QList<int>{1} << QList<int>{1} << QByteArrayList{kEmptyTimesLine} << QString();
    }

    void wholeGameFromTheStartButtonBackToIdle()
    {
        QFETCH(QList<int>, levels);
        QFETCH(QList<int>, seconds);
        QFETCH(QByteArrayList, rowsAfter);
        QFETCH(QString, gameName);
        PlaySession::keepLevels(2, levels);
        session.startGame(2, QStringLiteral("anne"));
        QStringList heard = cues("008 009 002");
        int total = 0;
        QByteArray best = timesFile();
        QString label; // the seconds of the last level that ticked
        for (int level = 0; level < levels.size(); ++level) {
            verifyPlaying(*fond, 2, level, label);
            verifyBoard(levelBoard(level));

            // The clock ticks, but its seconds join the total only when the level is won.
            session.tick(seconds[level]);
            if (seconds[level] > 0) label = QStringLiteral(" %1").arg(seconds[level]);
            QCOMPARE(fond->labTemps->text(), label);
            QCOMPARE(gTempsNiveau, double(seconds[level]));
            QCOMPARE(gTempsTotal, double(total));

            const QPoint first = kSolutions[levels[level]][0], last = kSolutions[levels[level]][1];
            click(first.x(), first.y());
            verifyBoard(levelBoard(level, {first}), first.y() * 8 + first.x());
            QCOMPARE(session.bestTimes(), best);

            total += seconds[level];
            best = timesFile(2, {rowsAfter[level]});
            heard += cues(rowsAfter[level] == kEmptyTimesLine ? "010x2" : "010x2 001");
            if (level + 1 == levels.size()) {
                winTheGame(
                    session, [&] { click(last.x(), last.y()); }, heard + cues("001"), "ANNE", 2, int(levels.size()),
                    total, gameName);
                QCOMPARE(session.bestTimes(), best);
                return;
            }
            winThroughThePause(
                session, fond->pctEcran2, centreOf(last), label, total, heard, best, [this] { return board(); },
                [this] { return screenFault(StoneBoard{}); });
            heard += cues("002");
        }
    }

    // The close of a one-level game, its offer to save answered with the name of a game already
    // saved, which the program refuses, then with a new one, which counts whichever button takes it:
    // only the second name gets a file, and nothing else is touched.
    void refusedGameNameIsAskedAgain()
    {
        session.startOn(2, {1});
        const QByteArray taken = "\"PAUL\"\r\n3\r\n40\r\n5\r\n60\r\n0\r\n0\r\n";
        writeAll(session.dataFolder() + QStringLiteral("Lundi.sml"), taken);

        session.tick(5);
        click(4, 3);
        DialogLog log(session, {{QStringLiteral("Fermer")},
                                {QStringLiteral("Valider"), QStringLiteral("Lundi")},
                                {QStringLiteral("Annuler"), QStringLiteral("mardi")}});
        click(3, 4);

        QCOMPARE(log.seen, (QStringList{congratulations("ANNE", 1, 2), kSaveOffer,
                                        QStringLiteral("Ce nom existe déjà ou ne convient pas.\nDonnez un nom à votre "
                                                       "partie. [Valider|Annuler] box:")}));
        QCOMPARE(session.dataFiles(), (QStringList{QStringLiteral("Lundi.sml"), QStringLiteral("mardi.sml"),
                                                   QStringLiteral("mlbestTime.dat")}));
        QCOMPARE(session.dataFile(QStringLiteral("mardi.sml")), savedGame("ANNE", 2, 5));
        QCOMPARE(session.dataFile(QStringLiteral("Lundi.sml")), taken);
        verifyIdle(*fond);
    }

    void clicksFindTheirCellUpToTheEdges()
    {
        session.startOn(2, {0, 1});
        // The pixel pressed, the button, the cell whose stones turn.
        const std::tuple<QPoint, Qt::MouseButton, QPoint> cases[] = {
            {{479, 539}, Qt::LeftButton, {7, 8}}, // the last pixel: nothing flips past the edges
            {{0, 0}, Qt::LeftButton, {0, 0}},     // an empty corner takes stones like any cell
            {{59, 59}, Qt::LeftButton, {0, 0}},   // the same cell again: they go
            {{60, 60}, Qt::LeftButton, {1, 1}},   {{330, 270}, Qt::MiddleButton, {5, 4}},
            {{479, 0}, Qt::MiddleButton, {7, 0}},
        };
        StoneBoard expected = levelBoard(0);
        qsizetype clicks = 0;
        for (const auto &[at, button, cell] : cases) {
            expected.Retourne2(cell.x(), cell.y());
            pressThroughWindow(button, at);
            verifyBoard(expected, cell.y() * 8 + cell.x());
            QCOMPARE(played(), QStringList(++clicks, QStringLiteral("marel010.wav")));
        }
        verifyPlaying(*fond, 2, 0, QString());
    }

    // On a shipped level, and on an empty one, which a take-back back to the start does not win.
    void rightButtonTakesBackTheLastClickOnly_data()
    {
        QTest::addColumn<bool>("empty");
        QTest::newRow("level 0") << false;
        QTest::newRow("an empty level") << true;
    }

    void rightButtonTakesBackTheLastClickOnly()
    {
        QFETCH(bool, empty);
        if (empty) gNiveaux2 = QByteArray(StoneBoard::kOctetsParNiveau, '0') + gNiveaux2;
        session.startOn(2, {0, 1});

        // Nothing to take back at the start of a level: no sound, no change.
        verifyBoard(levelBoard(0));
        pressIgnored(Qt::RightButton, centreOf(3, 4));

        // One click taken back, wherever the right button is pressed: the level as it was set up,
        // still in play.
        click(2, 6);
        verifyBoard(levelBoard(0, {{2, 6}}), 6 * 8 + 2);
        press(Qt::RightButton, {470, 10});
        QCOMPARE(played(), cues("010x2 007"));
        verifyBoard(levelBoard(0));
        verifyPlaying(*fond, 2, 0, QString());
        // Right after a take-back there is nothing more to take back.
        pressIgnored(Qt::RightButton, centreOf(2, 6));

        // Two clicks: only the second is taken back, and only once.
        click(3, 4);
        click(6, 1);
        press(Qt::RightButton, centreOf(0, 0));
        QCOMPARE(played(), cues("010x2 007 010x3 007"));
        verifyBoard(levelBoard(0, {{3, 4}}));
        pressIgnored(Qt::RightButton, centreOf(0, 0));
        verifyPlaying(*fond, 2, 0, QString());
    }

    // Two take-backs and a click that reach a busy window together are handled one after the other,
    // never one inside the other: the second take-back finds nothing left to take back.
    void queuedPressesAreHandledOneAtATime()
    {
        if (!underX()) QSKIP("only a real window system queues presses");
        session.startOn(2, {0, 1});
        click(2, 6);
        queuePresses(
            fond->pctEcran2,
            {{Qt::RightButton, centreOf(0, 0)}, {Qt::RightButton, centreOf(0, 0)}, {Qt::LeftButton, centreOf(5, 5)}});
        QTest::qWait(100);
        QCOMPARE(played(), cues("010x2 007 010"));
        verifyBoard(levelBoard(0, {{5, 5}}), 5 * 8 + 5);
        verifyPlaying(*fond, 2, 0, QString());
    }
};

QTEST_MAIN(TestStonesScreen)
#include "tst_stones_screen.moc"

// Jeu 2 played at the real window with the mouse: the set-up of a level, clicks and take-backs, the
// pause after a won level, the close of the game with its offer to save, and at each step the board,
// the pixels on the screen, the labels, the clock, the cues heard and the files left in the data folder.
#include "best_times_bytes.h"
#include "board_oracle.h"
#include "cue_names.h"
#include "dialog_log.h"
#include "file_bytes.h"
#include "first_moment.h"
#include "level_store.h"
#include "play_session.h"
#include "stone_board.h"
#include "window_states.h"

#include <QElapsedTimer>
#include <QWindow>

namespace {

constexpr int kCell = 60;
const QRect kScreenPlace(104, 30, 480, 540);

// A saved game holding only game 2, as the close of a finished game writes it.
QByteArray savedGameTwo(int seconds)
{
    return "\"ANNE\"\r\n0\r\n0\r\n999\r\n" + QByteArray::number(seconds) + "\r\n0\r\n0\r\n";
}

QStringList filesIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System, QDir::Name);
}

QPoint centreOf(int x, int y) { return {kCell * x + kCell / 2, kCell * y + kCell / 2}; }

// Level n of the current store, freshly set up, then clicked at the cells given.
StoneBoard levelBoard(int n, std::initializer_list<QPoint> clicks = {})
{
    StoneBoard board;
    board.LitNiveau2(storeBytes(gNiveaux2), n);
    for (const QPoint &cell : clicks) board.Retourne2(cell.x(), cell.y());
    return board;
}

// The board row by row, over all nine columns of the array, the unused ninth last.
QString rows(const StoneBoard &board)
{
    QStringList out;
    for (int y = 0; y < 9; ++y) {
        QString row;
        for (int x = 0; x < 9; ++x) {
            const int16_t cell = board.tabPions2[x][y];
            row += cell == StoneBoard::kVrai   ? QLatin1Char('1')
                   : cell == StoneBoard::kFaux ? QLatin1Char('0')
                                               : QLatin1Char('?');
        }
        out << row;
    }
    return out.join(QLatin1Char(' '));
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

    QStringList &played() { return fond->tambour.played; }
    QByteArray bestTimes() const { return readAll(session.dataFolder() + QStringLiteral("mlbestTime.dat")); }

    void press(Qt::MouseButton button, QPoint at) { PlaySession::press(fond->pctEcran2, button, at); }
    void click(int x, int y) { press(Qt::LeftButton, centreOf(x, y)); }
    // A press given to the window at a point of the screen, for the window to find the screen under
    // it; unlike a press given to the screen itself, it can reach the screen's pixel (0, 0).
    void pressThroughWindow(Qt::MouseButton button, QPoint at)
    {
        QWindow *window = fond->windowHandle();
        QTest::mousePress(window, button, {}, kScreenPlace.topLeft() + at);
        QTest::mouseRelease(window, button, {}, kScreenPlace.topLeft() + at);
    }

    // The board in play is the one given, with no click on record, and the screen shows it.
    void verifyBoard(const StoneBoard &board, int coup = -1)
    {
        QCOMPARE(rows(fond->stones), rows(board));
        QCOMPARE(fond->stones.iCoup2, coup);
        QCOMPARE(screenFault(fond->stones), QString());
    }
    QString screenFault(const StoneBoard &board)
    {
        return ::screenFault(*fond, fond->pctEcran2, kScreenPlace, expectedScreen(*fond, board));
    }

    // Jeu 2 started from its button by ANNE on the levels given; the cues of the start are forgotten.
    void startStones(std::initializer_list<int> levels)
    {
        PlaySession::keepLevels(2, levels);
        session.startGame(2, QStringLiteral("anne"));
        QCOMPARE(gJeu, 2);
        played().clear();
    }

private slots:
    void init()
    {
        session.start();
        fond = session.fond.get();
        // The seconds of play come from tick(), except in the one test of the clock itself.
        if (qstrcmp(QTest::currentTestFunction(), "clockCountsRealSeconds") != 0) session.stopClock();
    }

    void cleanup()
    {
        session.fond.reset();
        fond = nullptr;
    }

    void wholeGameOfTwoLevelsFromTheStartButtonBackToIdle_data()
    {
        QTest::addColumn<int>("levelZeroSeconds");
        QTest::addColumn<int>("levelOneSeconds");
        QTest::addColumn<QByteArray>("rowAfterLevelZero");
        QTest::addColumn<QByteArray>("rowAfterLevelOne");

        // Level 0 in no time scores exactly as an empty row, and a new player goes above its equals.
        QTest::newRow("level 0 in 0 s takes row 1") << 0 << 2 << timesLine(0, 0, "ANNE") << timesLine(1, 2, "ANNE");
        // One second more and level 0 scores below the empty rows; level 1 beats them all.
        QTest::newRow("level 0 in 1 s stays out") << 1 << 2 << kEmptyTimesLine << timesLine(1, 3, "ANNE");
        QTest::newRow("level 0 in 2 s stays out") << 2 << 0 << kEmptyTimesLine << timesLine(1, 2, "ANNE");
    }

    void wholeGameOfTwoLevelsFromTheStartButtonBackToIdle()
    {
        QFETCH(int, levelZeroSeconds);
        QFETCH(int, levelOneSeconds);
        QFETCH(QByteArray, rowAfterLevelZero);
        QFETCH(QByteArray, rowAfterLevelOne);
        QCOMPARE(timesFile().size(), 279);
        QCOMPARE(session.dataFiles(), QStringList{QStringLiteral("mlbestTime.dat")});
        QCOMPARE(bestTimes(), timesFile());

        PlaySession::keepLevels(2, {0, 1});
        session.startGame(2, QStringLiteral("anne"));

        verifyPlaying(*fond, 2, 0, QString());
        QCOMPARE(gNbNiveaux, 2);
        verifyBoard(levelBoard(0));

        // The clock ticks, but its seconds join the total only when the level is won.
        session.tick(levelZeroSeconds);
        const QString levelZeroLabel = levelZeroSeconds > 0 ? QStringLiteral(" %1").arg(levelZeroSeconds) : QString();
        QCOMPARE(fond->labTemps->text(), levelZeroLabel);
        QCOMPARE(gTempsNiveau, double(levelZeroSeconds));
        QCOMPARE(gTempsTotal, 0.0);

        click(3, 4);
        QCOMPARE(gNiveau, 0);
        verifyBoard(levelBoard(0, {{3, 4}}), 4 * 8 + 3);
        QCOMPARE(bestTimes(), timesFile());

        // The pause on the empty board: a click then, on the first cell of level 1's solution, is lost.
        const QStringList heardBeforeWin = played();
        Probe inPause([this] { return gJeu == 2 && gNiveau == 0 && fond->stones.Vide2(); },
                      [&] {
                          QCOMPARE(screenFault(StoneBoard{}), QString());
                          verifyPaused(*fond, 0, levelZeroLabel, levelZeroSeconds);
                          const QStringList atPause = played();
                          // With no place in the best times, the winning click is the last cue.
                          if (rowAfterLevelZero == kEmptyTimesLine) QCOMPARE(atPause, heardBeforeWin + cues("010"));
                          click(4, 3);
                          QCOMPARE(played(), atPause);
                      });
        QElapsedTimer clock;
        clock.start();
        click(4, 4);
        QVERIFY(clock.nsecsElapsed() > qint64(2.0 * pauseScale() * 1e9));
        QVERIFY(inPause.fired);

        // Level 1 is up; the clock label still shows the seconds of level 0, which are now the total.
        verifyPlaying(*fond, 2, 1, levelZeroLabel);
        QCOMPARE(gTempsTotal, double(levelZeroSeconds));
        QCOMPARE(gTempsNiveau, 0.0);
        verifyBoard(levelBoard(1));
        QCOMPARE(bestTimes(), timesFile(2, {rowAfterLevelZero}));

        session.tick(levelOneSeconds);
        click(4, 3);
        QCOMPARE(screenFault(levelBoard(1, {{4, 3}})), QString());
        const QString gameName = QStringLiteral("Anne du lundi");
        DialogLog log(session, {{QStringLiteral("Fermer")}, {QStringLiteral("Valider"), gameName}});
        click(3, 4);

        const int total = levelZeroSeconds + levelOneSeconds;
        QCOMPARE(log.seen, (QStringList{congratulations("ANNE", 2, 2), kSaveOffer}));
        QCOMPARE(gTempsTotal, double(total));
        // Finished in full, the game stands in the table at its last level, and is saved as done.
        QCOMPARE(bestTimes(), timesFile(2, {rowAfterLevelOne}));
        QCOMPARE(session.dataFiles(),
                 (QStringList{gameName + QStringLiteral(".sml"), QStringLiteral("mlbestTime.dat")}));
        QCOMPARE(readAll(session.dataFolder() + gameName + QStringLiteral(".sml")), savedGameTwo(total));
        // The close: its own cue, then the congratulations and the offer to save, each opened and answered.
        QCOMPARE(played(), cues("008 009 002 010x2")
                               + (rowAfterLevelZero != kEmptyTimesLine ? cues("001") : QStringList())
                               + cues("002 010x2 001 001 008 009 008 009"));
        verifyIdle(*fond);
    }

    // The close of a one-level game, its offer to save answered with a name the program must refuse,
    // then with a good one: only the second name gets a file, and nothing else is touched.
    void refusedGameNameIsAskedAgain_data()
    {
        QTest::addColumn<QString>("refused");
        QTest::addColumn<QString>("secondButton");

        QTest::newRow("a folder in the name") << QStringLiteral("a/b") << QStringLiteral("Valider");
        QTest::newRow("a way out of the folder") << QStringLiteral("../ANNE") << QStringLiteral("Valider");
        // With the box shown, the name counts whichever button takes it.
        QTest::newRow("a name taken") << QStringLiteral("Lundi") << QStringLiteral("Annuler");
    }

    void refusedGameNameIsAskedAgain()
    {
        QFETCH(QString, refused);
        QFETCH(QString, secondButton);
        startStones({1});
        const QByteArray taken = "\"PAUL\"\r\n3\r\n40\r\n5\r\n60\r\n0\r\n0\r\n";
        writeAll(session.dataFolder() + QStringLiteral("Lundi.sml"), taken);

        session.tick(5);
        click(4, 3);
        DialogLog log(session, {{QStringLiteral("Fermer")},
                                {QStringLiteral("Valider"), refused},
                                {secondButton, QStringLiteral("mardi")}});
        click(3, 4);

        QCOMPARE(log.seen, (QStringList{congratulations("ANNE", 1, 2), kSaveOffer,
                                        QStringLiteral("Ce nom existe déjà ou ne convient pas.\nDonnez un nom à votre "
                                                       "partie. [Valider|Annuler] box:")}));
        QCOMPARE(session.dataFiles(), (QStringList{QStringLiteral("Lundi.sml"), QStringLiteral("mardi.sml"),
                                                   QStringLiteral("mlbestTime.dat")}));
        QCOMPARE(readAll(session.dataFolder() + QStringLiteral("mardi.sml")), savedGameTwo(5));
        QCOMPARE(readAll(session.dataFolder() + QStringLiteral("Lundi.sml")), taken);
        QCOMPARE(filesIn(session.home->path()), QStringList{QStringLiteral("cerscore")});
        QCOMPARE(filesIn(session.home->path() + QStringLiteral("/cerscore")), QStringList{QStringLiteral("marel32b")});
        verifyIdle(*fond);
    }

    // The one test that waits for the real clock.
    void clockCountsRealSeconds()
    {
        QElapsedTimer clock;
        clock.start();
        startStones({0, 1});
        QCOMPARE(fond->labTemps->text(), QString());
        QTRY_COMPARE_WITH_TIMEOUT(fond->labTemps->text(), QStringLiteral(" 1"), 3000);
        QVERIFY(clock.elapsed() >= 900);
        QCOMPARE(gTempsNiveau, 1.0);
        QCOMPARE(gTempsTotal, 0.0);
        QCOMPARE(played(), QStringList());
    }

    void clicksFindTheirCellUpToTheEdges()
    {
        startStones({0, 1});
        struct Case {
            QPoint at;
            Qt::MouseButton button;
            QPoint cell;
        };
        const Case cases[] = {
            {{479, 539}, Qt::LeftButton, {7, 8}}, // the last pixel: nothing flips past the edges
            {{0, 0}, Qt::LeftButton, {0, 0}},     // an empty corner takes stones like any cell
            {{59, 59}, Qt::LeftButton, {0, 0}},   // the same cell again: they go
            {{60, 60}, Qt::LeftButton, {1, 1}},   {{330, 270}, Qt::MiddleButton, {5, 4}},
            {{479, 0}, Qt::MiddleButton, {7, 0}},
        };
        StoneBoard expected = levelBoard(0);
        QCOMPARE(expected.tabPions2[0][0], StoneBoard::kFaux);
        qsizetype clicks = 0;
        for (const Case &c : cases) {
            expected.Retourne2(c.cell.x(), c.cell.y());
            pressThroughWindow(c.button, c.at);
            verifyBoard(expected, c.cell.y() * 8 + c.cell.x());
            QCOMPARE(played(), QStringList(++clicks, QStringLiteral("marel010.wav")));
        }
        verifyPlaying(*fond, 2, 0, QString());
    }

    void rightButtonTakesBackTheLastClickOnly()
    {
        startStones({0, 1});
        const QImage startImage = fond->pctEcran2->image;

        // Nothing to take back at the start of a level: no sound, no change.
        press(Qt::RightButton, centreOf(3, 4));
        QCOMPARE(played(), QStringList());
        verifyBoard(levelBoard(0));
        QCOMPARE(fond->pctEcran2->image, startImage);

        // One click taken back, wherever the right button is pressed: the level as it was set up.
        click(2, 6);
        press(Qt::RightButton, {470, 10});
        QCOMPARE(played(), cues("010x2 007"));
        verifyBoard(levelBoard(0));
        QCOMPARE(fond->pctEcran2->image, startImage);

        // Right after a take-back there is nothing more to take back.
        press(Qt::RightButton, centreOf(2, 6));
        QCOMPARE(played(), cues("010x2 007"));
        QCOMPARE(rows(fond->stones), rows(levelBoard(0)));

        // Two clicks: only the second is taken back, and only once.
        click(3, 4);
        click(6, 1);
        press(Qt::RightButton, centreOf(0, 0));
        QCOMPARE(played(), cues("010x2 007 010x3 007"));
        verifyBoard(levelBoard(0, {{3, 4}}));
        press(Qt::RightButton, centreOf(0, 0));
        QCOMPARE(played().size(), 7);
        QCOMPARE(rows(fond->stones), rows(levelBoard(0, {{3, 4}})));

        verifyPlaying(*fond, 2, 0, QString());
    }

    // A board emptied by a take-back is not a won level: only a click wins.
    void takeBackToAnEmptyBoardWinsNothing()
    {
        gNiveaux2 = QByteArray(StoneBoard::kOctetsParNiveau, '0') + gNiveaux2.left(StoneBoard::kOctetsParNiveau);
        startStones({0, 1});
        QCOMPARE(screenFault(StoneBoard{}), QString());

        click(2, 2);
        StoneBoard clicked;
        clicked.Retourne2(2, 2);
        QCOMPARE(screenFault(clicked), QString());
        press(Qt::RightButton, centreOf(2, 2));

        QVERIFY(fond->stones.Vide2());
        QCOMPARE(screenFault(StoneBoard{}), QString());
        QCOMPARE(played(), cues("010x2 007"));
        verifyPlaying(*fond, 2, 0, QString());
        QCOMPARE(gTempsTotal, 0.0);
        QVERIFY(!gASauver);
    }

    void lastLevelHidesTheScreenAtOnceThenClosesTheGame()
    {
        startStones({1});
        session.tick();
        click(4, 3);

        Probe closing(
            [this] {
                return gNiveau == 999 && !played().isEmpty() && played().constLast() == QLatin1String("marel001.wav");
            },
            [&] {
                verifyClosing(*fond, 1.0);
                QCOMPARE(played(), cues("010x2 001"));
            });
        QElapsedTimer clock;
        qint64 dialogAt = -1;
        Probe dialog([] { return QApplication::activeModalWidget() != nullptr; },
                     [&] { dialogAt = clock.nsecsElapsed(); });
        // An empty box declines the offer to save.
        DialogLog log(session, {{QStringLiteral("Fermer")}, {QStringLiteral("Valider"), QString()}});
        clock.start();
        click(3, 4);

        QVERIFY(closing.fired);
        QVERIFY(dialog.fired);
        QVERIFY(dialogAt > qint64(3.0 * pauseScale() * 1e9));
        QCOMPARE(log.seen, (QStringList{congratulations("ANNE", 1, 2), kSaveOffer}));
        QCOMPARE(gTempsTotal, 1.0);
        QCOMPARE(session.dataFiles(), QStringList{QStringLiteral("mlbestTime.dat")});
        QCOMPARE(bestTimes(), timesFile());
        verifyIdle(*fond);
    }
};

QTEST_MAIN(TestStonesScreen)
#include "tst_stones_screen.moc"

// Jeu 2 played at the real window with the mouse: the set-up of a level, clicks and take-backs, the
// pause after a won level, the close of the game with its offer to save, and at each step the board,
// the pixels on the screen, the labels, the clock, the cues heard and the files left in the data folder.
#include "level_store.h"
#include "play_session.h"
#include "stone_board.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTimer>
#include <QWindow>
#include <functional>

namespace {

constexpr int kCell = 60;
const QRect kScreenPlace(104, 30, 480, 540);
constexpr int kNever = 24 * 3600 * 1000; // a clock interval no test outlasts

// One line of the best-times file, built by hand: level on 3 digits, time on 8, name on 16.
QByteArray timesLine(int level, int seconds, const QString &name)
{
    return '"'
           + QStringLiteral("%1%2").arg(level, 3, 10, QLatin1Char('0')).arg(seconds, 8, 10, QLatin1Char('0')).toLatin1()
           + name.leftJustified(16, QLatin1Char(' ')).toLatin1() + "\"\r\n";
}

const QByteArray kEmptyTimesLine = "\"00000000000................\"\r\n";

// The whole best-times file when games 1 and 3 hold empty rows and game 2 the rows given.
QByteArray timesFile(const QByteArrayList &gameTwo)
{
    Q_ASSERT(gameTwo.size() == 3);
    return kEmptyTimesLine.repeated(3) + gameTwo.join() + kEmptyTimesLine.repeated(3);
}

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

QStringList filesIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System, QDir::Name);
}

// A saved game holding only game 2, as the close of a finished game writes it.
QByteArray savedGameTwo(const QString &player, int seconds)
{
    return '"' + player.toLatin1() + "\"\r\n0\r\n0\r\n999\r\n" + QByteArray::number(seconds) + "\r\n0\r\n0\r\n";
}

// A reply to one message dialog: the text typed into its box when it shows one, and the button clicked.
struct Reply {
    QString caption;
    QString box = {};
};

QPoint centreOf(int x, int y) { return {kCell * x + kCell / 2, kCell * y + kCell / 2}; }

// Level n of the current store, freshly set up.
StoneBoard levelBoard(int n)
{
    StoneBoard board;
    board.LitNiveau2(storeBytes(gNiveaux2), n);
    return board;
}

StoneBoard withClicks(StoneBoard board, std::initializer_list<QPoint> cells)
{
    for (const QPoint &cell : cells) board.Retourne2(cell.x(), cell.y());
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

// What the screen must show for a board: the window's background behind it, and where a stone lies,
// the background lit white by the mask and then cut by the stone.
QImage expectedScreen(const frmFond &fond, const StoneBoard &board)
{
    const QImage &background = fond.image;
    const QImage &sheet = fond.pctPion2->image;
    QImage wanted(kScreenPlace.size(), QImage::Format_RGB32);
    for (int y = 0; y < wanted.height(); ++y) {
        for (int x = 0; x < wanted.width(); ++x) {
            QRgb pixel = background.pixel(kScreenPlace.x() + x, kScreenPlace.y() + y);
            if (board.tabPions2[x / kCell][y / kCell] == StoneBoard::kVrai) {
                const QRgb stone = sheet.pixel(x % kCell, y % kCell);
                const QRgb mask = sheet.pixel(kCell + x % kCell, y % kCell);
                pixel = (pixel | mask) & stone;
            }
            wanted.setPixel(x, y, pixel);
        }
    }
    return wanted;
}

QString firstDifference(const QImage &shown, const QImage &wanted, const char *what)
{
    if (shown.size() != wanted.size())
        return QStringLiteral("%1: %2 x %3, expected %4 x %5")
            .arg(QLatin1String(what))
            .arg(shown.width())
            .arg(shown.height())
            .arg(wanted.width())
            .arg(wanted.height());
    for (int y = 0; y < shown.height(); ++y)
        for (int x = 0; x < shown.width(); ++x)
            if (shown.pixel(x, y) != wanted.pixel(x, y))
                return QStringLiteral("%1: pixel (%2, %3) in cell (%4, %5) is %6, expected %7")
                    .arg(QLatin1String(what))
                    .arg(x)
                    .arg(y)
                    .arg(x / kCell)
                    .arg(y / kCell)
                    .arg(shown.pixel(x, y), 8, 16)
                    .arg(wanted.pixel(x, y), 8, 16);
    return {};
}

// Runs an action once, at the first moment the condition holds while events are being handled.
class Probe {
public:
    Probe(std::function<bool()> when, std::function<void()> act) : mWhen(std::move(when)), mAct(std::move(act))
    {
        mTimer.setInterval(1);
        mTimer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&mTimer, &QTimer::timeout, [this] {
            if (fired || !mWhen()) return;
            fired = true;
            mTimer.stop();
            mAct();
        });
        mTimer.start();
    }

    bool fired = false;

private:
    std::function<bool()> mWhen;
    std::function<void()> mAct;
    QTimer mTimer;
};

// The state of the window at one moment of play.
struct Moment {
    bool screenShown = false;
    QString screenFault;
    bool inputOn = false;
    bool clockRunning = false;
    bool levelLabelShown = false;
    bool timeLabelShown = false;
    QString levelLabel;
    QString timeLabel;
    double total = -1;
    double levelSeconds = -1;
    bool toSave = false;
    bool dialogOpen = false;
    QStringList cues;
};

} // namespace

// Fails the test with the first fault of the screen against the board given.
#define VERIFY_SCREEN(board)                                                                                           \
    do {                                                                                                               \
        const QString fault = screenFault(board);                                                                      \
        QVERIFY2(fault.isEmpty(), qPrintable(fault));                                                                  \
    } while (false)

class TestStonesScreen : public QObject {
    Q_OBJECT

    PlaySession session;
    frmFond *fond = nullptr;

    QStringList &cues() { return fond->tambour.played; }

    // The message of each dialog answered by answerInTurn, with "[box]" on a line of its own when its
    // text box was shown.
    QStringList asked;

    // Answers the coming message dialogs in turn, one reply each.
    void answerInTurn(const QList<Reply> &replies)
    {
        QList<PlaySession::Action> actions;
        for (const Reply &r : replies) {
            actions << [this, answer = session.reply(r.caption, r.box)](QWidget *dialog) {
                if (auto *mess = qobject_cast<frmMess *>(dialog))
                    asked << mess->labMess->text()
                                 + (mess->txtReponse->isHidden() ? QString() : QStringLiteral("\n[box]"));
                answer(dialog);
            };
        }
        session.inTurn(actions);
    }

    // The data folder of this session, as the program must have made it.
    QString dataFolder() const { return session.home->path() + QStringLiteral("/cerscore/marel32b/"); }
    QByteArray timesOnDisk() const { return contentsOf(dataFolder() + QStringLiteral("mlbestTime.dat")); }

    void tick(int seconds)
    {
        for (int i = 0; i < seconds; ++i) fond->myTimer_Timer();
    }

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

    // Empty when pctEcran2 stands in its place, shows exactly the board, and the window shows the same.
    QString screenFault(const StoneBoard &board)
    {
        if (!fond->pctEcran2->isVisible()) return QStringLiteral("the screen is hidden");
        if (fond->pctEcran2->geometry() != kScreenPlace) return QStringLiteral("the screen is out of place");
        const QString fault = firstDifference(fond->pctEcran2->image, expectedScreen(*fond, board), "image");
        if (!fault.isEmpty()) return fault;
        const QImage shown = fond->grab(kScreenPlace).toImage().convertToFormat(QImage::Format_RGB32);
        return firstDifference(shown, fond->pctEcran2->image, "window");
    }

    Moment now()
    {
        Moment m;
        m.screenShown = fond->pctEcran2->isVisible();
        m.screenFault = m.screenShown ? screenFault(StoneBoard{}) : QString();
        m.inputOn = fond->isEnabled();
        m.clockRunning = fond->myTimer.isActive();
        m.levelLabelShown = fond->labNiveau->isVisible();
        m.timeLabelShown = fond->labTemps->isVisible();
        m.levelLabel = fond->labNiveau->text();
        m.timeLabel = fond->labTemps->text();
        m.total = gTempsTotal;
        m.levelSeconds = gTempsNiveau;
        m.toSave = gASauver;
        m.dialogOpen = QApplication::activeModalWidget() != nullptr;
        m.cues = cues();
        return m;
    }

    // Jeu 2 started from its button by ANNE; the cues of the start are forgotten.
    void startStones()
    {
        session.startGame(2, QStringLiteral("anne"));
        QCOMPARE(gJeu, 2);
        cues().clear();
    }

    void verifyIdle()
    {
        QCOMPARE(gJeu, 0);
        QCOMPARE(gNiveau, 0);
        QVERIFY(!gASauver);
        QVERIFY(fond->isEnabled());
        QVERIFY(!fond->myTimer.isActive());
        QVERIFY(!fond->labNiveau->isVisible());
        QVERIFY(!fond->labTemps->isVisible());
        QVERIFY(!fond->pctEcran1->isVisible());
        QVERIFY(!fond->pctEcran2->isVisible());
        QVERIFY(!fond->pctEcran3->isVisible());
        QCOMPARE(fond->image.copy(0, 130, 80, 375), fond->pctMenu->image.copy(0, 0, 80, 375));
    }

private slots:
    void init()
    {
        session.start();
        fond = session.fond.get();
        asked.clear();
        // The seconds of play come from tick(), except in the one test of the clock itself.
        if (qstrcmp(QTest::currentTestFunction(), "clockCountsRealSeconds") != 0) fond->myTimer.setInterval(kNever);
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
        QTest::addColumn<QByteArrayList>("rowsAfterLevelZero");
        QTest::addColumn<QByteArrayList>("rowsAfterLevelOne");

        // Level 0 in no time scores exactly as an empty row, and a new player goes above its equals.
        QTest::newRow("level 0 in 0 s takes row 1")
            << 0 << 2 << QByteArrayList{timesLine(0, 0, QStringLiteral("ANNE")), kEmptyTimesLine, kEmptyTimesLine}
            << QByteArrayList{timesLine(1, 2, QStringLiteral("ANNE")), kEmptyTimesLine, kEmptyTimesLine};
        // One second more and level 0 scores below the empty rows; level 1 beats them all.
        QTest::newRow("level 0 in 1 s stays out")
            << 1 << 2 << QByteArrayList{kEmptyTimesLine, kEmptyTimesLine, kEmptyTimesLine}
            << QByteArrayList{timesLine(1, 3, QStringLiteral("ANNE")), kEmptyTimesLine, kEmptyTimesLine};
    }

    void wholeGameOfTwoLevelsFromTheStartButtonBackToIdle()
    {
        QFETCH(int, levelZeroSeconds);
        QFETCH(int, levelOneSeconds);
        QFETCH(QByteArrayList, rowsAfterLevelZero);
        QFETCH(QByteArrayList, rowsAfterLevelOne);
        const QByteArray emptyTimes = kEmptyTimesLine.repeated(9);
        QCOMPARE(emptyTimes.size(), 279);
        QCOMPARE(filesIn(dataFolder()), QStringList{QStringLiteral("mlbestTime.dat")});
        QCOMPARE(timesOnDisk(), emptyTimes);

        PlaySession::keepLevels(2, {0, 1});
        session.startGame(2, QStringLiteral("anne"));

        QCOMPARE(gJeu, 2);
        QCOMPARE(gNbNiveaux, 2);
        QCOMPARE(gNiveau, 0);
        QVERIFY(fond->isEnabled());
        QVERIFY(fond->myTimer.isActive());
        QVERIFY(fond->labNiveau->isVisible());
        QCOMPARE(fond->labNiveau->text(), QStringLiteral("000"));
        QVERIFY(fond->labTemps->isVisible());
        QCOMPARE(fond->labTemps->text(), QString());
        QVERIFY(!fond->pctEcran1->isVisible());
        QVERIFY(!fond->pctEcran3->isVisible());
        QCOMPARE(rows(fond->stones), rows(levelBoard(0)));
        QCOMPARE(fond->stones.iCoup2, -1);
        VERIFY_SCREEN(levelBoard(0));

        // The clock ticks, but its seconds join the total only when the level is won.
        tick(levelZeroSeconds);
        if (levelZeroSeconds > 0) QCOMPARE(fond->labTemps->text(), QStringLiteral(" %1").arg(levelZeroSeconds));
        QCOMPARE(gTempsNiveau, double(levelZeroSeconds));
        QCOMPARE(gTempsTotal, 0.0);

        click(3, 4);
        QCOMPARE(gNiveau, 0);
        VERIFY_SCREEN(withClicks(levelBoard(0), {{3, 4}}));
        QCOMPARE(timesOnDisk(), emptyTimes);
        click(4, 4);

        // Level 1 is up; the clock label still shows the seconds of level 0, which are now the total.
        QCOMPARE(gJeu, 2);
        QCOMPARE(gNiveau, 1);
        QCOMPARE(fond->labNiveau->text(), QStringLiteral("001"));
        QCOMPARE(gTempsTotal, double(levelZeroSeconds));
        if (levelZeroSeconds > 0) QCOMPARE(fond->labTemps->text(), QStringLiteral(" %1").arg(levelZeroSeconds));
        QCOMPARE(gTempsNiveau, 0.0);
        QVERIFY(fond->myTimer.isActive());
        QVERIFY(fond->isEnabled());
        QCOMPARE(rows(fond->stones), rows(levelBoard(1)));
        QCOMPARE(fond->stones.iCoup2, -1);
        VERIFY_SCREEN(levelBoard(1));
        QCOMPARE(timesOnDisk(), timesFile(rowsAfterLevelZero));

        tick(levelOneSeconds);
        click(4, 3);
        VERIFY_SCREEN(withClicks(levelBoard(1), {{4, 3}}));
        const QString gameName = QStringLiteral("Anne du lundi");
        answerInTurn({{QStringLiteral("Fermer")}, {QStringLiteral("Valider"), gameName}});
        click(3, 4);

        const int total = levelZeroSeconds + levelOneSeconds;
        QCOMPARE(asked,
                 (QStringList{QStringLiteral("Félicitations ANNE\nVous venez de terminer\nles 2 niveaux du jeu 2"),
                              QStringLiteral("Vous pouvez sauver votre partie,\ndonnez-lui un nom.\n[box]")}));
        QCOMPARE(gTempsTotal, double(total));
        // Finished in full, the game stands in the table at its last level, and is saved as done.
        QCOMPARE(timesOnDisk(), timesFile(rowsAfterLevelOne));
        QCOMPARE(filesIn(dataFolder()),
                 (QStringList{gameName + QStringLiteral(".sml"), QStringLiteral("mlbestTime.dat")}));
        QCOMPARE(contentsOf(dataFolder() + gameName + QStringLiteral(".sml")),
                 savedGameTwo(QStringLiteral("ANNE"), total));
        QCOMPARE(gNomPartie, QString());

        const QString flip = QStringLiteral("marel010.wav");
        const QString level = QStringLiteral("marel002.wav");
        const QString placed = QStringLiteral("marel001.wav");
        const QString opened = QStringLiteral("marel008.wav");
        const QString answered = QStringLiteral("marel009.wav");
        QStringList heard{opened, answered, level, flip, flip};
        if (rowsAfterLevelZero.first() != kEmptyTimesLine) heard << placed;
        heard << level << flip << flip << placed;
        heard << placed << opened << answered; // the close: its own cue, then the congratulations
        heard << opened << answered;           // the offer to save
        QCOMPARE(cues(), heard);
        verifyIdle();
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
        PlaySession::keepLevels(2, {1});
        startStones();
        if (QTest::currentTestFailed()) return;
        const QByteArray taken = "\"PAUL\"\r\n3\r\n40\r\n5\r\n60\r\n0\r\n0\r\n";
        QFile lundi(dataFolder() + QStringLiteral("Lundi.sml"));
        QVERIFY(lundi.open(QIODevice::WriteOnly));
        QCOMPARE(lundi.write(taken), taken.size());
        lundi.close();

        tick(5);
        click(4, 3);
        answerInTurn({{QStringLiteral("Fermer")},
                      {QStringLiteral("Valider"), refused},
                      {secondButton, QStringLiteral("mardi")}});
        click(3, 4);

        QCOMPARE(asked,
                 (QStringList{
                     QStringLiteral("Félicitations ANNE\nVous venez de terminer\nles 1 niveaux du jeu 2"),
                     QStringLiteral("Vous pouvez sauver votre partie,\ndonnez-lui un nom.\n[box]"),
                     QStringLiteral("Ce nom existe déjà ou ne convient pas.\nDonnez un nom à votre partie.\n[box]")}));
        QCOMPARE(filesIn(dataFolder()), (QStringList{QStringLiteral("Lundi.sml"), QStringLiteral("mardi.sml"),
                                                     QStringLiteral("mlbestTime.dat")}));
        QCOMPARE(contentsOf(dataFolder() + QStringLiteral("mardi.sml")), savedGameTwo(QStringLiteral("ANNE"), 5));
        QCOMPARE(contentsOf(dataFolder() + QStringLiteral("Lundi.sml")), taken);
        QCOMPARE(filesIn(session.home->path()), QStringList{QStringLiteral("cerscore")});
        QCOMPARE(filesIn(session.home->path() + QStringLiteral("/cerscore")), QStringList{QStringLiteral("marel32b")});
        verifyIdle();
    }

    // The one test that waits for the real clock.
    void clockCountsRealSeconds()
    {
        PlaySession::keepLevels(2, {0, 1});
        QElapsedTimer clock;
        clock.start();
        startStones();
        if (QTest::currentTestFailed()) return;
        QCOMPARE(fond->labTemps->text(), QString());
        QTRY_COMPARE_WITH_TIMEOUT(fond->labTemps->text(), QStringLiteral(" 1"), 3000);
        QVERIFY(clock.elapsed() >= 900);
        QCOMPARE(gTempsNiveau, 1.0);
        QCOMPARE(gTempsTotal, 0.0);
        QCOMPARE(cues(), QStringList());
    }

    void clicksFindTheirCellUpToTheEdges()
    {
        PlaySession::keepLevels(2, {0, 1});
        startStones();
        if (QTest::currentTestFailed()) return;

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
            ++clicks;
            QCOMPARE(rows(fond->stones), rows(expected));
            QCOMPARE(fond->stones.iCoup2, c.cell.y() * 8 + c.cell.x());
            QCOMPARE(cues(), QStringList(clicks, QStringLiteral("marel010.wav")));
            VERIFY_SCREEN(expected);
        }
        QCOMPARE(gJeu, 2);
        QCOMPARE(gNiveau, 0);
        QVERIFY(fond->isEnabled());
    }

    void rightButtonTakesBackTheLastClickOnly()
    {
        PlaySession::keepLevels(2, {0, 1});
        startStones();
        if (QTest::currentTestFailed()) return;
        const StoneBoard start = levelBoard(0);
        const QImage startImage = fond->pctEcran2->image;
        const QString flipCue = QStringLiteral("marel010.wav");
        const QString takeBackCue = QStringLiteral("marel007.wav");

        // Nothing to take back at the start of a level: no sound, no change.
        press(Qt::RightButton, centreOf(3, 4));
        QCOMPARE(cues(), QStringList());
        QCOMPARE(rows(fond->stones), rows(start));
        QCOMPARE(fond->stones.iCoup2, -1);
        QCOMPARE(fond->pctEcran2->image, startImage);

        // One click taken back, wherever the right button is pressed: the level as it was set up.
        click(2, 6);
        press(Qt::RightButton, {470, 10});
        QCOMPARE(cues(), (QStringList{flipCue, flipCue, takeBackCue}));
        QCOMPARE(rows(fond->stones), rows(start));
        QCOMPARE(fond->stones.iCoup2, -1);
        VERIFY_SCREEN(start);
        QCOMPARE(fond->pctEcran2->image, startImage);

        // Right after a take-back there is nothing more to take back.
        press(Qt::RightButton, centreOf(2, 6));
        QCOMPARE(cues(), (QStringList{flipCue, flipCue, takeBackCue}));
        QCOMPARE(rows(fond->stones), rows(start));

        // Two clicks: only the second is taken back, and only once.
        click(3, 4);
        click(6, 1);
        press(Qt::RightButton, centreOf(0, 0));
        const StoneBoard afterFirst = withClicks(start, {{3, 4}});
        QCOMPARE(cues(), (QStringList{flipCue, flipCue, takeBackCue, flipCue, flipCue, flipCue, takeBackCue}));
        QCOMPARE(rows(fond->stones), rows(afterFirst));
        QCOMPARE(fond->stones.iCoup2, -1);
        VERIFY_SCREEN(afterFirst);
        press(Qt::RightButton, centreOf(0, 0));
        QCOMPARE(cues().size(), 7);
        QCOMPARE(rows(fond->stones), rows(afterFirst));

        QCOMPARE(gJeu, 2);
        QCOMPARE(gNiveau, 0);
        QVERIFY(fond->isEnabled());
    }

    // A board emptied by a take-back is not a won level: only a click wins.
    void takeBackToAnEmptyBoardWinsNothing()
    {
        gNiveaux2 = QByteArray(StoneBoard::kOctetsParNiveau, '0') + gNiveaux2.left(StoneBoard::kOctetsParNiveau);
        startStones();
        if (QTest::currentTestFailed()) return;
        VERIFY_SCREEN(StoneBoard{});

        click(2, 2);
        VERIFY_SCREEN(withClicks(StoneBoard{}, {{2, 2}}));
        press(Qt::RightButton, centreOf(2, 2));

        QVERIFY(fond->stones.Vide2());
        VERIFY_SCREEN(StoneBoard{});
        QCOMPARE(cues(), (QStringList{QStringLiteral("marel010.wav"), QStringLiteral("marel010.wav"),
                                      QStringLiteral("marel007.wav")}));
        QCOMPARE(gJeu, 2);
        QCOMPARE(gNiveau, 0);
        QCOMPARE(fond->labNiveau->text(), QStringLiteral("000"));
        QCOMPARE(gTempsTotal, 0.0);
        QVERIFY(!gASauver);
        QVERIFY(fond->myTimer.isActive());
        QVERIFY(fond->isEnabled());
    }

    void wonLevelPausesOnTheEmptyBoardAndDropsClicks()
    {
        PlaySession::keepLevels(2, {0, 1});
        startStones();
        if (QTest::currentTestFailed()) return;
        fond->myTimer_Timer();
        fond->myTimer_Timer();
        click(3, 4);

        // During the pause, a click on the first cell of level 1's solution.
        Moment during;
        QStringList cuesAfterPauseClick;
        Probe inPause([this] { return gJeu == 2 && gNiveau == 0 && fond->stones.Vide2(); },
                      [&] {
                          during = now();
                          click(4, 3);
                          cuesAfterPauseClick = cues();
                      });
        QElapsedTimer clock;
        clock.start();
        click(4, 4);
        const qint64 took = clock.nsecsElapsed();

        QVERIFY(inPause.fired);
        QVERIFY(during.screenShown);
        QVERIFY2(during.screenFault.isEmpty(), qPrintable(during.screenFault));
        QCOMPARE(during.levelLabel, QStringLiteral("000"));
        QCOMPARE(during.timeLabel, QStringLiteral(" 2"));
        QVERIFY(!during.clockRunning);
        QVERIFY(!during.inputOn);
        QCOMPARE(during.total, 2.0);
        QCOMPARE(during.levelSeconds, 0.0);
        QVERIFY(during.toSave);
        QCOMPARE(during.cues, (QStringList{QStringLiteral("marel010.wav"), QStringLiteral("marel010.wav")}));
        QCOMPARE(cuesAfterPauseClick, during.cues);
        QVERIFY(took > qint64(2.0 * pauseScale() * 1e9));

        // Level 1 comes up untouched by that click.
        QCOMPARE(gNiveau, 1);
        QCOMPARE(rows(fond->stones), rows(levelBoard(1)));
        QCOMPARE(fond->stones.iCoup2, -1);
        VERIFY_SCREEN(levelBoard(1));
        QCOMPARE(fond->labNiveau->text(), QStringLiteral("001"));
        QCOMPARE(fond->labTemps->text(), QStringLiteral(" 2"));
        QCOMPARE(gTempsTotal, 2.0);
        QVERIFY(fond->myTimer.isActive());
        QVERIFY(fond->isEnabled());
        QCOMPARE(cues(), (QStringList{QStringLiteral("marel010.wav"), QStringLiteral("marel010.wav"),
                                      QStringLiteral("marel002.wav")}));
    }

    void lastLevelHidesTheScreenAtOnceThenClosesTheGame()
    {
        PlaySession::keepLevels(2, {1});
        startStones();
        if (QTest::currentTestFailed()) return;
        fond->myTimer_Timer();
        click(4, 3);

        Moment closing;
        Probe inPause(
            [this] {
                return gNiveau == 999 && !cues().isEmpty() && cues().constLast() == QLatin1String("marel001.wav");
            },
            [&] { closing = now(); });
        QElapsedTimer clock;
        qint64 dialogAt = -1;
        Probe dialog([] { return QApplication::activeModalWidget() != nullptr; },
                     [&] { dialogAt = clock.nsecsElapsed(); });
        // An empty box declines the offer to save.
        answerInTurn({{QStringLiteral("Fermer")}, {QStringLiteral("Valider"), QString()}});
        clock.start();
        click(3, 4);

        QVERIFY(inPause.fired);
        QVERIFY(!closing.screenShown);
        QVERIFY(!closing.dialogOpen);
        QVERIFY(!closing.clockRunning);
        QVERIFY(!closing.inputOn);
        QVERIFY(closing.levelLabelShown);
        QVERIFY(closing.timeLabelShown);
        QCOMPARE(closing.total, 1.0);
        QCOMPARE(closing.cues, (QStringList{QStringLiteral("marel010.wav"), QStringLiteral("marel010.wav"),
                                            QStringLiteral("marel001.wav")}));
        QVERIFY(dialog.fired);
        QVERIFY(dialogAt > qint64(3.0 * pauseScale() * 1e9));

        QCOMPARE(asked,
                 (QStringList{QStringLiteral("Félicitations ANNE\nVous venez de terminer\nles 1 niveaux du jeu 2"),
                              QStringLiteral("Vous pouvez sauver votre partie,\ndonnez-lui un nom.\n[box]")}));
        QCOMPARE(gTempsTotal, 1.0);
        QCOMPARE(filesIn(dataFolder()), QStringList{QStringLiteral("mlbestTime.dat")});
        QCOMPARE(timesOnDisk(), kEmptyTimesLine.repeated(9));
        verifyIdle();
    }
};

QTEST_MAIN(TestStonesScreen)
#include "tst_stones_screen.moc"

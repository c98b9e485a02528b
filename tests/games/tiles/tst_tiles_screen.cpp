// Jeu 1 played at the real window with the mouse: a whole game from the start button to the closing
// message and the save, the way clicks map to cells, take-backs, the pause after a won level, the
// clock, and the best-times file as each won level leaves it.
// After every redraw the screen is checked cell by cell against the model, pixel for pixel.
// The clock never ticks on its own here: the tests count the seconds themselves.
#include "play_session.h"

#include <QDir>
#include <QFile>
#include <QPointer>
#include <QTimer>
#include <algorithm>
#include <functional>
#include <limits>
#include <vector>

namespace {

constexpr int kCell = 54;
constexpr int kLowerTop = 278;
constexpr int kSheetSocket = 4;
constexpr int kSheetWon = 5;
const QRect kScreenPlace(128, 26, 432, 548);

const QString k001 = QStringLiteral("marel001.wav");
const QString k002 = QStringLiteral("marel002.wav");
const QString k007 = QStringLiteral("marel007.wav");
const QString k008 = QStringLiteral("marel008.wav");
const QString k009 = QStringLiteral("marel009.wav");
const QString k010 = QStringLiteral("marel010.wav");

struct Cell {
    int x;
    int y;
};

// Solutions of levels 0 and 1 of the shipped store.
const std::vector<Cell> kLevel0 = {{3, 4}, {3, 3}, {3, 0}, {3, 1}, {3, 2}};
const std::vector<Cell> kLevel1 = {{3, 2}, {4, 2}, {5, 2}, {3, 3}, {3, 4}, {3, 1}, {3, 0}, {2, 2}, {1, 2}};

QPoint upperPoint(Cell c) { return {kCell * c.x + kCell / 2, kCell * c.y + kCell / 2}; }
QPoint lowerPoint(Cell c) { return {kCell * c.x + kCell / 2, kLowerTop + kCell * c.y + kCell / 2}; }

QStringList times(int n, const QString &cue) { return QStringList(n, cue); }

// One line of the best-times file: the quoted level on 3 digits, time on 8, name filled to 16 with spaces.
QByteArray bestLine(int niveau, int temps, const QByteArray &nom)
{
    return '"' + QByteArray::number(niveau).rightJustified(3, '0') + QByteArray::number(temps).rightJustified(8, '0')
           + nom.leftJustified(16, ' ') + "\"\r\n";
}

const QByteArray kEmptyLine = "\"00000000000................\"\r\n";

// The whole file: the given first rows of game 1, then empty rows up to nine lines.
QByteArray bestFile(const QByteArray &game1 = QByteArray())
{
    QByteArray bytes = game1;
    while (bytes.size() < 9 * 31) bytes += kEmptyLine;
    return bytes;
}

// The bytes of a file, or "(none)" when there is no such file.
QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return "(none)";
    return file.readAll();
}

bool showsWonArt(const frmFond &fond)
{
    const QImage &sheet = fond.pctPion1->image;
    const QImage &shown = fond.pctEcran1->image;
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 8; ++x)
            if (fond.tiles.tabCible1[x][y] > 0
                && shown.copy(kCell * x, kCell * y, kCell, kCell) != sheet.copy(kSheetWon * kCell, 0, kCell, kCell))
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

// What the screen must hold for the model: on each cell the sheet cell of its value, elsewhere the
// window's own background behind the screen. Empty when it does; otherwise the first wrong pixel.
QString screenMismatch(const frmFond &fond, Upper upper)
{
    const QImage &sheet = fond.pctPion1->image;
    const QImage &shown = fond.pctEcran1->image;
    if (shown.size() != kScreenPlace.size()) return QStringLiteral("screen image of the wrong size");
    if (sheet.size() != QSize(6 * kCell, kCell)) return QStringLiteral("sheet of the wrong size");

    QImage expected(kScreenPlace.size(), QImage::Format_RGB32);
    for (int y = 0; y < expected.height(); ++y)
        for (int x = 0; x < expected.width(); ++x)
            expected.setPixel(x, y, fond.image.pixel(kScreenPlace.x() + x, kScreenPlace.y() + y));
    auto put = [&](int sheetCell, int left, int top) {
        for (int dy = 0; dy < kCell; ++dy)
            for (int dx = 0; dx < kCell; ++dx)
                expected.setPixel(left + dx, top + dy, sheet.pixel(sheetCell * kCell + dx, dy));
    };
    for (int y = 0; y < 5; ++y) {
        for (int x = 0; x < 8; ++x) {
            const int target = fond.tiles.tabCible1[x][y];
            if (target > 0) put(upper == Upper::Won ? kSheetWon : target - 1, kCell * x, kCell * y);
            const int value = fond.tiles.tabJeu1[x][y];
            if (value >= 1 && value <= 4)
                put(value - 1, kCell * x, kLowerTop + kCell * y);
            else if (value == TileBoard::kSocle)
                put(kSheetSocket, kCell * x, kLowerTop + kCell * y);
        }
    }
    for (int y = 0; y < expected.height(); ++y)
        for (int x = 0; x < expected.width(); ++x)
            if (shown.pixel(x, y) != expected.pixel(x, y))
                return QStringLiteral("pixel (%1, %2), cell (%3, %4) of the %5 board")
                    .arg(x)
                    .arg(y)
                    .arg(x / kCell)
                    .arg(y < kLowerTop ? y / kCell : (y - kLowerTop) / kCell)
                    .arg(y < 270         ? QStringLiteral("upper")
                         : y < kLowerTop ? QStringLiteral("gap")
                                         : QStringLiteral("lower"));
    return {};
}

// Whether the window as it is painted shows the screen's image where the screen stands.
QString shownMismatch(frmFond &fond)
{
    const QImage painted = fond.grab(kScreenPlace).toImage().convertToFormat(QImage::Format_RGB32);
    const QImage &image = fond.pctEcran1->image;
    if (painted.size() != image.size()) return QStringLiteral("grab of the wrong size");
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (painted.pixel(x, y) != image.pixel(x, y))
                return QStringLiteral("shown pixel (%1, %2) is not the image's").arg(x).arg(y);
    return {};
}

bool idleMenuArt(const frmFond &fond, bool idle)
{
    const int sourceX = idle ? 0 : 80;
    for (int y = 0; y < 375; ++y)
        for (int x = 0; x < 80; ++x)
            if (fond.image.pixel(x, 130 + y) != fond.pctMenu->image.pixel(sourceX + x, y)) return false;
    return true;
}

// The window as seen while the pause after a won level runs, and what a click made then did.
struct PauseView {
    bool seen = false;
    bool inputOff = false;
    int32_t niveau = -1;
    QString labNiveau;
    QString labTemps;
    bool labelsShown = false;
    bool timerActive = true;
    double total = -1;
    double tempsNiveau = -1;
    QString screen;
    QString shown;
    bool clickLost = false;
    QByteArray bestFile; // the best-times file as the pause finds it
};

// A message dialog as it came up.
struct Asked {
    QString message;     // line breaks as the label shows them
    QStringList buttons; // the captions shown, in order
    bool box = false;
    QString boxText;
};

// Answers the message dialogs of a close, in turn, for as long as it lives: for each, the next step
// notes the window, types into the box if it is shown and clicks the caption. A dialog beyond the
// steps is noted too and closed by its first button, so that an extra question fails the test
// instead of hanging it.
class Answers {
public:
    struct Step {
        QString caption;
        QString typed;
        std::function<void()> note = [] {};
    };

    explicit Answers(std::vector<Step> steps) : mSteps(std::move(steps))
    {
        mPoll.setInterval(10);
        QObject::connect(&mPoll, &QTimer::timeout, [this] { answerShown(); });
        mPoll.start();
    }

    std::vector<Asked> asked;

private:
    void answerShown()
    {
        auto *mess = qobject_cast<frmMess *>(QApplication::activeModalWidget());
        if (!mess || !mess->isVisible() || mess == mLast) return;
        mLast = mess;
        Asked seen{mess->labMess->text(), {}, !mess->txtReponse->isHidden(), mess->txtReponse->text()};
        for (ClickLabel *label : mess->reponse)
            if (!label->isHidden()) seen.buttons << label->text();
        asked.push_back(seen);
        if (seen.buttons.isEmpty()) return;
        const size_t index = asked.size() - 1;
        QString caption = seen.buttons.first();
        if (index < mSteps.size()) {
            mSteps[index].note();
            caption = mSteps[index].caption;
            if (seen.box) {
                mess->txtReponse->clear();
                QTest::keyClicks(mess->txtReponse, mSteps[index].typed);
            }
        }
        for (ClickLabel *label : mess->reponse) {
            if (!label->isHidden() && label->text() == caption) {
                QTest::mouseClick(label, Qt::LeftButton);
                return;
            }
        }
        QTest::mouseClick(mess->reponse[0], Qt::LeftButton);
    }

    std::vector<Step> mSteps;
    QTimer mPoll;
    QPointer<frmMess> mLast;
};

} // namespace

class TestTilesScreen : public QObject {
    Q_OBJECT

    PlaySession session;

    frmFond &fond() { return *session.fond; }
    QStringList &cues() { return session.fond->tambour.played; }

    // The data folder the program must use, under the session's own user data folder.
    QString dataFolder() const { return session.home->path() + QStringLiteral("/cerscore/marel32b/"); }
    QByteArray bestBytes() const { return fileBytes(dataFolder() + QStringLiteral("mlbestTime.dat")); }
    QStringList savedGames() const { return QDir(dataFolder()).entryList({QStringLiteral("*.sml")}, QDir::Files); }

    void click(Qt::MouseButton button, QPoint at) { PlaySession::press(fond().pctEcran1, button, at); }

    // The screen shows the model, in the image and on the window.
    void checkScreen(Upper upper = Upper::Targets)
    {
        QCOMPARE(screenMismatch(fond(), upper), QString());
        QCOMPARE(shownMismatch(fond()), QString());
    }

    // A left click on a socket: one cue, the placement recorded, the screen redrawn, the level still on.
    void place(Cell c, Qt::MouseButton button = Qt::LeftButton)
    {
        const QStringList before = cues();
        const int32_t coup = fond().tiles.iCoup1;
        QCOMPARE(fond().tiles.tabJeu1[c.x][c.y], TileBoard::kSocle);
        click(button, lowerPoint(c));
        QCOMPARE(cues(), before + QStringList{k010});
        QCOMPARE(fond().tiles.iCoup1, coup + 1);
        QCOMPARE(fond().tiles.tabCoups1[coup + 1], c.y * 8 + c.x);
        QVERIFY(fond().isEnabled());
        QVERIFY(fond().myTimer.isActive());
        checkScreen();
    }

    // A click that no rule accepts: no cue, no change to the model or to the screen.
    void clickIgnored(Qt::MouseButton button, QPoint at)
    {
        const QStringList before = cues();
        const TileBoard tiles = fond().tiles;
        const QImage image = fond().pctEcran1->image;
        click(button, at);
        QCOMPARE(cues(), before);
        QVERIFY(sameTiles(fond().tiles, tiles));
        QVERIFY(fond().pctEcran1->image == image);
        QVERIFY(fond().isEnabled());
    }

    // The winning click of a level that is not the last, with the window watched during the pause:
    // a timer polls for input off while the level just won is still the current one, notes the
    // window, and right-clicks the screen, which would take a tile back if the click got through.
    PauseView winWatchingThePause(Cell last)
    {
        PauseView view;
        const int32_t won = gNiveau;
        QTimer poll;
        poll.setTimerType(Qt::PreciseTimer);
        poll.setInterval(1);
        connect(&poll, &QTimer::timeout, this, [&] {
            frmFond &f = fond();
            // Events are also handled before the won art is drawn, while the cue of a place in the
            // best times is started: the pause is from that art on.
            if (view.seen || f.isEnabled() || gNiveau != won || !f.tiles.Complet1() || !showsWonArt(f)) return;
            view.seen = true;
            poll.stop();
            view.inputOff = !f.isEnabled();
            view.niveau = gNiveau;
            view.labNiveau = f.labNiveau->text();
            view.labTemps = f.labTemps->text();
            view.labelsShown = f.labNiveau->isVisible() && f.labTemps->isVisible();
            view.timerActive = f.myTimer.isActive();
            view.total = gTempsTotal;
            view.tempsNiveau = gTempsNiveau;
            view.screen = screenMismatch(f, Upper::Won);
            view.shown = shownMismatch(f);
            view.bestFile = bestBytes();

            const QStringList cuesBefore = f.tambour.played;
            const TileBoard tiles = f.tiles;
            const QImage image = f.pctEcran1->image;
            // With the window's input off, the screen refuses the press and the release of both clicks.
            for (const char *refused : {"Mouse event \"MousePress\" not accepted by receiving widget",
                                        "Mouse event \"MouseRelease\" not accepted by receiving widget"}) {
                QTest::ignoreMessage(QtWarningMsg, refused);
                QTest::ignoreMessage(QtWarningMsg, refused);
            }
            PlaySession::press(f.pctEcran1, Qt::RightButton, upperPoint({0, 0}));
            PlaySession::press(f.pctEcran1, Qt::LeftButton, lowerPoint(last));
            view.clickLost = f.tambour.played == cuesBefore && sameTiles(f.tiles, tiles) && f.pctEcran1->image == image
                             && gNiveau == won;
        });
        poll.start();
        click(Qt::LeftButton, lowerPoint(last));
        return view;
    }

    void checkPause(const PauseView &view, int32_t won, const QString &label, const QString &seconds)
    {
        QVERIFY2(view.seen, "the pause after the won level was not caught");
        QVERIFY(view.inputOff);
        QCOMPARE(view.niveau, won);
        QCOMPARE(view.labNiveau, label);
        QCOMPARE(view.labTemps, seconds);
        QVERIFY(view.labelsShown);
        QVERIFY(!view.timerActive);
        QCOMPARE(view.tempsNiveau, 0.0);
        QCOMPARE(view.screen, QString());
        QCOMPARE(view.shown, QString());
        QVERIFY2(view.clickLost, "a click made during the pause was handled");
    }

    void checkIdle()
    {
        QCOMPARE(gJeu, 0);
        QCOMPARE(gNiveau, 0);
        QVERIFY(!fond().labNiveau->isVisible());
        QVERIFY(!fond().labTemps->isVisible());
        QVERIFY(!fond().pctEcran1->isVisible());
        QVERIFY(!fond().pctEcran2->isVisible());
        QVERIFY(!fond().pctEcran3->isVisible());
        QVERIFY(!fond().myTimer.isActive());
        QVERIFY(fond().isEnabled());
        QVERIFY(!gASauver);
        QVERIFY(gNomPartie.isEmpty());
        QVERIFY(idleMenuArt(fond(), true));
    }

private slots:
    void init()
    {
        session.start();
        fond().myTimer.setInterval(std::numeric_limits<int>::max());
    }
    void cleanup() { session.fond.reset(); }

    // Levels 0 and 1 of the shipped store, the first won within its first second, the second after one
    // tick: each win takes ANNE to the top of the best times, with the cue and the file rewritten, and
    // the close saves the game under the name typed.
    void aWholeGameOfTwoLevelsFromTheStartButtonToTheClose()
    {
        QCOMPARE(gCheminData, dataFolder());
        QCOMPARE(bestBytes(), bestFile());
        QCOMPARE(bestBytes().size(), 279);

        PlaySession::keepLevels(1, {0, 1});
        session.startGame(1, QStringLiteral("  anne  "));

        QCOMPARE(gJeu, 1);
        QCOMPARE(gNbNiveaux, 2);
        QCOMPARE(gNiveau, 0);
        QCOMPARE(gNomJoueur, QStringLiteral("ANNE"));
        QCOMPARE(gTempsTotal, 0.0);
        QCOMPARE(gTempsNiveau, 0.0);
        QVERIFY(!gASauver);
        QVERIFY(fond().labNiveau->isVisible());
        QCOMPARE(fond().labNiveau->text(), QStringLiteral("000"));
        QVERIFY(fond().labTemps->isVisible());
        QCOMPARE(fond().labTemps->text(), QString());
        QVERIFY(fond().pctEcran1->isVisible());
        QCOMPARE(fond().pctEcran1->geometry(), kScreenPlace);
        QVERIFY(!fond().pctEcran2->isVisible());
        QVERIFY(!fond().pctEcran3->isVisible());
        QVERIFY(fond().myTimer.isActive());
        QCOMPARE(fond().myTimer.interval(), std::numeric_limits<int>::max());
        QVERIFY(fond().isEnabled());
        QVERIFY(idleMenuArt(fond(), false));
        QCOMPARE(cues(), (QStringList{k008, k009, k002}));
        checkScreen();

        // Level 0 in no time ties with the empty rows and takes the first.
        for (size_t i = 0; i + 1 < kLevel0.size(); ++i) place(kLevel0[i]);
        const PauseView pause = winWatchingThePause(kLevel0.back());
        checkPause(pause, 0, QStringLiteral("000"), QString());
        QCOMPARE(pause.total, 0.0);
        const QByteArray afterLevel0 = bestFile(bestLine(0, 0, "ANNE"));
        QCOMPARE(pause.bestFile, afterLevel0);

        // The next level is up: fresh sockets, its own number, the clock running again.
        QCOMPARE(gJeu, 1);
        QCOMPARE(gNiveau, 1);
        QCOMPARE(fond().labNiveau->text(), QStringLiteral("001"));
        QVERIFY(fond().labNiveau->isVisible());
        QVERIFY(fond().labTemps->isVisible());
        QCOMPARE(fond().tiles.iCoup1, -1);
        QVERIFY(fond().isEnabled());
        QVERIFY(fond().myTimer.isActive());
        QVERIFY(gASauver);
        QCOMPARE(gTempsNiveau, 0.0);
        QCOMPARE(gTempsTotal, 0.0);
        const QStringList level0 = QStringList{k008, k009, k002} + times(5, k010) + QStringList{k001, k002};
        QCOMPARE(cues(), level0);
        checkScreen();
        QCOMPARE(bestBytes(), afterLevel0);

        for (size_t i = 0; i + 1 < kLevel1.size(); ++i) {
            place(kLevel1[i]);
            if (i == 3) fond().myTimer_Timer();
        }
        QCOMPARE(fond().labTemps->text(), QStringLiteral(" 1"));

        // The last level won: the screen goes, the row is ANNE's latest, then the closing message, the
        // request for a name, and back to idle.
        bool screenHidden = false;
        int32_t niveauAtMessage = -1;
        int32_t jeuAtMessage = -1;
        bool inputOffAtMessage = false;
        QStringList cuesAtMessage;
        QByteArray bestAtMessage;
        QStringList savedBeforeName;
        Answers answers(
            {{QStringLiteral("Fermer"), QString(),
              [&] {
                  screenHidden = !fond().pctEcran1->isVisible();
                  niveauAtMessage = gNiveau;
                  jeuAtMessage = gJeu;
                  inputOffAtMessage = !fond().isEnabled();
                  cuesAtMessage = cues();
                  bestAtMessage = bestBytes();
              }},
             {QStringLiteral("Valider"), QStringLiteral("ma partie"), [&] { savedBeforeName = savedGames(); }}});
        click(Qt::LeftButton, lowerPoint(kLevel1.back()));

        QVERIFY(screenHidden);
        QCOMPARE(niveauAtMessage, 999);
        QCOMPARE(jeuAtMessage, 1);
        QVERIFY(inputOffAtMessage);
        const QStringList whole = level0 + times(9, k010) + QStringList{k001, k001, k008};
        QCOMPARE(cuesAtMessage, whole);
        const QByteArray afterLevel1 = bestFile(bestLine(1, 1, "ANNE"));
        QCOMPARE(bestAtMessage, afterLevel1);

        QCOMPARE(answers.asked.size(), size_t(2));
        QCOMPARE(answers.asked[0].message,
                 QStringLiteral("Félicitations ANNE\nVous venez de terminer\nles 2 niveaux du jeu 1"));
        QCOMPARE(answers.asked[0].buttons, (QStringList{QStringLiteral("Fermer")}));
        QVERIFY(!answers.asked[0].box);
        QCOMPARE(answers.asked[1].message, QStringLiteral("Vous pouvez sauver votre partie,\ndonnez-lui un nom."));
        QCOMPARE(answers.asked[1].buttons, (QStringList{QStringLiteral("Valider"), QStringLiteral("Annuler")}));
        QVERIFY(answers.asked[1].box);
        QCOMPARE(answers.asked[1].boxText, QString());
        QCOMPARE(savedBeforeName, QStringList());

        QCOMPARE(savedGames(), (QStringList{QStringLiteral("ma partie.sml")}));
        QCOMPARE(fileBytes(dataFolder() + QStringLiteral("ma partie.sml")),
                 QByteArray("\"ANNE\"\r\n999\r\n1\r\n0\r\n0\r\n0\r\n0\r\n"));
        QCOMPARE(bestBytes(), afterLevel1);
        QCOMPARE(cues(), (whole + QStringList{k009, k008, k009}));
        checkIdle();
        QCOMPARE(gTempsTotal, 1.0);
    }

    // Levels 1 then 0 of the shipped store: seconds counted on the first level join the total when it
    // is won and stay on the label through the pause; the second, won within its first second, adds 0.
    // Level 0 in 2 seconds scores below the empty rows and stays out of the best times, with neither cue
    // nor write; level 1 gets ZOE in. At the close the player leaves the box blank and nothing is saved.
    void theClockAcrossAWonLevelAndThePause()
    {
        PlaySession::keepLevels(1, {1, 0});
        session.startGame(1, QStringLiteral("Zoe "));
        QCOMPARE(gNomJoueur, QStringLiteral("ZOE"));

        for (size_t i = 0; i + 1 < kLevel1.size(); ++i) {
            place(kLevel1[i]);
            if (i == 2 || i == 5) fond().myTimer_Timer();
        }
        QCOMPARE(fond().labTemps->text(), QStringLiteral(" 2"));
        QCOMPARE(gTempsTotal, 0.0);

        const PauseView pause = winWatchingThePause(kLevel1.back());
        checkPause(pause, 0, QStringLiteral("000"), QStringLiteral(" 2"));
        QCOMPARE(pause.total, 2.0);
        QCOMPARE(pause.bestFile, bestFile());

        QCOMPARE(gNiveau, 1);
        QCOMPARE(fond().labNiveau->text(), QStringLiteral("001"));
        QCOMPARE(fond().labTemps->text(), QStringLiteral(" 2"));
        QCOMPARE(gTempsNiveau, 0.0);
        QCOMPARE(gTempsTotal, 2.0);
        QVERIFY(fond().myTimer.isActive());
        const QStringList level0 = QStringList{k008, k009, k002} + times(9, k010) + QStringList{k002};
        QCOMPARE(cues(), level0);
        QCOMPARE(bestBytes(), bestFile());
        checkScreen();

        for (size_t i = 0; i + 1 < kLevel0.size(); ++i) place(kLevel0[i]);
        QByteArray bestAtMessage;
        Answers answers({{QStringLiteral("Fermer"), QString(), [&] { bestAtMessage = bestBytes(); }},
                         {QStringLiteral("Valider"), QStringLiteral("   ")}});
        click(Qt::LeftButton, lowerPoint(kLevel0.back()));
        QCOMPARE(answers.asked.size(), size_t(2));
        QCOMPARE(answers.asked[0].message,
                 QStringLiteral("Félicitations ZOE\nVous venez de terminer\nles 2 niveaux du jeu 1"));
        QCOMPARE(answers.asked[1].message, QStringLiteral("Vous pouvez sauver votre partie,\ndonnez-lui un nom."));
        QVERIFY(answers.asked[1].box);
        QCOMPARE(bestAtMessage, bestFile(bestLine(1, 2, "ZOE")));
        QCOMPARE(cues(), (level0 + times(5, k010) + QStringList{k001, k001, k008, k009, k008, k009}));
        QCOMPARE(savedGames(), QStringList());
        QCOMPARE(bestBytes(), bestFile(bestLine(1, 2, "ZOE")));
        QCOMPARE(gTempsTotal, 2.0);
        QCOMPARE(gTempsNiveau, 0.0);
        checkIdle();
    }

    // Level 77 has cells in every corner and non-cells inside.
    void clicksMapToCellsOfTheLowerBoardOnly()
    {
        PlaySession::keepLevels(1, {77});
        session.startGame(1, QStringLiteral("x"));
        cues().clear();
        checkScreen();

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
        QCOMPARE(cues(), QStringList{k010});
        QCOMPARE(fond().tiles.iCoup1, 0);
        QCOMPARE(fond().tiles.tabCoups1[0], 0);
        QCOMPARE(fond().tiles.tabJeu1[0][0], 1);
        checkScreen();

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
        QCOMPARE(cues(), times(5, k010));
        QCOMPARE(gNiveau, 0);
        QVERIFY(fond().myTimer.isActive());
        checkScreen();
    }

    // Level 0 placed top to bottom fills every socket without the target: nothing happens until the
    // placements are taken back, by right clicks anywhere on the screen.
    void rightClicksTakeBackAnywhereAndNeverEndTheLevel()
    {
        PlaySession::keepLevels(1, {0, 1});
        session.startGame(1, QStringLiteral("x"));
        const QImage fresh = fond().pctEcran1->image;
        const TileBoard start = fond().tiles;
        cues().clear();

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
        QCOMPARE(cues(), times(5, k010));
        cues().clear();

        const QPoint anywhere[5] = {upperPoint({3, 1}), {200, 274}, lowerPoint({0, 0}), lowerPoint({3, 2}), {431, 547}};
        for (int i = 0; i < 5; ++i) {
            click(Qt::RightButton, anywhere[i]);
            QCOMPARE(cues(), times(i + 1, k007));
            QVERIFY(sameTiles(fond().tiles, before[4 - i]));
            QCOMPARE(gNiveau, 0);
            QCOMPARE(gJeu, 1);
            QVERIFY(!gASauver);
            QVERIFY(fond().isEnabled());
            QVERIFY(fond().myTimer.isActive());
            checkScreen();
        }
        QVERIFY(sameTiles(fond().tiles, start));
        QVERIFY(fond().pctEcran1->image == fresh);
        clickIgnored(Qt::RightButton, upperPoint({0, 0}));

        // The way on: the right order, with the middle button, wins the level (in no time, which
        // takes the first row of the best times, hence marel001).
        cues().clear();
        for (const Cell &c : kLevel0) click(Qt::MiddleButton, lowerPoint(c));
        QCOMPARE(cues(), (times(5, k010) + QStringList{k001, k002}));
        QCOMPARE(gNiveau, 1);
        QCOMPARE(fond().labNiveau->text(), QStringLiteral("001"));
        checkScreen();
    }
};

QTEST_MAIN(TestTilesScreen)
#include "tst_tiles_screen.moc"

// SPDX-License-Identifier: MIT
// The two record screens at the real window: the saved-game chooser over a real folder of saved games,
// driven by clicks on its labels and arrows, and the best-times screen over the real tables, closed by
// a click on its plate as a player closes it.
#include "best_times.h"
#include "best_times_table.h"
#include "file_bytes.h"
#include "frmBest.h"
#include "frmFile.h"
#include "label_text.h"
#include "modBase.h"
#include "modal_answer.h"
#include "started_window.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QString kClick = QStringLiteral("marel009.wav");
const QStringList kNoms = {"ALPHA", "BETA", "GAMMA", "DELTA", "", "ZOE", "WWWWWWWWWWWWWWWW", "MARC", "LEA"};
const QStringList kScores = {
    "niveau 011 en 1h 02min 05s ", "niveau 012 en 1h 18min 45s ", "niveau 013 en 1h 35min 25s ",
    "niveau 021 en 1h 52min 05s ", "niveau 022 en 2h 08min 45s ", "niveau 023 en 2h 25min 25s ",
    "niveau 031 en 2h 42min 05s ", "niveau 032 en 2h 58min 45s ", "niveau 033 en 3h 15min 25s "};

// "JOUEUR00" to "JOUEUR<count - 1>", in the list's order.
QStringList numbered(int count)
{
    QStringList names;
    for (int i = 0; i < count; ++i) names << QStringLiteral("JOUEUR%1").arg(i, 2, 10, QLatin1Char('0'));
    return names;
}

template <class Label, size_t N>
QStringList textsOf(Label *const (&labels)[N])
{
    QStringList shown;
    for (Label *label : labels) shown << label->text();
    return shown;
}

// The labels that show the grey of the mark, looked at where their text never reaches.
QList<int> marked(frmFile *f)
{
    QList<int> found;
    for (int i = 0; i < 5; ++i) {
        const QPoint corner = f->labF[i]->geometry().topLeft() + QPoint(2, 2);
        if (f->grab(QRect(corner, QSize(1, 1))).toImage().pixelColor(0, 0) == QColor(128, 128, 128)) found << i;
    }
    return found;
}

// Fills the three tables with distinct rows: game g, row r has level 10g + r and a time of its own.
void fillTables()
{
    for (int i = 0; i < 9; ++i) {
        const BestTable table = bestTable(i / 3 + 1);
        const int row = i % 3 + 1;
        table.niveaux[row] = 10 * (i / 3 + 1) + row;
        table.temps[row] = 3725 + 1000 * i;
        table.noms[row] = kNoms[i];
    }
}

// Shows a loaded screen modally as play control does, lets the player act on it, and fails unless that closed it.
template <class Dialog>
void run(Dialog *dialog, std::function<void(Dialog *)> player)
{
    const bool closed = execWith<Dialog>(dialog, player);
    delete dialog;
    if (!closed) QTest::qFail("the screen stayed up", __FILE__, __LINE__);
}

void click(QWidget *w) { QTest::mouseClick(w, Qt::LeftButton); }

} // namespace

class TestRecordScreens : public QObject {
    Q_OBJECT

    std::unique_ptr<frmFond> fond;
    std::unique_ptr<QTemporaryDir> folder;

    // The chooser over saved games of these names, loaded as play control loads it, with no cue heard yet.
    frmFile *chooser(const QStringList &names)
    {
        for (const QString &name : names) {
            QFile file(folder->filePath(name + QStringLiteral(".sml")));
            if (!file.open(QIODevice::WriteOnly)) return nullptr;
        }
        fond->filList.Path = folder->path();
        fond->filList.Refresh();
        auto *f = new frmFile(fond->dialogOwner(), fond->filList);
        f->Form_Load();
        fond->tambour.played.clear();
        return f;
    }

    frmBest *best()
    {
        auto *b = new frmBest(fond->dialogOwner());
        b->Form_Load();
        return b;
    }

private slots:
    void init()
    {
        fond = startedWindow();
        QVERIFY(fond);
        folder = std::make_unique<QTemporaryDir>();
    }
    void cleanup()
    {
        fond.reset();
        folder.reset();
    }

    // The player's acts, by word: "L<n>" clicks label n; "v<n>" and "^<n>" click the down and up arrows
    // and expect the view to start at name n, with each name in place and empty labels below the last; "m<n>" expects
    // the mark on label n alone, "m" no mark; "charger" and "annuler" click the buttons, "esc" and "ret" press the
    // keys, "close" asks the window to close. The chooser opens centred on the first five names, unmarked, and must
    // stay up until the last act; each act that does something is heard.
    void answers()
    {
        struct Row {
            QStringList names;
            QString acts, answer;
            int clicks;
        };
        const QList<Row> rows = {
            {numbered(20), "v4 v8 v12 v15 v15 ^11 ^7 ^0 annuler", "", 9}, // by fours, up jumps to the top
            {numbered(11), "v4 v6 v6 ^0 annuler", "", 5},                 // stops on the last five
            {numbered(5), "v0 v0 ^0 annuler", "", 4},                     // five never move
            {numbered(1), "v0 ^0 annuler", "", 3},
            {numbered(3), "L1 L2 L3 L4 m2 v0 m charger close", "", 4},  // empty labels take no click
            {numbered(8), "charger esc ret L2 charger", "JOUEUR02", 3}, // Charger waits for a mark
            {numbered(20), "L0 v4 v8 L3 m3 charger", "JOUEUR11", 5},
            {numbered(4) << QString(16, QLatin1Char('M')) << "ZOE", "L3 annuler", "", 2}, // a wide name fits
            {numbered(4), "L3 close", "", 1},
            {{"", "ALAIN", "BRUNO"}, "L0 charger L1 charger", "ALAIN", 3}}; // a bare extension cannot be picked
        for (const auto &[names, acts, answer, clicks] : rows) {
            folder = std::make_unique<QTemporaryDir>();
            QString got;
            run<frmFile>(chooser(names), [&](frmFile *f) {
                QCOMPARE((std::pair{f->windowTitle(), f->geometry().center()}),
                         (std::pair{QStringLiteral("Selecteur fichier"), fond->geometry().center()}));
                QCOMPARE(textsOf(f->labF), (names + QStringList(5, QString())).first(5));
                QVERIFY(marked(f).isEmpty());
                for (ClickLabel *label : f->labF)
                    QVERIFY(label->fontMetrics().horizontalAdvance(label->text()) <= label->width());
                for (const QString &act : acts.split(u' ')) {
                    QVERIFY2(f->isVisible(), qPrintable("closed before " + act));
                    const int n = act.mid(1).toInt();
                    if (act[0] == u'L') click(f->labF[n]);
                    if (act[0] == u'v' || act[0] == u'^') {
                        click(f->imgScroll[act[0] == u'v']);
                        QCOMPARE(textsOf(f->labF), (names.mid(n) + QStringList(5, QString())).first(5));
                    }
                    if (act[0] == u'm') QCOMPARE(marked(f), act.size() > 1 ? QList<int>{n} : QList<int>{});
                    if (act == "charger" || act == "annuler") click(f->reponse[act == "annuler"]);
                    if (act == "esc" || act == "ret")
                        QTest::keyClick(f, act == "esc" ? Qt::Key_Escape : Qt::Key_Return);
                    if (act == "close") f->close();
                }
                got = f->Tag;
            });
            QCOMPARE(acts + " gives " + got, acts + " gives " + answer);
            QVERIFY2(fond->tambour.played == QStringList(clicks, kClick), qPrintable(acts));
        }
    }

    // Hours are not bounded; half seconds round to the even neighbour.
    void formatTemps()
    {
        const QList<std::pair<double, const char *>> cases = {
            {0, " en 0h 00min 00s "},       {3725, " en 1h 02min 05s "},       {3599, " en 0h 59min 59s "},
            {356400, " en 99h 00min 00s "}, {3600000, " en 1000h 00min 00s "}, {62.5, " en 0h 01min 02s "},
            {63.5, " en 0h 01min 04s "}};
        for (const auto &[t, text] : cases) QCOMPARE(frmBest::FormatTemps(t), QString(text));
    }

    // Neither keys nor a click beside the plate close the screen; the plate and a close request do,
    // with a cue, and showing the tables changes nothing in their file. Empty rows show dots at level zero.
    void thePlateOrACloseRequestClosesAndNothingChanges()
    {
        fillTables();
        QVERIFY(EcritBest());
        const QByteArray before = readAll(gCheminData + gFichierBest);
        QStringList shown;
        run<frmBest>(best(), [this, &shown](frmBest *b) {
            QCOMPARE(b->geometry().center(), fond->geometry().center());
            QTest::keyClick(b, Qt::Key_Escape);
            QTest::keyClick(b, Qt::Key_Return);
            QTest::mouseClick(b, Qt::LeftButton, {}, QPoint(60, 520)); // beside the plate
            QVERIFY(b->isVisible());
            QVERIFY(fond->tambour.played.isEmpty());
            shown = textsOf(b->labNom) + textsOf(b->labScore);
            // The captions are drawn in black, centred at the top of their labels, the longest name of
            // wide letters inside its label.
            for (int i = 0; i < 18; ++i)
                QCOMPARE(captionFault((i < 9 ? b->labNom : b->labScore)[i % 9], Qt::black), QString());
            QVERIFY(b->labNom[6]->fontMetrics().horizontalAdvance(kNoms[6]) <= b->labNom[6]->width());
            QTest::mouseClick(b->Image1, Qt::LeftButton);
        });
        QCOMPARE(shown, kNoms + kScores);
        RazBest();
        std::tie(gBestNom2[2], gBestNiveau2[2], gBestTemps2[2]) = std::tuple{QString(), 5, 61.0};
        run<frmBest>(best(), [&shown](frmBest *b) {
            shown = textsOf(b->labNom) + textsOf(b->labScore);
            b->close();
        });
        QCOMPARE(shown.takeAt(13), QStringLiteral("niveau 005 en 0h 01min 01s "));
        QCOMPARE(shown.takeAt(4), QString());
        QCOMPARE(shown, QStringList(8, kEmptyName) + QStringList(8, QStringLiteral("niveau 000 en 0h 00min 00s ")));
        QCOMPARE(fond->tambour.played, QStringList(2, kClick));
        QCOMPARE(readAll(gCheminData + gFichierBest), before);
    }
};

QTEST_MAIN(TestRecordScreens)
#include "tst_record_screens.moc"

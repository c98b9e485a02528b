// SPDX-License-Identifier: MIT
// The best-times screen over the real tables, closed by a click on its plate as a player closes it.
#include "best_times.h"
#include "best_times_table.h"
#include "file_bytes.h"
#include "frmBest.h"
#include "label_text.h"
#include "modBase.h"
#include "modal_answer.h"
#include "sound.h"
#include "started_window.h"

#include <QTest>

namespace {

const QStringList kNoms = {"ALPHA", "BETA", "GAMMA", "DELTA", "", "ZOE", "WWWWWWWWWWWWWWWW", "MARC", "LEA"};
const QStringList kScores = {
    "niveau 011 en 1h 02min 05s ", "niveau 012 en 1h 18min 45s ", "niveau 013 en 1h 35min 25s ",
    "niveau 021 en 1h 52min 05s ", "niveau 022 en 2h 08min 45s ", "niveau 023 en 2h 25min 25s ",
    "niveau 031 en 2h 42min 05s ", "niveau 032 en 2h 58min 45s ", "niveau 033 en 3h 15min 25s "};
const QStringList kClick = {QStringLiteral("marel009.wav")};

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

// The nine names, then the nine scores.
QStringList texts(const frmBest *best)
{
    QStringList shown;
    for (QLabel *label : best->labNom) shown << label->text();
    for (QLabel *label : best->labScore) shown << label->text();
    return shown;
}

// Opens the screen as play control does, lets the player act on it, and fails unless that closed it.
void run(const DialogOwner &owner, std::function<void(frmBest *)> player)
{
    auto *best = new frmBest(owner);
    best->Form_Load();
    const bool closed = execWith<frmBest>(best, player);
    delete best;
    if (!closed) QTest::qFail("the screen stayed up", __FILE__, __LINE__);
}

} // namespace

class TestFrmBest : public QObject {
    Q_OBJECT

    std::unique_ptr<frmFond> fond;

private slots:
    void init()
    {
        fond = startedWindow();
        QVERIFY(fond);
    }
    void cleanup() { fond.reset(); }

    // Hours are not bounded; half seconds round to the even neighbour.
    void formatTemps()
    {
        const QList<std::pair<double, const char *>> cases = {
            {0, " en 0h 00min 00s "},       {3725, " en 1h 02min 05s "},       {3599, " en 0h 59min 59s "},
            {356400, " en 99h 00min 00s "}, {3600000, " en 1000h 00min 00s "}, {62.5, " en 0h 01min 02s "},
            {63.5, " en 0h 01min 04s "}};
        for (const auto &[t, text] : cases) QCOMPARE(frmBest::FormatTemps(t), QString(text));
    }

    void emptyRowsShowDotsAtLevelZero()
    {
        RazBest();
        gBestNom2[2].clear();
        gBestNiveau2[2] = 5;
        gBestTemps2[2] = 61;
        frmBest best(fond->dialogOwner());
        best.Form_Load();
        QStringList shown = texts(&best);
        QCOMPARE(shown.takeAt(13), QStringLiteral("niveau 005 en 0h 01min 01s "));
        QCOMPARE(shown.takeAt(4), QString());
        QCOMPARE(shown, QStringList(8, kEmptyName) + QStringList(8, QStringLiteral("niveau 000 en 0h 00min 00s ")));
    }

    // Neither keys nor a click beside the plate close the screen; the plate and a close request do,
    // with a cue, and showing the tables twice changes neither them nor their file.
    void thePlateOrACloseRequestClosesAndNothingChanges()
    {
        fillTables();
        QVERIFY(EcritBest());
        const QByteArray before = readAll(gCheminData + gFichierBest);
        QStringList shown;
        run(fond->dialogOwner(), [this, &shown](frmBest *b) {
            QCOMPARE(b->geometry().center(), fond->geometry().center());
            QTest::keyClick(b, Qt::Key_Escape);
            QTest::keyClick(b, Qt::Key_Return);
            QTest::mouseClick(b, Qt::LeftButton, {}, QPoint(60, 520)); // beside the plate
            QVERIFY(b->isVisible());
            QVERIFY(fond->tambour.played.isEmpty());
            shown = texts(b);
            // The captions are drawn in black, centred at the top of their labels, the longest name of
            // wide letters inside its label.
            for (int i = 0; i < 18; ++i)
                QCOMPARE(captionFault((i < 9 ? b->labNom : b->labScore)[i % 9], Qt::black), QString());
            QVERIFY(b->labNom[6]->fontMetrics().horizontalAdvance(kNoms[6]) <= b->labNom[6]->width());
            QTest::mouseClick(b->Image1, Qt::LeftButton);
        });
        QCOMPARE(shown, kNoms + kScores);
        run(fond->dialogOwner(), [&shown](frmBest *b) {
            shown = texts(b);
            b->close();
        });
        QCOMPARE(shown, kNoms + kScores);
        QCOMPARE(fond->tambour.played, kClick + kClick);
        QCOMPARE(readAll(gCheminData + gFichierBest), before);
    }
};

QTEST_MAIN(TestFrmBest)
#include "tst_frmBest.moc"

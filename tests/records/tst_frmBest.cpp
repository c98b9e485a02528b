// The best-times screen over the real tables, closed by a click on its plate as a player closes it.
#include "best_times.h"
#include "frmBest.h"
#include "modBase.h"
#include "modal_run.h"
#include "sound.h"

#include <QFile>
#include <QTest>

namespace {

const QString kDots = QStringLiteral("................");

// Fills the three tables with distinct rows: game g, row r has level 10g + r and a time of its own.
void fillTables()
{
    const char *names[9] = {"ALPHA", "BETA", "GAMMA", "DELTA", "", "ZOE", "WWWWWWWWWWWWWWWW", "MARC", "LEA"};
    for (int i = 0; i < 9; ++i) {
        const BestTable table = bestTable(i / 3 + 1);
        const int row = i % 3 + 1;
        table.niveaux[row] = 10 * (i / 3 + 1) + row;
        table.temps[row] = 3725 + 1000 * i;
        table.noms[row] = QString::fromLatin1(names[i]);
    }
}

struct Shown {
    QStringList noms, scores;
};

// Opens the screen as play control does, reads its rows and closes it by its plate.
Shown openAndClose()
{
    Shown shown;
    auto *best = new frmBest(mainWindow());
    best->Form_Load();
    const bool closed = execWith<frmBest>(best, [&shown](frmBest *b) {
        for (int i = 0; i < 9; ++i) {
            shown.noms << b->labNom[i]->text();
            shown.scores << b->labScore[i]->text();
        }
        QTest::mouseClick(b->Image1, Qt::LeftButton);
    });
    delete best;
    if (!closed) QTest::qFail("the plate did not close the screen", __FILE__, __LINE__);
    return shown;
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

    void formatTemps_data()
    {
        QTest::addColumn<double>("t");
        QTest::addColumn<QString>("text");
        QTest::newRow("zero") << 0.0 << " en 0h 00min 00s ";
        QTest::newRow("seconds only") << 59.0 << " en 0h 00min 59s ";
        QTest::newRow("an hour and a bit") << 3725.0 << " en 1h 02min 05s ";
        QTest::newRow("just under an hour") << 3599.0 << " en 0h 59min 59s ";
        QTest::newRow("one hour") << 3600.0 << " en 1h 00min 00s ";
        QTest::newRow("the cap") << 356400.0 << " en 99h 00min 00s ";
        QTest::newRow("hours unbounded") << 3600000.0 << " en 1000h 00min 00s ";
        QTest::newRow("fraction down") << 61.4 << " en 0h 01min 01s ";
        QTest::newRow("fraction up") << 61.6 << " en 0h 01min 02s ";
        QTest::newRow("half to even, down") << 62.5 << " en 0h 01min 02s ";
        QTest::newRow("half to even, up") << 63.5 << " en 0h 01min 04s ";
    }
    void formatTemps()
    {
        QFETCH(double, t);
        QFETCH(QString, text);
        QCOMPARE(frmBest::FormatTemps(t), text);
    }

    void nineRowsShowTheTablesInPlace()
    {
        fillTables();
        frmBest best(mainWindow());
        best.Form_Load();
        QCOMPARE(best.windowTitle(), QStringLiteral("Scores"));
        QCOMPARE(best.size(), QSize(400, 540));
        QVERIFY(best.windowFlags() & Qt::FramelessWindowHint);

        const int nomTops[9] = {24, 78, 127, 184, 238, 287, 344, 398, 447};
        const int scoreTops[9] = {44, 97, 147, 204, 257, 307, 364, 417, 467};
        for (int i = 0; i < 9; ++i) {
            QCOMPARE(best.labNom[i]->geometry(), QRect(26, nomTops[i], 348, 20));
            QCOMPARE(best.labScore[i]->geometry(), QRect(100, scoreTops[i], 200, 20));
            QVERIFY(best.labNom[i]->font().bold());
            QCOMPARE(best.labNom[i]->font().pixelSize(), 15);
            QVERIFY(!best.labScore[i]->font().bold());
            QCOMPARE(best.labScore[i]->font().pixelSize(), 13);
            QVERIFY(best.labNom[i]->alignment() & Qt::AlignHCenter);
            QVERIFY(best.labScore[i]->alignment() & Qt::AlignHCenter);
        }
        const QStringList noms = {"ALPHA", "BETA", "GAMMA", "DELTA", "", "ZOE", "WWWWWWWWWWWWWWWW", "MARC", "LEA"};
        const QStringList scores = {
            "niveau 011 en 1h 02min 05s ", "niveau 012 en 1h 18min 45s ", "niveau 013 en 1h 35min 25s ",
            "niveau 021 en 1h 52min 05s ", "niveau 022 en 2h 08min 45s ", "niveau 023 en 2h 25min 25s ",
            "niveau 031 en 2h 42min 05s ", "niveau 032 en 2h 58min 45s ", "niveau 033 en 3h 15min 25s "};
        for (int i = 0; i < 9; ++i) {
            QCOMPARE(best.labNom[i]->text(), noms[i]);
            QCOMPARE(best.labScore[i]->text(), scores[i]);
        }
        // The longest name of wide letters stays inside its label.
        QVERIFY(best.labNom[6]->fontMetrics().horizontalAdvance(noms[6]) <= best.labNom[6]->width());

        QCOMPARE(best.Image1->geometry(), QRect(110, 505, 179, 30));
        QCOMPARE(best.Image1->cursor().shape(), Qt::BitmapCursor);
    }

    void emptyRowsShowDotsAtLevelZero()
    {
        RazBest();
        gBestNom2[2].clear();
        gBestNiveau2[2] = 5;
        gBestTemps2[2] = 61;
        frmBest best(mainWindow());
        best.Form_Load();
        for (int i = 0; i < 9; ++i) {
            if (i == 4) continue;
            QCOMPARE(best.labNom[i]->text(), kDots);
            QCOMPARE(best.labScore[i]->text(), QStringLiteral("niveau 000 en 0h 00min 00s "));
        }
        QCOMPARE(best.labNom[4]->text(), QString());
        QCOMPARE(best.labScore[4]->text(), QStringLiteral("niveau 005 en 0h 01min 01s "));
    }

    void thePlateClosesWithItsCueAndNothingElseDoes()
    {
        fillTables();
        auto *best = new frmBest(mainWindow());
        best->Form_Load();
        const bool closed = execWith<frmBest>(best, [this](frmBest *b) {
            QCOMPARE(b->geometry().center(), fond->geometry().center());
            QTest::keyClick(b, Qt::Key_Escape);
            QTest::keyClick(b, Qt::Key_Return);
            QTest::mouseClick(b, Qt::LeftButton, {}, QPoint(60, 520)); // beside the plate
            QVERIFY(b->isVisible());
            QVERIFY(fond->tambour.played.isEmpty());
            QTest::mouseClick(b->Image1, Qt::LeftButton);
        });
        delete best;
        QVERIFY(closed);
        QCOMPARE(fond->tambour.played, QStringList({"marel009.wav"}));
    }

    void aCloseRequestActsAsThePlate()
    {
        auto *best = new frmBest(mainWindow());
        best->Form_Load();
        const bool closed = execWith<frmBest>(best, [](frmBest *b) { b->close(); });
        delete best;
        QVERIFY(closed);
        QCOMPARE(fond->tambour.played, QStringList({"marel009.wav"}));
    }

    void openingTwiceShowsTheSameAndChangesNothing()
    {
        fillTables();
        QVERIFY(EcritBest());
        QFile file(gCheminData + gFichierBest);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray before = file.readAll();
        file.close();
        QCOMPARE(before.size(), 279);

        const Shown first = openAndClose();
        const Shown second = openAndClose();
        QCOMPARE(first.noms.size(), 9);
        QCOMPARE(second.noms, first.noms);
        QCOMPARE(second.scores, first.scores);
        QCOMPARE(fond->tambour.played, QStringList({"marel009.wav", "marel009.wav"}));

        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), before);
        QCOMPARE(gBestNom3[1], QStringLiteral("WWWWWWWWWWWWWWWW"));
        QCOMPARE(gBestNiveau2[3], 23);
        QCOMPARE(gBestTemps1[2], 4725.0);
    }
};

QTEST_MAIN(TestFrmBest)
#include "tst_frmBest.moc"

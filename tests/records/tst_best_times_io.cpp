// Start-up of the best-times tables on a real disk: first run, later runs, a damaged file, and
// folders that cannot be reached or written.
#include "best_times.h"
#include "best_times_file.h"
#include "best_times_table.h"
#include "disk_full.h"
#include "file_bytes.h"
#include "modBase.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QByteArray kEmptyLine = bestLine({0, 0, kEmptyName});

} // namespace

class TestBestTimesIo : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> home;
    QString data() const { return home->path() + QStringLiteral("/cerscore/marel32b/"); }
    QString bestFile() const { return data() + QStringLiteral("mlbestTime.dat"); }

private slots:
    void init()
    {
        home = std::make_unique<QTemporaryDir>();
        qputenv("XDG_DATA_HOME", home->path().toUtf8());
        gFichierBest = QStringLiteral("mlbestTime.dat");
        gCheminData.clear();
        for (int jeu = 1; jeu <= 3; ++jeu) {
            const BestTable t = bestTable(jeu);
            for (int row = 1; row <= 3; ++row) t.noms[row] = QStringLiteral("stale");
        }
    }

    void aFirstRunCreatesBothFoldersAndAFileOfEmptyRows()
    {
        const QString before = QDir::currentPath();
        InitDonnees();
        QCOMPARE(gCheminData, data());
        QCOMPARE(QDir::currentPath(), before);
        QCOMPARE(readAll(bestFile()), kEmptyLine.repeated(9));
        QCOMPARE(readAll(bestFile()).size(), 279);
        QCOMPARE(gBestNom3[3], kEmptyName);
    }

    void aLaterRunReadsTheTables()
    {
        QDir().mkpath(data());
        QByteArray file;
        for (int i = 0; i < 9; ++i) file += bestLine({i + 1, 100.0 + i, QStringLiteral("JOUEUR%1").arg(i)});
        writeAll(bestFile(), file);
        InitDonnees();
        QCOMPARE(gBestNiveau1[1], 1);
        QCOMPARE(gBestNom2[2], QStringLiteral("JOUEUR4"));
        QCOMPARE(gBestTemps3[3], 108.0);
        QCOMPARE(readAll(bestFile()), file); // not rewritten
    }

    void aShortFileIsCompletedFromTheRowsItHeld()
    {
        QDir().mkpath(data());
        const QByteArray twoRows = bestLine({4, 40, QStringLiteral("A")}) + bestLine({3, 30, QStringLiteral("B")});
        writeAll(bestFile(), twoRows + "\"00");
        InitDonnees();
        QCOMPARE(readAll(bestFile()).size(), 279);
        QVERIFY(readAll(bestFile()).startsWith(twoRows));
        QCOMPARE(gBestNom1[2], QStringLiteral("B"));
        QCOMPARE(gBestNom1[3], QStringLiteral("00")); // what stood where the name goes
        QCOMPARE(gBestNiveau1[3], 0);
        QCOMPARE(gBestNom2[1], kEmptyName);
    }

    void aDataFolderThatCannotBeReachedLeavesThePathEmpty()
    {
        writeAll(home->path() + QStringLiteral("/cerscore"), "not a folder");
        InitDonnees();
        QVERIFY(gCheminData.isEmpty());
        QCOMPARE(gBestNom1[1], QStringLiteral("stale")); // the tables were not reset
    }

    void aFullDiskKeepsTheOldFileWhole()
    {
        InitDonnees();
        const QByteArray before = readAll(bestFile());
        gBestNom1[1] = QStringLiteral("NOUVEAU");
        gBestNiveau1[1] = 5;
        {
            DiskFullAfter limit(100);
            QVERIFY(!EcritBest());
        }
        QCOMPARE(readAll(bestFile()), before);
        QVERIFY(EcritBest());
        QVERIFY(readAll(bestFile()).contains("NOUVEAU"));
    }

    void aRemovedFolderFailsTheWriteAndNothingElse()
    {
        InitDonnees();
        QVERIFY(QDir(data()).removeRecursively());
        QVERIFY(!EcritBest());
        QVERIFY(!QFile::exists(bestFile()));
    }
};

QTEST_GUILESS_MAIN(TestBestTimesIo)
#include "tst_best_times_io.moc"

// Start-up of the best-times tables on a real disk: first run, later runs, a damaged or huge file,
// leftovers of an interrupted write, and folders that are missing, cannot be reached or written.
#include "best_times.h"
#include "best_times_file.h"
#include "best_times_table.h"
#include "disk_full.h"
#include "file_bytes.h"
#include "memory_limit.h"
#include "modBase.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <sys/stat.h>

namespace {

const BestRow kEmpty{0, 0, kEmptyName};
const QByteArray kEmptyLine = bestLine(kEmpty);

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

    void missingParentsOfTheDataHomeAreMadeForTheUserAlone()
    {
        const QString dataHome = home->path() + QStringLiteral("/nouveau/compte");
        qputenv("XDG_DATA_HOME", dataHome.toUtf8());
        InitDonnees();
        QCOMPARE(gCheminData, dataHome + QStringLiteral("/cerscore/marel32b/"));
        QCOMPARE(readAll(gCheminData + gFichierBest), kEmptyLine.repeated(9));
        for (const QString &made : {home->path() + QStringLiteral("/nouveau"), dataHome}) {
            struct stat info {};
            QCOMPARE(stat(QFile::encodeName(made).constData(), &info), 0);
            QCOMPARE(info.st_mode & 0777, 0700u);
        }
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
        QCOMPARE(readAll(bestFile() + QStringLiteral(".1")), twoRows + "\"00"); // the old bytes, kept beside
        QCOMPARE(readAll(bestFile()).size(), 279);
        QVERIFY(readAll(bestFile()).startsWith(twoRows));
        QCOMPARE(gBestNom1[2], QStringLiteral("B"));
        QCOMPARE(gBestNom1[3], QStringLiteral("00")); // what stood where the name goes
        QCOMPARE(gBestNiveau1[3], 0);
        QCOMPARE(gBestNom2[1], kEmptyName);
    }

    void aHugeFileIsReadOnlyAsFarAsItsRows()
    {
        QDir().mkpath(data());
        QByteArray rows;
        for (int i = 0; i < 9; ++i) rows += bestLine({i, 10.0 * i, QStringLiteral("P%1").arg(i)});
        writeAll(bestFile(), rows);
        QVERIFY(QFile::resize(bestFile(), qint64(1) << 30)); // sparse: a gigabyte of zeros after the rows
        {
            MemoryLimitAbove limit(256 << 20);
            InitDonnees();
        }
        QCOMPARE(gBestNom3[3], QStringLiteral("P8"));
        QCOMPARE(readAll(bestFile()), rows);
        QCOMPARE(QFileInfo(bestFile() + QStringLiteral(".1")).size(), qint64(1) << 30);
    }

    void leftoversOfAnInterruptedWriteAreRemovedAtStart()
    {
        QDir().mkpath(data());
        const QStringList leftovers = {".mlbestTime.dat.k3Jq9Z", ".ma partie.sml.Ab12Cd"};
        const QStringList kept = {".x.sml.abcdefg", "ma partie.sml", "mlbestTime.dat", "mlbestTime.dat.1",
                                  "notes.sml.backup"};
        for (const QString &name : leftovers + kept) writeAll(data() + name, bestLine(kEmpty));
        InitDonnees();
        QCOMPARE(QDir(data()).entryList(QDir::Files | QDir::Hidden, QDir::Name), kept);
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

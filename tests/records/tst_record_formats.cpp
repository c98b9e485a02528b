// SPDX-License-Identifier: MIT
// The bytes of the best-times file and of saved games, the ranking of results, what any bytes read
// back as, and the start-up of the best-times tables on a real disk.
#include "best_times.h"
#include "best_times_file.h"
#include "best_times_table.h"
#include "codepage.h"
#include "disk_full.h"
#include "file_bytes.h"
#include "memory_limit.h"
#include "modBase.h"
#include "saved_game_file.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <sys/stat.h>

namespace {

QByteArray hex(const char *text) { return QByteArray::fromHex(QByteArray(text).replace(' ', "")); }

const BestRow kEmpty{0, 0, kEmptyName};
const QByteArray kEmptyLine = bestLine(kEmpty);

QByteArray bestFile(const QList<BestRow> &rows)
{
    QByteArray bytes;
    for (const BestRow &row : rows) bytes += bestLine(row);
    return bytes;
}

QList<BestRow> numberedRows()
{
    QList<BestRow> rows;
    for (int i = 0; i < 9; ++i) rows << BestRow{i, 10.0 * i, QStringLiteral("P%1").arg(i)};
    return rows;
}

// A table of three rows written "level seconds name|...", an empty field standing for an empty row.
QStringList rowsOf(const QString &table)
{
    QStringList rows = table.split(QLatin1Char('|'));
    for (QString &row : rows)
        if (row.isEmpty()) row = QStringLiteral("0 0 ") + kEmptyName;
    return rows;
}

} // namespace

class TestRecordFormats : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> home;
    QString data() const { return home->path() + QStringLiteral("/cerscore/marel32b/"); }
    QString bestPath() const { return data() + QStringLiteral("mlbestTime.dat"); }

private slots:
    void init()
    {
        home = std::make_unique<QTemporaryDir>();
        qputenv("XDG_DATA_HOME", home->path().toUtf8());
        gFichierBest = QStringLiteral("mlbestTime.dat");
        gCheminData.clear();
        for (int jeu = 1; jeu <= 3; ++jeu)
            for (int row = 1; row <= 3; ++row) bestTable(jeu).noms[row] = QStringLiteral("stale");
    }

    void bestLinesAreFixedFieldsInQuotes()
    {
        QCOMPARE(kEmptyLine, hex("22 3030303030303030303030 2E2E2E2E2E2E2E2E2E2E2E2E2E2E2E2E 22 0D0A"));
        QCOMPARE(bestLine({12, 3725, QStringLiteral("JOUEUR")}),
                 hex("22 303132 3030303033373235 4A4F55455552 20202020202020202020 22 0D0A"));
        // Too long for a field: leading digits and the name's tail are cut.
        QCOMPARE(bestText({1234, 123456789, QStringLiteral("ABCDEFGHIJKLMNOPQRST")}),
                 QStringLiteral("23423456789ABCDEFGHIJKLMNOP"));
    }

    void namesKeepOnlyWhatBothFilesHold()
    {
        QCOMPARE(toCodePage(QStringLiteral("ÉLOÏSE Œ€ł")), hex("C9 4C 4F CF 53 45 20 8C 80 3F"));
        // Every byte reads and writes back unchanged, the five the code page leaves undefined too.
        QByteArray all;
        for (int b = 0; b < 256; ++b) all.append(static_cast<char>(b));
        QCOMPARE(toCodePage(fromCodePage(all)), all);
        // ß has no capital of one character and µ's is Greek; an accent may be typed as a mark of its own.
        const QList<std::pair<QString, QString>> typed = {
            {"  anne ", "ANNE"}, {"a\",b", "A',B"},          {QString(16, QChar(0xDF)), QString(16, QChar(0xDF))},
            {"µÿœ", "µŸŒ"},      {"e\u0301t\u00E9", "ÉTÉ"}, {"x\ty\r\nz\u0081", "X Y  Z"},
            {"\U0001F600!", "?!"},
        };
        for (const auto &[name, stored] : typed) {
            const QString player = playerName(name);
            QCOMPARE(player, stored);
            QCOMPARE(fromCodePage(toCodePage(player)), player);
        }
        QCOMPARE(storableName(QStringLiteral("  Zoé\x7F\"")), QStringLiteral("Zoé '"));
        QCOMPARE(storableName(QStringLiteral("abcdefghijklmno pqrs")), QStringLiteral("abcdefghijklmno"));
    }

    void bestFilesReadBackAsWrittenAsFarAsTheyGo()
    {
        const QList<BestRow> written = numberedRows().mid(0, 6)
                                       + QList<BestRow>{kEmpty, {99, 356400, QStringLiteral("ÉLISE")}, {3, 7, QString()}};
        const QByteArray file = bestFile(written);
        const QList<BestRow> read = readBestRows(file);
        QCOMPARE(read.size(), 9);
        for (int i = 0; i < 9; ++i)
            QCOMPARE(bestLine(read[i]), bestLine(written[i]));
        QCOMPARE(read[8].nom, QString());
        QCOMPARE(readBestRows(file.left(31 * 4 + 10)).size(), 5);
        QCOMPARE(readBestRows(file + file).size(), 9);
        // Bare line feeds, and text after a closing quote, are taken in their stride.
        QByteArray loose = file;
        loose.replace("\r\n", "\n").replace("\"\n", "\"junk\n");
        QCOMPARE(readBestRows(loose).size(), 9);
        QCOMPARE(readBestRows(loose)[7].nom, QStringLiteral("ÉLISE"));
    }

    void garbledBestLinesGiveWhatTheyStartWith()
    {
        const BestRow garbled = parseBestText(QStringLiteral("ab1xyz        tail  "));
        QCOMPARE((std::tuple{garbled.niveau, garbled.temps, garbled.nom}), (std::tuple{0, 0.0, QString("yz        tail")}));
        const BestRow digits = parseBestText(QStringLiteral("7x 0000042zzzz"));
        QCOMPARE((std::pair{digits.niveau, digits.temps}), (std::pair{7, 42.0}));
        // Halves round to the even neighbour; values that could not be written back are brought within their fields.
        QCOMPARE(parseBestText(QStringLiteral("2.5")).niveau, 2);
        QCOMPARE(parseBestText(QStringLiteral("3.5")).niveau, 4);
        QCOMPARE(parseBestText(QStringLiteral("-5-0000081")).niveau, 0);
        QCOMPARE(parseBestText(QStringLiteral("200-0000081")).temps, 0.0);
        QCOMPARE(parseBestText(QStringLiteral("0010000012.5")).temps, 12.0);
    }

    void aBadLineCostsAtMostThatLine()
    {
        QByteArrayList lines;
        for (const BestRow &row : numberedRows()) lines << bestLine(row);
        // No closing quote, blank lines before a line, a time and a level never written.
        lines[1].remove(28, 1);
        lines[4].prepend("\r\n   \r\n");
        lines[6] = bestLine({6, 0, QStringLiteral("P6")}).replace("00000000", "99999999");
        lines[7].replace("007", "-07");
        const QList<BestRow> rows = readBestRows(lines.join());
        QCOMPARE(rows.size(), 9);
        for (int i = 0; i < 9; ++i) QCOMPARE(rows[i].nom, QStringLiteral("P%1").arg(i));
        QCOMPARE(rows[1].temps, 10.0);
        QCOMPARE(rows[2].niveau, 2);
        QCOMPARE(rows[6].temps, 356400.0);
        QCOMPARE(rows[7].niveau, 0);
        QCOMPARE(rows[8].temps, 80.0);
    }

    // Results entered in turn into a table of three rows: whether each took a place, and the table after.
    void ranking_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("entries");
        QTest::addColumn<QString>("placed");
        QTest::addColumn<QString>("after");
        QTest::newRow("the worked example") << "12 3725 ALPHA|5 900 BETA|" << "5 850 GAMMA" << "1"
                                            << "12 3725 ALPHA|5 850 GAMMA|5 900 BETA";
        QTest::newRow("level 0 in some time does not enter empty rows; level 1 does")
            << "||" << "0 12 ANNE|1 30 ANNE" << "01" << "1 30 ANNE||";
        QTest::newRow("level 0 in no time goes above the empty rows") << "||" << "0 0 RAPIDE" << "1" << "0 0 RAPIDE||";
        QTest::newRow("a tie takes the place and pushes down") << "9 10 A|5 100 B|4 1 C" << "5 100 D" << "1"
                                                               << "9 10 A|5 100 D|5 100 B";
        QTest::newRow("the player's own row takes a worse result") << "9 10 A||" << "0 50 A" << "1" << "||0 50 A";
        QTest::newRow("a full table of better results") << "9 10 A|8 10 B|7 10 C" << "3 10 D" << "0"
                                                        << "9 10 A|8 10 B|7 10 C";
        QTest::newRow("sixteen dots match every empty row") << "2 5 A||" << QString("1 40 ") + kEmptyName << "1"
                                                            << QString("2 5 A|1 40 %1|1 40 %1").arg(kEmptyName);
        QTest::newRow("an empty name plays") << "||" << "2 40 |3 80 " << "11" << "3 80 ||";
    }
    void ranking()
    {
        QFETCH(QString, before);
        QFETCH(QString, entries);
        QFETCH(QString, placed);
        QFETCH(QString, after);
        int32_t niveaux[4] = {};
        double temps[4] = {};
        QString noms[4];
        const QStringList start = rowsOf(before);
        for (int row = 1; row <= 3; ++row) {
            niveaux[row] = start[row - 1].section(u' ', 0, 0).toInt();
            temps[row] = start[row - 1].section(u' ', 1, 1).toDouble();
            noms[row] = start[row - 1].section(u' ', 2);
        }
        QString took;
        for (const QString &entry : entries.split(u'|'))
            took += rankResult(niveaux, temps, noms, entry.section(u' ', 0, 0).toInt(),
                               entry.section(u' ', 1, 1).toDouble(), entry.section(u' ', 2))
                        ? u'1'
                        : u'0';
        QCOMPARE(took, placed);
        QStringList rows;
        for (int row = 1; row <= 3; ++row) rows << QStringLiteral("%1 %2 %3").arg(niveaux[row]).arg(temps[row]).arg(noms[row]);
        QCOMPARE(rows, rowsOf(after));
    }

    void savedGamesOfTheWorkedExamples()
    {
        QCOMPARE(formatSavedGame(blankSavedGame()),
                 hex("22 2E2E2E2E2E2E2E2E2E2E2E2E2E2E2E2E 22 0D0A 300D0A 300D0A 300D0A 300D0A 300D0A 300D0A"));
        SavedGame joueur;
        joueur.joueur = QStringLiteral("JOUEUR");
        joueur.niveau[1] = 7;
        joueur.temps[1] = 1234;
        joueur.niveau[2] = 999;
        joueur.temps[2] = 5000;
        QCOMPARE(formatSavedGame(joueur),
                 hex("22 4A4F55455552 22 0D0A 37 0D0A 31323334 0D0A 393939 0D0A 35303030 0D0A 30 0D0A 30 0D0A"));

        // At the cap of time, with the largest level, the record reads back whole.
        SavedGame cap;
        cap.joueur = QStringLiteral("ÉLISE");
        for (int jeu = 1; jeu <= 3; ++jeu) {
            cap.niveau[jeu] = jeu == 2 ? 999 : INT32_MAX;
            cap.temps[jeu] = 356400;
        }
        const std::optional<SavedGame> back = parseSavedGame(formatSavedGame(cap));
        QVERIFY(back);
        QCOMPARE(back->joueur, cap.joueur);
        for (int jeu = 1; jeu <= 3; ++jeu) {
            QCOMPARE(back->niveau[jeu], cap.niveau[jeu]);
            QCOMPARE(back->temps[jeu], 356400.0);
        }
    }

    void savedGamesThatAreShortOrGarbledDoNotLoad()
    {
        const QByteArray good = formatSavedGame(blankSavedGame());
        for (int cut = 0; cut < good.size() - 2; ++cut)
            QVERIFY2(!parseSavedGame(good.left(cut)), qPrintable(QString::number(cut)));
        for (const auto &[niveau, temps] : {std::pair{"1", "sept"}, {"-1", "0"}, {"1", "356401"}, {"1", "12.5"}})
            QVERIFY2(!parseSavedGame(QByteArray("\"A\"\r\n") + niveau + "\r\n" + temps + "\r\n0\r\n0\r\n0\r\n0\r\n"), temps);
        // A comma inside the quotes belongs to the name; a quote inside it ends the name.
        QCOMPARE(parseSavedGame("\"A, B\"\r\n1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n")->joueur, QStringLiteral("A, B"));
        QCOMPARE(parseSavedGame("\"A\"B\"\r\n1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n")->joueur, QStringLiteral("A"));
        QCOMPARE(parseSavedGame("\"\xC9VE\"\n1\n2\n3\n4\n5\n6")->joueur, QStringLiteral("ÉVE"));
    }

    // A first run makes the missing folders for the user alone, and a file of empty rows.
    void aFirstRunCreatesTheFoldersAndAFileOfEmptyRows()
    {
        const QString dataHome = home->path() + QStringLiteral("/nouveau/compte");
        qputenv("XDG_DATA_HOME", dataHome.toUtf8());
        const QString before = QDir::currentPath();
        InitDonnees();
        QCOMPARE(QDir::currentPath(), before);
        QCOMPARE(gCheminData, dataHome + QStringLiteral("/cerscore/marel32b/"));
        QCOMPARE(readAll(gCheminData + gFichierBest), kEmptyLine.repeated(9));
        QCOMPARE(gBestNom3[3], kEmptyName);
        for (const QString &made : {home->path() + QStringLiteral("/nouveau"), dataHome}) {
            struct stat info {};
            QCOMPARE(stat(QFile::encodeName(made).constData(), &info), 0);
            QCOMPARE(info.st_mode & 0777, 0700u);
        }
    }

    // A file cut short, or a gigabyte long, is kept beside and written anew from the rows it held.
    void aShortOrHugeFileIsRewrittenFromItsRows()
    {
        QDir().mkpath(data());
        const QByteArray twoRows = bestLine({4, 40, QStringLiteral("A")}) + bestLine({3, 30, QStringLiteral("B")});
        writeAll(bestPath(), twoRows + "\"00");
        InitDonnees();
        QCOMPARE(readAll(bestPath() + QStringLiteral(".1")), twoRows + "\"00");
        QCOMPARE(readAll(bestPath()), twoRows + bestLine({0, 0, QStringLiteral("00")}) + kEmptyLine.repeated(6));
        QCOMPARE(gBestNom1[3], QStringLiteral("00")); // what stood where the name goes
        QCOMPARE(gBestNom2[1], kEmptyName);

        const QByteArray rows = bestFile(numberedRows());
        writeAll(bestPath(), rows);
        QVERIFY(QFile::resize(bestPath(), qint64(1) << 30)); // sparse: a gigabyte of zeros after the rows
        {
            MemoryLimitAbove limit(256 << 20);
            InitDonnees();
        }
        QCOMPARE(gBestNom3[3], QStringLiteral("P8"));
        QCOMPARE(readAll(bestPath()), rows);
        QCOMPARE(QFileInfo(bestPath() + QStringLiteral(".1")).size(), qint64(1) << 30);
    }

    // A later run reads the tables, leaves a whole file as it is, and removes what a write cut short left.
    void aLaterRunReadsTheTablesAndRemovesLeftovers()
    {
        QDir().mkpath(data());
        const QStringList leftovers = {".mlbestTime.dat.k3Jq9Z", ".ma partie.sml.Ab12Cd"};
        const QStringList kept = {".x.sml.abcdefg", "ma partie.sml", "mlbestTime.dat", "mlbestTime.dat.1",
                                  "notes.sml.backup"};
        for (const QString &name : leftovers + kept) writeAll(data() + name, kEmptyLine);
        QByteArray file;
        for (int i = 0; i < 9; ++i) file += bestLine({i + 1, 100.0 + i, QStringLiteral("JOUEUR%1").arg(i)});
        writeAll(bestPath(), file);
        InitDonnees();
        QCOMPARE(QDir(data()).entryList(QDir::Files | QDir::Hidden, QDir::Name), kept);
        QCOMPARE(readAll(bestPath()), file);
        QCOMPARE(gBestNiveau1[1], 1);
        QCOMPARE(gBestNom2[2], QStringLiteral("JOUEUR4"));
        QCOMPARE(gBestTemps3[3], 108.0);
    }

    void aDataFolderThatCannotBeReachedLeavesThePathEmpty()
    {
        writeAll(home->path() + QStringLiteral("/cerscore"), "not a folder");
        InitDonnees();
        QVERIFY(gCheminData.isEmpty());
        QCOMPARE(gBestNom1[1], QStringLiteral("stale")); // the tables were not reset
    }

    void aFullDiskOrARemovedFolderFailsTheWriteAndKeepsTheOldFile()
    {
        InitDonnees();
        gBestNom1[1] = QStringLiteral("NOUVEAU");
        {
            DiskFullAfter limit(100);
            QVERIFY(!EcritBest());
        }
        QCOMPARE(readAll(bestPath()), kEmptyLine.repeated(9));
        QVERIFY(QDir(data()).removeRecursively());
        QVERIFY(!EcritBest());
        QVERIFY(!QFile::exists(bestPath()));
    }
};

QTEST_GUILESS_MAIN(TestRecordFormats)
#include "tst_record_formats.moc"

// SPDX-License-Identifier: MIT
// The bytes of the best-times file and of saved games, the ranking of results, what any bytes read
// back as, the start-up of the best-times tables, and saved games loaded, made and rewritten on a
// real disk, with the names and faults that must never cost a saved game.
#include "best_times.h"
#include "best_times_file.h"
#include "best_times_table.h"
#include "codepage.h"
#include "disk_full.h"
#include "file_bytes.h"
#include "file_list.h"
#include "memory_limit.h"
#include "modBase.h"
#include "saved_game_file.h"
#include "saved_games.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

namespace {

QByteArray hex(const char *text) { return QByteArray::fromHex(QByteArray(text).replace(' ', "")); }

const QByteArray kJoueur = "\"JOUEUR\"\r\n7\r\n1234\r\n999\r\n5000\r\n0\r\n0\r\n";
const BestRow kEmpty{0, 0, kEmptyName};
const QByteArray kEmptyLine = bestLine(kEmpty);

QByteArray bestFile(const QList<BestRow> &rows)
{
    QByteArray bytes;
    for (const BestRow &row : rows) bytes += bestLine(row);
    return bytes;
}

// A row as "level seconds name", and rows likewise.
QString shown(const BestRow &row)
{
    return QStringLiteral("%1 %2 %3").arg(row.niveau).arg(row.temps, 0, 'g', 10).arg(row.nom);
}
QStringList shown(const QList<BestRow> &rows)
{
    QStringList texts;
    for (const BestRow &row : rows) texts << shown(row);
    return texts;
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

// A row written "level seconds name".
std::tuple<int32_t, double, QString> rowOf(const QString &text)
{
    return {text.section(u' ', 0, 0).toInt(), text.section(u' ', 1, 1).toDouble(), text.section(u' ', 2)};
}

} // namespace

class TestRecordFormats : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> home;
    QString data() const { return home->path() + QStringLiteral("/cerscore/marel32b/"); }
    QString bestPath() const { return data() + QStringLiteral("mlbestTime.dat"); }
    QString path(const char *nom) const { return gCheminData + QString::fromUtf8(nom) + QStringLiteral(".sml"); }
    FileList files{QStringLiteral("*.sml")};

    // The game in play, as a saved game is loaded into it or written from it.
    static void play(const char *partie, const char *joueur, int jeu, int niveau, double temps)
    {
        std::tie(gNomPartie, gNomJoueur) = std::pair{QString::fromUtf8(partie), QString::fromUtf8(joueur)};
        std::tie(gJeu, gNiveau, gTempsTotal) = std::tuple{jeu, niveau, temps};
    }
    static auto state() { return std::tuple{gNomJoueur, gNiveau, gTempsTotal}; }

private slots:
    void init()
    {
        home = std::make_unique<QTemporaryDir>();
        qputenv("XDG_DATA_HOME", home->path().toUtf8());
        gFichierBest = QStringLiteral("mlbestTime.dat");
        gCheminData = home->path() + QLatin1Char('/'); // where saved games go; a start finds its own
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
            {"  anne ", "ANNE"},   {"a\",b", "A',B"},         {QString(16, QChar(0xDF)), QString(16, QChar(0xDF))},
            {"µÿœ", "µŸŒ"},        {"e\u0301t\u00E9", "ÉTÉ"}, {"x\ty\r\nz\u0081", "X Y  Z"},
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

    // Best-times files read back as written, as far as they go; garbled lines give what they start with.
    void bestFilesReadBack()
    {
        QByteArrayList lines;
        for (const BestRow &row : numberedRows()) lines << bestLine(row);
        const QList<BestRow> written =
            numberedRows().mid(0, 6) + QList<BestRow>{kEmpty, {99, 356400, QStringLiteral("ÉLISE")}, {3, 7, QString()}};
        const QByteArray file = bestFile(written);
        QCOMPARE(shown(readBestRows(file)), shown(written));
        QCOMPARE(shown(readBestRows(file + file)), shown(written));
        QCOMPARE(readBestRows(file.left(31 * 4 + 10)).size(), 5);
        // Bare line feeds, and text after a closing quote, are taken in their stride.
        QCOMPARE(shown(readBestRows(QByteArray(file).replace("\r\n", "\n").replace("\"\n", "\"junk\n"))),
                 shown(written));

        // Halves round to the even neighbour; values that could not be written back are brought within their fields.
        const QStringList texts = {"ab1xyz        tail  ", "7x 0000042zzzz", "2.5",         "3.5",
                                   "-5-0000081",           "200-0000081",    "0010000012.5"};
        const QStringList rows = {"0 0 yz        tail", "7 42 7x 0000042zzzz", "2 0 2.5",          "4 0 3.5",
                                  "0 81 -5-0000081",    "200 0 200-0000081",   "1 12 0010000012.5"};
        for (int i = 0; i < texts.size(); ++i) QCOMPARE(shown(parseBestText(texts[i])), rows[i]);

        // A bad line costs at most that line: no closing quote, blank lines before a line, a time and a level never
        // written.
        lines[1].remove(28, 1);
        lines[4].prepend("\r\n   \r\n");
        lines[6] = bestLine({6, 0, QStringLiteral("P6")}).replace("00000000", "99999999");
        lines[7].replace("007", "-07");
        QStringList numbered = shown(numberedRows());
        numbered[6] = QStringLiteral("6 356400 P6");
        numbered[7] = QStringLiteral("0 0 P7");
        QCOMPARE(shown(readBestRows(lines.join())), numbered);
    }

    // Results entered in turn into a table of three rows, each row written "level seconds name" and an
    // empty field standing for an empty row: whether each result took a place, and the table after.
    void ranking()
    {
        const QList<std::array<QString, 4>> cases = {
            {"12 3725 ALPHA|5 900 BETA|", "5 850 GAMMA", "1", "12 3725 ALPHA|5 850 GAMMA|5 900 BETA"}, // worked example
            {"||", "0 12 ANNE|1 30 ANNE", "01", "1 30 ANNE||"}, // level 0 in some time stays out of empty rows
            {"||", "0 0 RAPIDE", "1", "0 0 RAPIDE||"},          // level 0 in no time goes above them
            {"9 10 A|5 100 B|4 1 C", "5 100 D", "1", "9 10 A|5 100 D|5 100 B"}, // a tie takes the place
            {"9 10 A||", "0 50 A", "1", "||0 50 A"},                            // the player's own row, worse
            {"9 10 A|8 10 B|7 10 C", "3 10 D", "0", "9 10 A|8 10 B|7 10 C"},    // a full table of better ones
            {"2 5 A||", "1 40 " + kEmptyName, "1", "2 5 A|1 40 " + kEmptyName + "|1 40 " + kEmptyName}, // dots
            {"||", "2 40 |3 80 ", "11", "3 80 ||"}};                                                    // empty name
        for (const auto &[before, entries, placed, after] : cases) {
            int32_t niveaux[4] = {};
            double temps[4] = {};
            QString noms[4];
            const QStringList start = rowsOf(before);
            for (int row = 1; row <= 3; ++row) std::tie(niveaux[row], temps[row], noms[row]) = rowOf(start[row - 1]);
            QString took;
            for (const QString &entry : entries.split(u'|')) {
                const auto [niveau, seconds, nom] = rowOf(entry);
                took += rankResult(niveaux, temps, noms, niveau, seconds, nom) ? u'1' : u'0';
            }
            QStringList rows;
            for (int row = 1; row <= 3; ++row) rows << shown({niveaux[row], temps[row], noms[row]});
            QCOMPARE(took + QLatin1Char(' ') + rows.join(u'|'), placed + QLatin1Char(' ') + rowsOf(after).join(u'|'));
        }
    }

    void savedGamesOfTheWorkedExamples()
    {
        QCOMPARE(formatSavedGame(blankSavedGame()),
                 hex("22 2E2E2E2E2E2E2E2E2E2E2E2E2E2E2E2E 22 0D0A 300D0A 300D0A 300D0A 300D0A 300D0A 300D0A"));
        QCOMPARE(formatSavedGame({QStringLiteral("JOUEUR"), {0, 7, 999, 0}, {0, 1234, 5000, 0}}),
                 hex("22 4A4F55455552 22 0D0A 37 0D0A 31323334 0D0A 393939 0D0A 35303030 0D0A 30 0D0A 30 0D0A"));

        // At the cap of time, with the largest level, the record reads back whole.
        const SavedGame cap{QStringLiteral("ÉLISE"), {0, INT32_MAX, 999, INT32_MAX}, {0, 356400, 356400, 356400}};
        QCOMPARE(formatSavedGame(parseSavedGame(formatSavedGame(cap)).value_or(SavedGame{})), formatSavedGame(cap));
    }

    void savedGamesThatAreShortOrGarbledDoNotLoad()
    {
        const QByteArray good = formatSavedGame(blankSavedGame());
        for (int cut = 0; cut < good.size() - 2; ++cut)
            QVERIFY2(!parseSavedGame(good.left(cut)), qPrintable(QString::number(cut)));
        for (const auto &[niveau, temps] : {std::pair{"1", "sept"}, {"-1", "0"}, {"1", "356401"}, {"1", "12.5"}})
            QVERIFY2(!parseSavedGame(QByteArray("\"A\"\r\n") + niveau + "\r\n" + temps + "\r\n0\r\n0\r\n0\r\n0\r\n"),
                     temps);
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
        for (const QString &made : {home->path() + QStringLiteral("/nouveau"), dataHome})
            QCOMPARE(QFile::permissions(made), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadUser
                                                   | QFile::WriteUser | QFile::ExeUser);
    }

    // A file cut short, or a gigabyte long, is kept beside and written anew from the rows it held.
    void aShortOrHugeFileIsRewrittenFromItsRows()
    {
        QDir().mkpath(data());
        const QByteArray twoRows = bestLine({4, 40, QStringLiteral("A")}) + bestLine({3, 30, QStringLiteral("B")});
        writeAll(bestPath(), twoRows + "\"00");
        InitDonnees();
        QCOMPARE(readAll(bestPath() + QStringLiteral(".1")), twoRows + "\"00");
        // The third row holds what stood where the name goes.
        QCOMPARE(readAll(bestPath()), twoRows + bestLine({0, 0, QStringLiteral("00")}) + kEmptyLine.repeated(6));
        QCOMPARE((std::pair{gBestNom1[3], gBestNom2[1]}), (std::pair{QStringLiteral("00"), kEmptyName}));

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
        writeAll(bestPath(), bestFile(numberedRows()));
        InitDonnees();
        QCOMPARE(QDir(data()).entryList(QDir::Files | QDir::Hidden, QDir::Name), kept);
        QCOMPARE(readAll(bestPath()), bestFile(numberedRows()));
        QCOMPARE((std::tuple{gBestNiveau1[2], gBestNom2[2], gBestTemps3[3]}), (std::tuple{1, QString("P4"), 80.0}));
    }

    void aDataFolderThatCannotBeReachedLeavesThePathEmpty()
    {
        writeAll(home->path() + QStringLiteral("/cerscore"), "not a folder");
        InitDonnees();
        QVERIFY(gCheminData.isEmpty());
        QCOMPARE(gBestNom1[1], QStringLiteral("stale")); // the tables were not reset
    }

    void aFullDiskFailsEveryWriteAndKeepsTheOldFiles()
    {
        InitDonnees();
        writeAll(path("suite"), kJoueur);
        gBestNom1[1] = QStringLiteral("NOUVEAU");
        play("suite", "UN NOM BIEN LONG", 1, 12345, 123456);
        {
            DiskFullAfter limit(20);
            QVERIFY(!EcritBest());
            QVERIFY(!rewriteSavedGame());
            QVERIFY(!CreePartie(files, QStringLiteral("nouvelle")));
        }
        QCOMPARE(readAll(bestPath()), kEmptyLine.repeated(9));
        QCOMPARE(readAll(path("suite")), kJoueur);
        QCOMPARE(QDir(data()).entryList(QDir::Files | QDir::Hidden), QStringList({"mlbestTime.dat", "suite.sml"}));
    }

    void loadingTakesThePlayerAndOneGame()
    {
        writeAll(path("suite"), kJoueur);
        writeAll(path("main"), "\"Jo\tUEUR\x81\"\r\n7\r\n1234\r\n0\r\n0\r\n0\r\n0\r\n");
        play("suite", "AUTRE", 0, 0, 0);
        QVERIFY(ChargePartie(2));
        QCOMPARE(state(), (std::tuple{QString("JOUEUR"), 999, 5000.0}));
        QVERIFY(ChargePartie(3)); // never played in this file
        QCOMPARE(state(), (std::tuple{QString("JOUEUR"), 0, 0.0}));
        // Characters the files cannot give back are replaced; the case is the file's.
        gNomPartie = QStringLiteral("main");
        QVERIFY(ChargePartie(1));
        QCOMPARE(gNomJoueur, QStringLiteral("Jo UEUR"));
    }

    void aHugeSavedGameLoadsFromItsFirstLinesAndIsKeptBesideWhenRewritten()
    {
        writeAll(path("enorme"), kJoueur);
        QVERIFY(QFile::resize(path("enorme"), qint64(1) << 30));
        play("enorme", "", 1, 0, 0);
        {
            MemoryLimitAbove limit(256 << 20);
            QVERIFY(ChargePartie(1));
            QCOMPARE(gNiveau, 7);
            gNiveau = 8;
            QVERIFY(rewriteSavedGame());
        }
        QCOMPARE(readAll(path("enorme")), QByteArray(kJoueur).replace("\n7\r", "\n8\r"));
        QCOMPARE(QFileInfo(path("enorme") + QStringLiteral(".1")).size(), qint64(1) << 30);
    }

    // A file cut short, absent or garbled loads nothing and changes nothing; a garbled one is not rewritten.
    void aFailedLoadChangesNothing()
    {
        const QByteArray garbled = QByteArray(kJoueur).replace("1234", "12a4");
        writeAll(path("court"), kJoueur.left(20));
        writeAll(path("abime"), garbled);
        for (const char *nom : {"court", "absente", "abime"}) {
            play(nom, "ANNE", 3, 4, 77);
            QVERIFY(!ChargePartie(1));
            QCOMPARE(state(), (std::tuple{QString("ANNE"), 4, 77.0}));
        }
        QVERIFY(!rewriteSavedGame());
        QCOMPARE(readAll(path("abime")), garbled);
    }

    // A new name gets the blank record; an existing saved game is never touched, though another case
    // is another name here.
    void onlyANewNameMakesASavedGame()
    {
        QVERIFY(CreePartie(files, QStringLiteral("seize caractères")));
        QCOMPARE(readAll(path("seize caractères")), formatSavedGame(blankSavedGame()));
        QVERIFY(!CreePartie(files, QString()));
        writeAll(path("Zoe"), kJoueur);
        QVERIFY(!CreePartie(files, QStringLiteral("Zoe")));
        QVERIFY(CreePartie(files, QStringLiteral("zoe")));
        QCOMPARE(readAll(path("Zoe")), kJoueur);
    }

    void namesThatWouldLeaveTheFolderOrThatWindowsRefusesAreTurnedDown()
    {
        QDir(home->path()).mkdir(QStringLiteral("sous"));
        for (const char *nom : {"sous/x", "../dehors", "deux:points", "quoi?", "étoile*", "<a>", "a|b", "guillemet\"",
                                "barre\\", "CON", "nul", "com1", "Lpt9.txt", "AUX .x", "com¹", "tab\t"})
            QVERIFY2(!CreePartie(files, QString::fromUtf8(nom)), nom);
        QCOMPARE(QDir(home->path()).entryList(QDir::Files | QDir::Hidden) + QDir(home->path() + "/sous").entryList(),
                 QStringList({".", ".."}));
        QVERIFY(!QFile::exists(home->path() + QStringLiteral("/../dehors.sml")));
        // Dots stay in the folder, and the extension after them keeps Windows from stripping a last one.
        for (const char *nom : {"été 2026, n°1", "a..b", "fin.", "..", ".cachée", "CONSOLE", "nul1"}) {
            QVERIFY2(CreePartie(files, QString::fromUtf8(nom)), nom);
            QVERIFY2(QFile::exists(path(nom)), nom);
        }
    }

    // A rewrite keeps the other games of the file, and writes this one even when the file went meanwhile.
    void aRewriteKeepsTheOtherGames()
    {
        writeAll(path("suite"), kJoueur);
        for (const char *nom : {"suite", "disparue"}) {
            play(nom, "ÉLISE", 3, 12, 600);
            QVERIFY(rewriteSavedGame());
        }
        QCOMPARE(readAll(path("suite")), QByteArray("\"\xC9LISE\"\r\n7\r\n1234\r\n999\r\n5000\r\n12\r\n600\r\n"));
        QCOMPARE(readAll(path("disparue")), QByteArray("\"\xC9LISE\"\r\n0\r\n0\r\n0\r\n0\r\n12\r\n600\r\n"));
    }
};

QTEST_MAIN(TestRecordFormats)
#include "tst_record_formats.moc"

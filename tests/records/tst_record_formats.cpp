// The bytes of the best-times file and of saved games, the ranking of results, and what any bytes read back as.
#include "best_times_file.h"
#include "best_times_table.h"
#include "codepage.h"
#include "saved_game_file.h"

#include <QTest>

namespace {

QByteArray hex(const char *text) { return QByteArray::fromHex(QByteArray(text).replace(' ', "")); }

struct Table {
    int32_t niveaux[4] = {};
    double temps[4] = {};
    QString noms[4];

    Table(std::initializer_list<BestRow> rows)
    {
        int row = 1;
        for (const BestRow &r : rows) {
            niveaux[row] = r.niveau;
            temps[row] = r.temps;
            noms[row] = r.nom;
            ++row;
        }
    }
    bool enter(int32_t niveau, double tempsTotal, const QString &joueur)
    {
        return rankResult(niveaux, temps, noms, niveau, tempsTotal, joueur);
    }
    QString row(int r) const { return QStringLiteral("%1 %2 %3").arg(niveaux[r]).arg(temps[r]).arg(noms[r]); }
};

const BestRow kEmpty{0, 0, kEmptyName};

} // namespace

class TestRecordFormats : public QObject {
    Q_OBJECT

private slots:
    void bestLinesAreFixedFieldsInQuotes()
    {
        QCOMPARE(bestLine(kEmpty), hex("22 3030303030303030303030 2E2E2E2E2E2E2E2E2E2E2E2E2E2E2E2E 22 0D0A"));
        QCOMPARE(bestLine({12, 3725, QStringLiteral("JOUEUR")}),
                 hex("22 303132 3030303033373235 4A4F55455552 20202020202020202020 22 0D0A"));
        QCOMPARE(bestLine(kEmpty).size(), 31);
        // Too long for a field: leading digits and the name's tail are cut.
        QCOMPARE(bestText({1234, 123456789, QStringLiteral("ABCDEFGHIJKLMNOPQRST")}),
                 QStringLiteral("23423456789ABCDEFGHIJKLMNOP"));
        // An empty name is sixteen spaces.
        QCOMPARE(bestText({5, 60, QString()}), QStringLiteral("00500000060") + QString(16, QLatin1Char(' ')));
    }

    void accentedNamesUseTheWindowsCodePage()
    {
        QCOMPARE(toCodePage(QStringLiteral("ÉLOÏSE Œ€")), hex("C9 4C 4F CF 53 45 20 8C 80"));
        QCOMPARE(toCodePage(QStringLiteral("łö")), hex("3F F6"));
        QCOMPARE(fromCodePage(hex("C9 8C 80 9F")), QStringLiteral("ÉŒ€Ÿ"));
        // Every byte reads and writes back unchanged, the five the code page leaves undefined too.
        QByteArray all;
        for (int b = 0; b < 256; ++b) all.append(static_cast<char>(b));
        QCOMPARE(toCodePage(fromCodePage(all)), all);
    }

    void namesKeepOnlyWhatBothFilesHold()
    {
        // ß has no capital of one character and µ's is Greek; an accent may be typed as a mark of its own.
        const QList<std::pair<QString, QString>> typed = {
            {"  anne ", "ANNE"},
            {"a\",b", "A',B"},
            {QString(16, QChar(0xDF)), QString(16, QChar(0xDF))},
            {"µÿœ", "µŸŒ"},
            {"łé", "?É"},
            {"e\u0301t\u00E9", "ÉTÉ"},
            {"x\ty\r\nz\u0081", "X Y  Z"},
            {"\U0001F600!", "?!"},
        };
        for (const auto &[name, stored] : typed) {
            const QString player = playerName(name);
            QCOMPARE(player, stored);
            QVERIFY(player.size() <= name.size());
            QCOMPARE(fromCodePage(toCodePage(player)), player);
        }
        QCOMPARE(storableName(QStringLiteral("  Zoé\x7F\"")), QStringLiteral("Zoé '"));
        QCOMPARE(storableName(QStringLiteral("abcdefghijklmno pqrs")), QStringLiteral("abcdefghijklmno"));
    }

    void bestLinesReadBackAsWritten()
    {
        for (const BestRow &row : {kEmpty, BestRow{12, 3725, QStringLiteral("JOUEUR")},
                                   BestRow{99, 356400, QStringLiteral("ÉLISE")}, BestRow{3, 7, QString()}}) {
            const QList<BestRow> read = readBestRows(bestLine(row));
            QCOMPARE(read.size(), 1);
            QCOMPARE(read[0].niveau, row.niveau);
            QCOMPARE(read[0].temps, row.temps);
            QCOMPARE(read[0].nom, row.nom);
        }
    }

    void garbledBestLinesGiveWhatTheyStartWith()
    {
        const BestRow garbled = parseBestText(QStringLiteral("ab1xyz        tail  "));
        QCOMPARE(garbled.niveau, 0);
        QCOMPARE(garbled.temps, 0.0);
        QCOMPARE(garbled.nom, QStringLiteral("yz        tail"));
        const BestRow digits = parseBestText(QStringLiteral("7x 0000042zzzz"));
        QCOMPARE(digits.niveau, 7);
        QCOMPARE(digits.temps, 42.0);
        // Halves round to the even neighbour.
        QCOMPARE(parseBestText(QStringLiteral("2.5")).niveau, 2);
        QCOMPARE(parseBestText(QStringLiteral("3.5")).niveau, 4);
        // Values that could not be written back are brought within their fields.
        QCOMPARE(parseBestText(QStringLiteral("-5-0000081")).niveau, 0);
        QCOMPARE(parseBestText(QStringLiteral("200-0000081")).temps, 0.0);
        QCOMPARE(parseBestText(QStringLiteral("0010000012.5")).temps, 12.0);
    }

    void bestFilesReadAsFarAsTheyGo()
    {
        QByteArray file;
        for (int i = 0; i < 9; ++i) file += bestLine({i, 10.0 * i, QStringLiteral("P%1").arg(i)});
        QCOMPARE(readBestRows(file).size(), 9);
        QCOMPARE(readBestRows(file.left(31 * 4 + 10)).size(), 5);
        QCOMPARE(readBestRows(QByteArray()).size(), 0);
        // Bare line feeds, and text after a closing quote, are taken in their stride.
        QByteArray loose = file;
        loose.replace("\r\n", "\n").replace("\"\n", "\"junk\n");
        const QList<BestRow> rows = readBestRows(loose);
        QCOMPARE(rows.size(), 9);
        QCOMPARE(rows[8].nom, QStringLiteral("P8"));
        QCOMPARE(readBestRows(file + file).size(), 9);
    }

    void aBadLineCostsAtMostThatLine()
    {
        QByteArrayList lines;
        for (int i = 0; i < 9; ++i) lines << bestLine({i, 10.0 * i, QStringLiteral("P%1").arg(i)});
        // No closing quote, blank lines before a line, a time and a level never written.
        lines[1].remove(28, 1);
        lines[4].prepend("\r\n   \r\n");
        lines[6] = bestLine({6, 0, QStringLiteral("P6")}).replace("00000000", "99999999");
        lines[7] = bestLine({7, 70, QStringLiteral("P7")}).replace("007", "-07");
        const QList<BestRow> rows = readBestRows(lines.join());
        QCOMPARE(rows.size(), 9);
        for (int i = 0; i < 9; ++i) QCOMPARE(rows[i].nom, QStringLiteral("P%1").arg(i));
        QCOMPARE(rows[1].temps, 10.0);
        QCOMPARE(rows[2].niveau, 2);
        QCOMPARE(rows[6].temps, 356400.0);
        QCOMPARE(rows[7].niveau, 0);
        QCOMPARE(rows[8].temps, 80.0);
    }

    void rankingOfTheWorkedExample()
    {
        Table table{{12, 3725, QStringLiteral("ALPHA")}, {5, 900, QStringLiteral("BETA")}, kEmpty};
        QVERIFY(table.enter(5, 850, QStringLiteral("GAMMA")));
        QCOMPARE(table.row(1), QStringLiteral("12 3725 ALPHA"));
        QCOMPARE(table.row(2), QStringLiteral("5 850 GAMMA"));
        QCOMPARE(table.row(3), QStringLiteral("5 900 BETA"));
    }

    void rankingEdges()
    {
        // In a table of empty rows, level 0 in more than no time does not enter; level 1 does.
        Table empty{kEmpty, kEmpty, kEmpty};
        QVERIFY(!empty.enter(0, 12, QStringLiteral("ANNE")));
        QCOMPARE(empty.row(1), QStringLiteral("0 0 ................"));
        QVERIFY(empty.enter(1, 30, QStringLiteral("ANNE")));
        QCOMPARE(empty.row(1), QStringLiteral("1 30 ANNE"));
        QCOMPARE(empty.row(2), QStringLiteral("0 0 ................"));

        // Level 0 in no time ties with the empty rows, and a newcomer goes above a tie.
        Table zero{kEmpty, kEmpty, kEmpty};
        QVERIFY(zero.enter(0, 0, QStringLiteral("RAPIDE")));
        QCOMPARE(zero.row(1), QStringLiteral("0 0 RAPIDE"));

        // A tie with row 2 takes row 2 and pushes the old one down.
        Table tie{{9, 10, QStringLiteral("A")}, {5, 100, QStringLiteral("B")}, {4, 1, QStringLiteral("C")}};
        QVERIFY(tie.enter(5, 100, QStringLiteral("D")));
        QCOMPARE(tie.row(2), QStringLiteral("5 100 D"));
        QCOMPARE(tie.row(3), QStringLiteral("5 100 B"));

        // A player's own row takes the latest result even when it is worse, and drops below empty rows.
        Table own{{9, 10, QStringLiteral("A")}, kEmpty, kEmpty};
        QVERIFY(own.enter(0, 50, QStringLiteral("A")));
        QCOMPARE(own.row(1), QStringLiteral("0 0 ................"));
        QCOMPARE(own.row(2), QStringLiteral("0 0 ................"));
        QCOMPARE(own.row(3), QStringLiteral("0 50 A"));
    }

    void aFullTableOfBetterResultsStaysAsItIs()
    {
        Table full{{9, 10, QStringLiteral("A")}, {8, 10, QStringLiteral("B")}, {7, 10, QStringLiteral("C")}};
        QVERIFY(!full.enter(3, 10, QStringLiteral("D")));
        QCOMPARE(full.row(3), QStringLiteral("7 10 C"));
    }

    void sixteenDotsMatchEveryEmptyRowAndAnEmptyNamePlays()
    {
        Table table{{2, 5, QStringLiteral("A")}, kEmpty, kEmpty};
        QVERIFY(table.enter(1, 40, kEmptyName));
        QCOMPARE(table.row(2), QStringLiteral("1 40 ................"));
        QCOMPARE(table.row(3), QStringLiteral("1 40 ................"));

        Table anonymous{kEmpty, kEmpty, kEmpty};
        QVERIFY(anonymous.enter(2, 40, QString()));
        QCOMPARE(anonymous.noms[1], QString());
        QVERIFY(anonymous.enter(3, 80, QString())); // the same player
        QCOMPARE(anonymous.row(1), QStringLiteral("3 80 "));
        QCOMPARE(anonymous.row(2), QStringLiteral("0 0 ................"));
    }

    void savedGamesOfTheWorkedExamples()
    {
        QCOMPARE(formatSavedGame(blankSavedGame()),
                 hex("22 2E2E2E2E2E2E2E2E2E2E2E2E2E2E2E2E 22 0D0A 300D0A 300D0A 300D0A 300D0A 300D0A 300D0A"));
        QCOMPARE(formatSavedGame(blankSavedGame()).size(), 38);
        SavedGame joueur;
        joueur.joueur = QStringLiteral("JOUEUR");
        joueur.niveau[1] = 7;
        joueur.temps[1] = 1234;
        joueur.niveau[2] = 999;
        joueur.temps[2] = 5000;
        const QByteArray bytes = formatSavedGame(joueur);
        QCOMPARE(bytes, hex("22 4A4F55455552 22 0D0A 37 0D0A 31323334 0D0A 393939 0D0A 35303030 0D0A 30 0D0A 30 0D0A"));
        QCOMPARE(bytes.size(), 36);
        const std::optional<SavedGame> read = parseSavedGame(bytes);
        QVERIFY(read);
        QCOMPARE(read->joueur, QStringLiteral("JOUEUR"));
        QCOMPARE(read->niveau[2], 999);
        QCOMPARE(read->temps[1], 1234.0);

        // At the cap of time, with the largest level.
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
        QVERIFY(parseSavedGame(good));
        for (int cut = 0; cut < good.size() - 2; ++cut)
            QVERIFY2(!parseSavedGame(good.left(cut)), qPrintable(QString::number(cut)));
        QVERIFY(!parseSavedGame("\"A\"\r\n7\r\nsept\r\n0\r\n0\r\n0\r\n0\r\n"));
        QVERIFY(!parseSavedGame("\"A\"\r\n-1\r\n0\r\n0\r\n0\r\n0\r\n0\r\n"));
        QVERIFY(!parseSavedGame("\"A\"\r\n1\r\n356401\r\n0\r\n0\r\n0\r\n0\r\n"));
        QVERIFY(!parseSavedGame("\"A\"\r\n1\r\n12.5\r\n0\r\n0\r\n0\r\n0\r\n"));
        // A comma inside the quotes belongs to the name; a quote inside it ends the name.
        QCOMPARE(parseSavedGame("\"A, B\"\r\n1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n")->joueur, QStringLiteral("A, B"));
        QCOMPARE(parseSavedGame("\"A\"B\"\r\n1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n")->joueur, QStringLiteral("A"));
        QCOMPARE(parseSavedGame("\"\xC9VE\"\n1\n2\n3\n4\n5\n6")->joueur, QStringLiteral("ÉVE"));
    }
};

QTEST_APPLESS_MAIN(TestRecordFormats)
#include "tst_record_formats.moc"

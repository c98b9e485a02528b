// SPDX-License-Identifier: MIT
// Saved games on a real disk: loading, creating under a name, rewriting, and the names and faults
// that must never cost a saved game.
#include "disk_full.h"
#include "file_bytes.h"
#include "frmFond.h"
#include "memory_limit.h"
#include "modBase.h"
#include "saved_game_file.h"
#include "saved_games.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QByteArray kJoueur = "\"JOUEUR\"\r\n7\r\n1234\r\n999\r\n5000\r\n0\r\n0\r\n";

} // namespace

class TestSavedGames : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<frmFond> fond;

    QString path(const char *nom) const { return gCheminData + QString::fromUtf8(nom) + QStringLiteral(".sml"); }

private slots:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        fond = std::make_unique<frmFond>();
        gCheminData = folder->path() + QLatin1Char('/');
    }
    void cleanup() { fond.reset(); }

    void loadingTakesThePlayerAndOneGame()
    {
        writeAll(path("suite"), kJoueur);
        gNomPartie = QStringLiteral("suite");
        gNomJoueur = QStringLiteral("AUTRE");
        QVERIFY(ChargePartie(2));
        QCOMPARE((std::tuple{gNomJoueur, gNiveau, gTempsTotal}), (std::tuple{QString("JOUEUR"), 999, 5000.0}));
        QVERIFY(ChargePartie(3)); // never played in this file
        QCOMPARE((std::pair{gNiveau, gTempsTotal}), (std::pair{0, 0.0}));

        // Characters the files cannot give back are replaced; the case is the file's.
        writeAll(path("main"), "\"Jo\tUEUR\x81\"\r\n7\r\n1234\r\n0\r\n0\r\n0\r\n0\r\n");
        gNomPartie = QStringLiteral("main");
        QVERIFY(ChargePartie(1));
        QCOMPARE(gNomJoueur, QStringLiteral("Jo UEUR"));
    }

    void aHugeSavedGameLoadsFromItsFirstLinesAndIsKeptBesideWhenRewritten()
    {
        writeAll(path("enorme"), kJoueur);
        QVERIFY(QFile::resize(path("enorme"), qint64(1) << 30));
        gNomPartie = QStringLiteral("enorme");
        gJeu = 1;
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

    // A file cut short, garbled or absent loads nothing and changes nothing; a garbled one is not rewritten.
    void aFailedLoadChangesNothing()
    {
        const QByteArray garbled = QByteArray(kJoueur).replace("1234", "12a4");
        writeAll(path("court"), kJoueur.left(20));
        writeAll(path("abime"), garbled);
        for (const char *nom : {"court", "abime", "absente"}) {
            gNomPartie = QLatin1String(nom);
            gNomJoueur = QStringLiteral("ANNE");
            gNiveau = 4;
            gTempsTotal = 77;
            QVERIFY(!ChargePartie(1));
            QCOMPARE((std::tuple{gNomJoueur, gNiveau, gTempsTotal}), (std::tuple{QString("ANNE"), 4, 77.0}));
        }
        gNomPartie = QStringLiteral("abime");
        gJeu = 3;
        QVERIFY(!rewriteSavedGame());
        QCOMPARE(readAll(path("abime")), garbled);
    }

    // A new name gets the blank record; an existing saved game is never touched, though another case
    // is another name here.
    void onlyANewNameMakesASavedGame()
    {
        QVERIFY(CreePartie(fond->filList, QStringLiteral("seize caractères")));
        QCOMPARE(readAll(path("seize caractères")), formatSavedGame(blankSavedGame()));
        QVERIFY(!CreePartie(fond->filList, QString()));
        writeAll(path("Zoe"), kJoueur);
        QVERIFY(!CreePartie(fond->filList, QStringLiteral("Zoe")));
        QVERIFY(CreePartie(fond->filList, QStringLiteral("zoe")));
        QCOMPARE(readAll(path("Zoe")), kJoueur);
    }

    void namesThatWouldLeaveTheFolderOrThatWindowsRefusesAreTurnedDown()
    {
        QDir(folder->path()).mkdir(QStringLiteral("sous"));
        for (const char *nom : {"sous/x", "../dehors", "deux:points", "quoi?", "étoile*", "<a>", "a|b", "guillemet\"",
                                "barre\\", "CON", "nul", "com1", "Lpt9.txt", "AUX .x", "com¹", "tab\t"}) {
            QVERIFY2(!CreePartie(fond->filList, QString::fromUtf8(nom)), nom);
        }
        QCOMPARE(QDir(folder->path()).entryList(QDir::Files | QDir::Hidden).size(), 0);
        QCOMPARE(QDir(folder->path() + QStringLiteral("/sous")).entryList(QDir::Files).size(), 0);
        QVERIFY(!QFile::exists(folder->path() + QStringLiteral("/../dehors.sml")));
        // Dots stay in the folder, and the extension after them keeps Windows from stripping a last one.
        for (const char *nom : {"été 2026, n°1", "a..b", "fin.", "..", ".cachée", "CONSOLE", "nul1"}) {
            QVERIFY2(CreePartie(fond->filList, QString::fromUtf8(nom)), nom);
            QVERIFY2(QFile::exists(path(nom)), nom);
        }
    }

    // A rewrite keeps the other games of the file, and writes this one even when the file went meanwhile.
    void aRewriteKeepsTheOtherGames()
    {
        writeAll(path("suite"), kJoueur);
        gNomJoueur = QStringLiteral("ÉLISE");
        gJeu = 3;
        gNiveau = 12;
        gTempsTotal = 600;
        for (const char *nom : {"suite", "disparue"}) {
            gNomPartie = QLatin1String(nom);
            QVERIFY(rewriteSavedGame());
        }
        QCOMPARE(readAll(path("suite")), QByteArray("\"\xC9LISE\"\r\n7\r\n1234\r\n999\r\n5000\r\n12\r\n600\r\n"));
        QCOMPARE(readAll(path("disparue")), QByteArray("\"\xC9LISE\"\r\n0\r\n0\r\n0\r\n0\r\n12\r\n600\r\n"));
    }

    void aFullDiskCostsNoSavedGame()
    {
        writeAll(path("suite"), kJoueur);
        gNomPartie = QStringLiteral("suite");
        gNomJoueur = QStringLiteral("UN NOM BIEN LONG");
        gJeu = 1;
        gNiveau = 12345;
        gTempsTotal = 123456;
        {
            DiskFullAfter limit(20);
            QVERIFY(!rewriteSavedGame());
            QVERIFY(!CreePartie(fond->filList, QStringLiteral("nouvelle")));
        }
        QCOMPARE(readAll(path("suite")), kJoueur);
        QVERIFY(!QFile::exists(path("nouvelle")));
        QCOMPARE(QDir(folder->path()).entryList(QDir::Files | QDir::Hidden), QStringList({"suite.sml"}));
        // Into a folder removed meanwhile, both fail and the program goes on.
        gCheminData = folder->path() + QStringLiteral("/parti/");
        QVERIFY(!rewriteSavedGame());
        QVERIFY(!CreePartie(fond->filList, QStringLiteral("nouvelle")));
    }

};

QTEST_MAIN(TestSavedGames)
#include "tst_saved_games.moc"

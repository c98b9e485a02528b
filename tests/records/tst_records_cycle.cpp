// SPDX-License-Identifier: MIT
// The whole cycle of the records at the real window: play, rank, save, quit, start again, load,
// and the bytes of the best-times file and of the saved game at each step.
#include "best_times_bytes.h"
#include "cue_names.h"
#include "frmFile.h"
#include "play_session.h"

namespace {

// Placement orders that solve levels 0 and 1 of Jeu 1, as lower-board cells.
const QList<QPoint> kLevel0 = {{3, 4}, {3, 3}, {3, 0}, {3, 1}, {3, 2}};
const QList<QPoint> kLevel1 = {{3, 2}, {4, 2}, {5, 2}, {3, 3}, {3, 4}, {3, 1}, {3, 0}, {2, 2}, {1, 2}};

} // namespace

class TestRecordsCycle : public QObject {
    Q_OBJECT

    PlaySession s;

    QString partie() const { return gCheminData + QStringLiteral("ma partie.sml"); }
    static auto state() { return std::tuple{gJeu, gNiveau, gTempsTotal, gNomJoueur}; }

    // Plays a level of Jeu 1 in the given number of seconds of the clock.
    void winLevel(const QList<QPoint> &cells, int seconds)
    {
        s.tick(seconds);
        for (const QPoint &cell : cells)
            PlaySession::press(s.fond->pctEcran1, Qt::LeftButton, QPoint(54 * cell.x() + 27, 278 + 54 * cell.y() + 27));
    }

    // Starts the program again; the clock then ticks only when the test says so.
    void startProgram(bool fresh)
    {
        fresh ? s.start() : s.restart();
        s.stopClock();
        PlaySession::keepLevels(1, {0, 1, 0});
    }

    // Answers the chooser by marking the name at the given row and loading it.
    static ModalAction chooseRow(int row, QStringList *shown)
    {
        return [row, shown](QWidget *dialog) {
            auto *chooser = qobject_cast<frmFile *>(dialog);
            QVERIFY(chooser);
            shown->clear();
            for (ClickLabel *label : chooser->labF) *shown << label->text();
            QTest::mouseClick(chooser->labF[row], Qt::LeftButton);
            QTest::mouseClick(chooser->reponse[0], Qt::LeftButton);
        };
    }

private slots:
    void playSaveQuitLoadAndFinish()
    {
        // A first run: the data folder and a best-times file of empty rows.
        startProgram(true);
        QCOMPARE(s.bestTimes(), timesFile());

        // A new game; with no saved game on disk the name is asked at once.
        s.startGame(1, QStringLiteral("anne"));
        winLevel(kLevel0, 3); // level 0 in 3 s scores below the empty rows: no place, no write
        QCOMPARE(s.bestTimes(), timesFile());
        winLevel(kLevel1, 5);
        QCOMPARE(state(), (std::tuple{1, 2, 8.0, QString("ANNE")}));
        QCOMPARE(s.bestTimes(), timesFile(1, {timesLine(1, 8, "ANNE")}));
        QCOMPARE(s.fond->tambour.played.count(QStringLiteral("marel001.wav")), 1);

        // Abandon with a save under a name; the seconds of the level in play are not kept.
        s.tick();
        answerInTurn({s.reply(QStringLiteral("Abandonner")),
                      s.reply(QStringLiteral("Valider"), QStringLiteral("  ma partie "))});
        s.clickMenu(3);
        QCOMPARE((std::pair{gJeu, gNomPartie}), (std::pair{0, QString()}));
        QCOMPARE(s.lastMessage, QStringLiteral("Vous pouvez sauver votre partie,\ndonnez-lui un nom."));
        QCOMPARE(readAll(partie()), QByteArray("\"ANNE\"\r\n2\r\n8\r\n0\r\n0\r\n0\r\n0\r\n"));

        // Quit, and start again: the tables come back from the file.
        s.answer(QStringLiteral("Oui"));
        QTimer::singleShot(0, [this] { s.clickMenu(6); });
        QCOMPARE(QCoreApplication::exec(), 0);
        startProgram(false);
        QCOMPARE((std::pair{gBestNiveau1[1], gBestNom1[1]}), (std::pair{1, QString("ANNE")}));

        // "Charger": the chooser lists the saved game, and play goes on at level 2 with 8 seconds.
        QStringList shown;
        answerInTurn({s.reply(QStringLiteral("Charger")), chooseRow(0, &shown)});
        gNomJoueur = QStringLiteral("QUELQU'UN");
        s.fond->tambour.played.clear();
        s.clickMenu(0);
        // The question opens and is answered, the chooser opens, a name is marked and loaded, the level shows.
        QCOMPARE(s.fond->tambour.played, cues("008 009 008 009 009 002"));
        QCOMPARE(s.lastMessage,
                 QStringLiteral("Jeu 1\nVous pouvez lancer une nouvelle partie ou charger une partie enregistrée."));
        QCOMPARE(shown, QStringList({"ma partie", "", "", "", ""}));
        QCOMPARE(state(), (std::tuple{1, 2, 8.0, QString("ANNE")}));
        QCOMPARE((std::tuple{gNomPartie, s.fond->labNiveau->text(), gASauver}),
                 (std::tuple{QString("ma partie"), QString("002"), false}));

        // The last level: the player's row takes the new result, and the save stores 999.
        QString closing;
        answerInTurn({[&closing, this](QWidget *dialog) {
                          s.reply(QStringLiteral("Fermer"))(dialog);
                          closing = s.lastMessage;
                      },
                      s.reply(QStringLiteral("Oui"))});
        winLevel(kLevel0, 4);
        QCOMPARE(gJeu, 0);
        QCOMPARE(closing, QStringLiteral("Félicitations ANNE\nVous venez de terminer\nles 3 niveaux du jeu 1"));
        QCOMPARE(s.lastMessage, QStringLiteral("Voulez-vous sauver la partie :\nma partie"));
        QCOMPARE(readAll(partie()), QByteArray("\"ANNE\"\r\n999\r\n12\r\n0\r\n0\r\n0\r\n0\r\n"));
        QCOMPARE(s.bestTimes(), timesFile(1, {timesLine(2, 12, "ANNE")}));

        // Loading a finished game gives the message and no board.
        answerInTurn({s.reply(QStringLiteral("Charger")), chooseRow(0, &shown), s.reply(QStringLiteral("Fermer"))});
        s.clickMenu(0);
        QCOMPARE(s.lastMessage, QStringLiteral("Vous avez terminé le jeu 1 dans cette partie...\nFélicitations"));
        QCOMPARE(gJeu, 0);
        QVERIFY(!s.fond->pctEcran1->isVisible());
        QCOMPARE(readAll(partie()), QByteArray("\"ANNE\"\r\n999\r\n12\r\n0\r\n0\r\n0\r\n0\r\n"));
    }

    void declinedLoadsAndSavesChangeNothing()
    {
        startProgram(true);
        writeAll(gCheminData + QStringLiteral("abîmée.sml"), "\"ZOE\"\r\n1\r\n");
        writeAll(partie(), "\"ZOE\"\r\n1\r\n40\r\n0\r\n0\r\n0\r\n0\r\n");
        std::tie(gNomJoueur, gNiveau, gTempsTotal) = std::tuple{QStringLiteral("ANNE"), 0, 0.0};

        // "Annuler" at the launch question: nothing changes, not even the menu art.
        const QImage idle = s.fond->image.copy();
        s.answer(QStringLiteral("Annuler"));
        s.clickMenu(0);
        QVERIFY(gJeu == 0 && s.fond->image == idle && s.fond->isEnabled());

        // A chooser closed with "Annuler" goes back to idle.
        answerInTurn({s.reply(QStringLiteral("Charger")), [](QWidget *dialog) {
                          QTest::mouseClick(qobject_cast<frmFile *>(dialog)->reponse[1], Qt::LeftButton);
                      }});
        s.clickMenu(1);
        QVERIFY(gJeu == 0 && gNbNiveaux == 100 && s.fond->image == idle);

        // A saved game cut short does not load: a message, and the record as it was.
        QStringList shown;
        answerInTurn({s.reply(QStringLiteral("Charger")), chooseRow(0, &shown), s.reply(QStringLiteral("Fermer"))});
        s.clickMenu(0);
        QCOMPARE(shown.first(), QStringLiteral("abîmée"));
        QCOMPARE(s.lastMessage, QStringLiteral("Impossible de charger la partie :\nabîmée"));
        QCOMPARE(state(), (std::tuple{0, 0, 0.0, QString("ANNE")}));
        QVERIFY(gNomPartie.isEmpty() && s.fond->isEnabled());

        // A loaded game abandoned before any win offers nothing; after a win, "Non" keeps the file as it was.
        answerInTurn({s.reply(QStringLiteral("Charger")), chooseRow(1, &shown)});
        s.clickMenu(0);
        QCOMPARE(state(), (std::tuple{1, 1, 40.0, QString("ZOE")}));
        winLevel(kLevel1, 2);
        QCOMPARE(gNiveau, 2);
        answerInTurn({s.reply(QStringLiteral("Abandonner")), s.reply(QStringLiteral("Non"))});
        s.clickMenu(3);
        QCOMPARE(s.lastMessage, QStringLiteral("Voulez-vous sauver la partie :\nma partie"));
        QCOMPARE(readAll(partie()), QByteArray("\"ZOE\"\r\n1\r\n40\r\n0\r\n0\r\n0\r\n0\r\n"));
        QCOMPARE(gJeu, 0);
    }
};

QTEST_MAIN(TestRecordsCycle)
#include "tst_records_cycle.moc"

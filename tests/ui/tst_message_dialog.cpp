// SPDX-License-Identifier: MIT
// The message dialog answered by clicks on its labels, as a player answers it.
#include "frmMess.h"
#include "label_text.h"
#include "modal_answer.h"
#include "started_window.h"

class TestMessageDialog : public QObject {
    Q_OBJECT

    std::unique_ptr<frmFond> fond;

private slots:
    void init()
    {
        fond = startedWindow();
        QVERIFY(fond);
    }
    void cleanup() { fond.reset(); }

    // The answer is the caption clicked, or the box's text whichever caption is clicked; only the
    // captions given are shown, each at the top of its label, and the pictures, Escape and Enter
    // give no answer.
    void answersByTheClickedCaption_data()
    {
        QTest::addColumn<QString>("message");
        QTest::addColumn<QStringList>("captions");
        QTest::addColumn<bool>("boite");
        QTest::addColumn<QString>("typed"); // replaces the proposed name in the box when not empty
        QTest::addColumn<int>("clicked");
        QTest::addColumn<QString>("answer");
        QTest::newRow("one") << "Bravo" << QStringList{"Fermer"} << false << "" << 0 << "Fermer";
        QTest::newRow("two") << "Voulez-vous vraiment quitter le programme ?" << QStringList{"Oui", "Non"} << false
                             << "" << 1 << "Non";
        QTest::newRow("three, lines") << "Jeu 2\r\nVous pouvez lancer une nouvelle partie ou charger une partie "
                                         "enregistrée."
                                      << QStringList{"Lancer", "Charger", "Annuler"} << false << "" << 2 << "Annuler";
        QTest::newRow("box, 16 characters at most") << "Entrez votre nom de joueur" << QStringList{"Valider", "Annuler"}
                                                    << true << "ANNE marie-claire du bois" << 1 << "ANNE marie-clair";
        QTest::newRow("box proposed") << "Nom" << QStringList{"Valider"} << true << "" << 0 << "PAUL";
        QTest::newRow("box cleared") << "Nom" << QStringList{"Valider"} << true << " " << 0 << "";
    }
    void answersByTheClickedCaption()
    {
        QFETCH(QString, message);
        QFETCH(QStringList, captions);
        QFETCH(bool, boite);
        QFETCH(QString, typed);
        QFETCH(int, clicked);
        QFETCH(QString, answer);
        fond->setEnabled(false); // as when a game asks: the dialog takes clicks all the same
        QStringList faults;
        whenModal([&](QWidget *dialog) {
            auto *m = qobject_cast<frmMess *>(dialog);
            QCOMPARE(m->labMess->text().split(QLatin1Char('\n')).first(),
                     message.section(QStringLiteral("\r\n"), 0, 0));
            QCOMPARE(m->txtReponse->isVisible(), boite);
            for (int i = 0; i < 3; ++i) {
                QCOMPARE(m->reponse[i]->isVisible(), i < captions.size());
                if (i > 0) QCOMPARE(m->imgB[i]->isVisible(), i < captions.size());
                if (i < captions.size()) faults << captionFault(m->reponse[i], Qt::black);
            }
            if (boite) QCOMPARE(m->txtReponse->text(), QStringLiteral("PAUL"));
            if (!typed.isEmpty()) {
                m->txtReponse->clear();
                QTest::keyClicks(m->txtReponse, typed.trimmed());
            }
            for (Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) QTest::keyClick(m, key);
            if (captions.size() == 3) QTest::mouseClick(m->imgB[2], Qt::LeftButton, {}, QPoint(90, 1));
            QVERIFY(m->isVisible());
            QTest::mouseClick(m->reponse[clicked], Qt::LeftButton);
        });
        const QString given = AfficheMess(fond->dialogOwner(), message, captions.value(0), captions.value(1),
                                          captions.value(2), boite, QStringLiteral("PAUL"));
        QCOMPARE(given, answer);
        QCOMPARE(faults, QStringList(captions.size(), QString()));
        QCOMPARE(fond->tambour.played, QStringList({"marel008.wav", "marel009.wav"}));
        QVERIFY(!QApplication::activeModalWidget());
    }
};

QTEST_MAIN(TestMessageDialog)
#include "tst_message_dialog.moc"

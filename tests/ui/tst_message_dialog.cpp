// The message dialog answered by clicks on its labels, as a player answers it.
#include "frmMess.h"
#include "label_text.h"
#include "modal_answer.h"
#include "started_window.h"

#include <QTest>

class TestMessageDialog : public QObject {
    Q_OBJECT

    std::unique_ptr<frmFond> fond;

    // Opens AfficheMess, lets the test look at the dialog and click, and gives the answer.
    QString ask(const QString &message, const QString &c0, const QString &c1, const QString &c2, bool boite,
                const QString &defaut, std::function<void(frmMess *)> player)
    {
        whenModal([player](QWidget *dialog) { player(qobject_cast<frmMess *>(dialog)); });
        return AfficheMess(fond->dialogOwner(), message, c0, c1, c2, boite, defaut);
    }

private slots:
    void init()
    {
        fond = startedWindow();
        QVERIFY(fond);
    }
    void cleanup() { fond.reset(); }

    void oneButtonSitsInTheTopPlace()
    {
        const QString answer =
            ask(QStringLiteral("Bravo"), QStringLiteral("Fermer"), {}, {}, false, {}, [](frmMess *m) {
                QVERIFY(m);
                QCOMPARE(m->size(), QSize(300, 300));
                QVERIFY(m->reponse[0]->isVisible());
                QCOMPARE(m->reponse[0]->geometry(), QRect(100, 189, 180, 27));
                QVERIFY(!m->reponse[1]->isVisible() && !m->reponse[2]->isVisible());
                QVERIFY(!m->imgB[1]->isVisible() && !m->imgB[2]->isVisible());
                QVERIFY(!m->txtReponse->isVisible());
                QTest::mouseClick(m->reponse[0], Qt::LeftButton);
            });
        QCOMPARE(answer, QStringLiteral("Fermer"));
        QCOMPARE(fond->tambour.played, QStringList({"marel008.wav", "marel009.wav"}));
    }

    void twoButtonsShowTheSecondPictureOnly()
    {
        const QString answer = ask(QStringLiteral("Voulez-vous vraiment quitter le programme ?"), QStringLiteral("Oui"),
                                   QStringLiteral("Non"), {}, false, {}, [](frmMess *m) {
                                       QVERIFY(m->imgB[1]->isVisible());
                                       QCOMPARE(m->imgB[1]->geometry(), QRect(100, 220, 180, 30));
                                       QVERIFY(!m->imgB[2]->isVisible());
                                       QVERIFY(!m->reponse[2]->isVisible());
                                       QTest::mouseClick(m->reponse[1], Qt::LeftButton);
                                   });
        QCOMPARE(answer, QStringLiteral("Non"));
    }

    void threeButtonsAnswerByTheirCaption()
    {
        const QString message = QStringLiteral("Jeu 2\r\nVous pouvez lancer une nouvelle partie ou charger une partie "
                                               "enregistrée.");
        const QString answer =
            ask(message, QStringLiteral("Lancer"), QStringLiteral("Charger"), QStringLiteral("Annuler"), false,
                QStringLiteral("ZOE"), [](frmMess *m) {
                    QCOMPARE(m->labMess->text().split(QLatin1Char('\n')).first(), QStringLiteral("Jeu 2"));
                    QVERIFY(m->imgB[2]->isVisible());
                    QCOMPARE(m->reponse[2]->geometry(), QRect(100, 257, 180, 27));
                    QVERIFY(!m->txtReponse->isVisible());
                    // Escape and Enter are not answers; the pictures of the buttons take no click.
                    QTest::keyClick(m, Qt::Key_Escape);
                    QTest::keyClick(m, Qt::Key_Return);
                    QTest::mouseClick(m->imgB[2], Qt::LeftButton, {}, QPoint(90, 1));
                    QVERIFY(m->isVisible());
                    QTest::mouseClick(m->reponse[2], Qt::LeftButton);
                });
        QCOMPARE(answer, QStringLiteral("Annuler"));
        QCOMPARE(fond->tambour.played, QStringList({"marel008.wav", "marel009.wav"}));
    }

    void theBoxGivesItsTextWhicheverButtonIsClicked()
    {
        const QString answer = ask(QStringLiteral("Entrez votre nom de joueur"), QStringLiteral("Valider"),
                                   QStringLiteral("Annuler"), {}, true, QStringLiteral("ANNE"), [](frmMess *m) {
                                       QVERIFY(m->txtReponse->isVisible());
                                       QCOMPARE(m->txtReponse->text(), QStringLiteral("ANNE"));
                                       m->txtReponse->setFocus();
                                       QTest::keyClick(m->txtReponse, Qt::Key_End);
                                       QTest::keyClicks(m->txtReponse, QStringLiteral(" marie-claire du bois"));
                                       QTest::mouseClick(m->reponse[1], Qt::LeftButton);
                                   });
        QCOMPARE(answer, QStringLiteral("ANNE marie-clair")); // the box holds 16 characters at most
        QCOMPARE(answer.size(), 16);
    }

    void aClearedBoxAnswersTheEmptyString()
    {
        const QString answer =
            ask(QStringLiteral("Nom"), QStringLiteral("Valider"), {}, {}, true, QStringLiteral("PAUL"), [](frmMess *m) {
                m->txtReponse->clear();
                QTest::mouseClick(m->reponse[0], Qt::LeftButton);
            });
        QVERIFY(answer.isEmpty());
    }

    void aDialogTakesClicksWhileTheMainWindowHasNoInput()
    {
        fond->setEnabled(false);
        const QString answer = ask(QStringLiteral("Que désirez-vous ?"), QStringLiteral("Abandonner"),
                                   QStringLiteral("Rejouer"), QStringLiteral("Annuler"), false, {},
                                   [](frmMess *m) { QTest::mouseClick(m->reponse[1], Qt::LeftButton); });
        QCOMPARE(answer, QStringLiteral("Rejouer"));
        QVERIFY(!QApplication::activeModalWidget());
    }

    void ctrlKeptThroughADialog()
    {
        QTest::keyPress(fond.get(), Qt::Key_Control);
        ask(QStringLiteral("?"), QStringLiteral("Oui"), {}, {}, false, {}, [](frmMess *m) {
            QTest::keyRelease(m, Qt::Key_Control);
            QTest::mouseClick(m->reponse[0], Qt::LeftButton);
        });
        QVERIFY(fond->mCtrl);
    }

    // Each caption stands centred across its label and at its top, as every centred label does.
    void captionsStandAtTheTopOfTheirLabels()
    {
        QStringList faults;
        ask(QStringLiteral("?"), QStringLiteral("Abandonner"), QStringLiteral("Rejouer"), QStringLiteral("Annuler"),
            false, {}, [&faults](frmMess *m) {
                for (ClickLabel *label : m->reponse) faults << captionFault(label, Qt::black);
                QTest::mouseClick(m->reponse[0], Qt::LeftButton);
            });
        QCOMPARE(faults, QStringList(3, QString()));
    }
};

QTEST_MAIN(TestMessageDialog)
#include "tst_message_dialog.moc"

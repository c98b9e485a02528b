// SPDX-License-Identifier: MIT
// Play control at the real window: each menu button in each state, the start of a game, the
// question of a running game ("Annuler", "Rejouer" with and without Ctrl, "Abandonner") and quitting.
#include "cue_names.h"
#include "first_moment.h"
#include "frmBest.h"
#include "play_session.h"
#include "system_input.h"
#include "window_states.h"

#include <QDir>
#include <QTemporaryDir>

class TestPlayControl : public QObject {
    Q_OBJECT

    QTemporaryDir desktop; // no help viewer registered here
    PlaySession s;

private slots:
    void initTestCase()
    {
        for (const char *variable : {"XDG_CONFIG_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_DIRS"})
            qputenv(variable, desktop.path().toUtf8());
    }

    void init()
    {
        s.start();
        gNomJoueur.clear();
    }
    void cleanup() { s.fond.reset(); }

    // At idle, the game's button and help with no viewer are silent; button 6 and a close request from
    // the system ask the quit question, where "Non" changes nothing.
    void idleButtonsAndTheQuitQuestion()
    {
        s.clickMenu(3);
        s.clickMenu(5);
        QVERIFY(s.played().isEmpty());
        s.answer(QStringLiteral("Non"));
        s.clickMenu(6);
        s.answer(QStringLiteral("Non"));
        askToClose(s.fond.get());
        QTRY_COMPARE(s.played(), cues("008 009 008 009"));
        QCOMPARE(s.lastMessage, QStringLiteral("Voulez-vous vraiment quitter le programme ?"));
        QCOMPARE(gJeu, 0);
        QVERIFY(s.fond->isVisible());
    }

    // At idle and during a game, with the board hidden and the clock stopped while the screen is up.
    void bestTimesOpenInEveryStateWithTheClockStopped()
    {
        for (int game : {0, 2}) {
            if (game) s.startGame(game, QStringLiteral("eve"));
            s.played().clear();
            whenModal([this](QWidget *dialog) {
                verifyScreensShown(*s.fond, 0);
                QVERIFY(!s.fond->myTimer.isActive());
                if (auto *best = qobject_cast<frmBest *>(dialog)) QTest::mouseClick(best->Image1, Qt::LeftButton);
            });
            s.clickMenu(4);
            QCOMPARE(s.played(), cues("008 009"));
            QCOMPARE(s.fond->myTimer.isActive(), game != 0);
        }
        QVERIFY(s.fond->pctEcran2->isVisible());
    }

    void startingAGameAsksTheNameWithInputOff()
    {
        PlaySession::keepLevels(2, {0, 1, 13});
        bool checked = false;
        whenModal([this, &checked](QWidget *dialog) {
            auto *mess = qobject_cast<frmMess *>(dialog);
            QVERIFY(!s.fond->isEnabled());
            QCOMPARE(mess->labMess->text(), QStringLiteral("Entrez votre nom de joueur"));
            QVERIFY(menuShowsIdleArt(*s.fond, false)); // already the art of a running game
            // A click on the main window now is lost.
            QTest::mouseClick(s.fond->imgMenu[0], Qt::LeftButton);
            mess->txtReponse->setText(QStringLiteral("  zoé la  "));
            QTest::mouseClick(mess->reponse[0], Qt::LeftButton);
            checked = true;
        });
        s.clickMenu(1);
        QVERIFY(checked);
        verifyPlaying(*s.fond, 2, 0, QString());
        QCOMPARE(gNomJoueur, QStringLiteral("ZOÉ LA"));
        QCOMPARE(std::tuple(gNbNiveaux, gTempsTotal, gASauver), std::tuple(3, 0.0, false));
        QCOMPARE(s.fond->tambour.played, cues("008 009 002"));
    }

    void anEmptyNameIsAcceptedAndTheLastNameIsOffered()
    {
        s.startGame(1, QString());
        QVERIFY(gJeu == 1 && gNomJoueur.isEmpty());
        gASauver = true; // a level won: the empty name alone keeps the save offer away
        s.answer(QStringLiteral("Abandonner"));
        s.fond->tambour.played.clear();
        s.clickMenu(3);
        QCOMPARE(s.lastMessage, QStringLiteral("Que désirez-vous ?"));
        QCOMPARE(s.fond->tambour.played, cues("008 009"));
        s.startGame(3, QStringLiteral("paul"));
        s.answer(QStringLiteral("Abandonner"));
        s.clickMenu(3);
        QString offered;
        whenModal([this, &offered](QWidget *dialog) {
            offered = qobject_cast<frmMess *>(dialog)->txtReponse->text();
            s.reply(QStringLiteral("Valider"))(dialog);
        });
        s.clickMenu(0);
        QCOMPARE(offered, QStringLiteral("PAUL"));
    }

    void annulerResumesTheSameBoardAndClock()
    {
        s.startGame(2, QStringLiteral("eve"));
        PlaySession::press(s.fond->pctEcran2, Qt::LeftButton, QPoint(10, 10));
        const QImage before = s.fond->pctEcran2->image.copy();
        gTempsNiveau = 41;
        whenModal([this](QWidget *dialog) {
            verifyScreensShown(*s.fond, 0);
            QVERIFY(!s.fond->myTimer.isActive() && s.fond->labTemps->isVisible() && s.fond->labNiveau->isVisible());
            s.reply(QStringLiteral("Annuler"))(dialog);
        });
        s.clickMenu(3);
        QCOMPARE(s.fond->pctEcran2->image, before);
        s.fond->myTimer_Timer();
        verifyPlaying(*s.fond, 2, 0, QStringLiteral(" 42"));
    }

    void rejouerReplaysTheLevelAndCtrlPassesIt()
    {
        PlaySession::keepLevels(1, {0, 1, 2});
        s.startGame(1, QStringLiteral("eve"));
        gTempsTotal = 77;
        gASauver = true;
        PlaySession::press(s.fond->pctEcran1, Qt::LeftButton, QPoint(3 * 54 + 5, 278 + 4 * 54 + 5));
        gTempsNiveau = 12;
        s.answer(QStringLiteral("Rejouer"));
        s.clickMenu(3);
        verifyPlaying(*s.fond, 1, 0, QString());
        QCOMPARE(std::tuple(s.fond->tiles.iCoup1, gTempsNiveau, gTempsTotal, gASauver),
                 std::tuple(-1, 0.0, 77.0, true));

        // Ctrl held from before the click on the button; its release in the dialog does not count.
        for (int expected : {1, 2, 2}) {
            QTest::keyPress(s.fond.get(), Qt::Key_Control);
            whenModal([this](QWidget *dialog) {
                QTest::keyRelease(dialog, Qt::Key_Control);
                s.reply(QStringLiteral("Rejouer"))(dialog);
            });
            s.clickMenu(3);
            QCOMPARE(gNiveau, expected);
            QVERIFY(s.fond->mCtrl);
            QTest::keyRelease(s.fond.get(), Qt::Key_Control);
        }
    }

    // While a game runs, buttons 0, 1, 2 and 6 and a close request are silent and help leaves the game
    // as it is; under a dialog a close request does nothing; "Abandonner" goes back to idle, where a
    // close request answered "Oui" ends the program.
    void runningButtonsAbandonnerAndQuit()
    {
        s.startGame(3, QStringLiteral("eve"));
        s.played().clear();
        for (int button : {0, 1, 2, 6, 5}) s.clickMenu(button);
        askToClose(s.fond.get());
        QVERIFY(s.played().isEmpty());
        QCOMPARE(gJeu, 3);
        QVERIFY(s.fond->myTimer.isActive() && s.fond->isVisible());
        whenModal([this](QWidget *dialog) {
            askToClose(s.fond.get());
            QCOMPARE(QApplication::activeModalWidget(), dialog);
            s.reply(QStringLiteral("Annuler"))(dialog);
        });
        s.clickMenu(3);
        QCOMPARE(s.played(), cues("008 009"));
        QCOMPARE(gJeu, 3);
        gNomPartie = QStringLiteral("partie");
        s.answer(QStringLiteral("Abandonner"));
        s.clickMenu(3);
        verifyIdle(*s.fond);
        QCOMPARE(gNomJoueur, QStringLiteral("EVE"));
        QTimer::singleShot(0, [this] {
            s.answer(QStringLiteral("Oui"));
            askToClose(s.fond.get());
        });
        QCOMPARE(QCoreApplication::exec(), 0);
    }

    // A press made while input is off is lost with its release, even when the button comes up after
    // input is back on: here on button 4 in the pause after a won level, and the best times stay shut.
    void aPressInThePauseIsLostWithItsRelease()
    {
        if (!underX()) QSKIP("only a real window system keeps a button down across the pause");
        s.startOn(2, {0, 1});
        PlaySession::press(s.fond->pctEcran2, Qt::LeftButton, {3 * 60 + 30, 4 * 60 + 30});
        Probe pause([this] { return !s.fond->isEnabled(); },
                    [this] {
                        xdotool(pointerTo(s.fond->imgMenu[4], {21, 21}) << QStringLiteral("mousedown") << "1");
                    });
        PlaySession::press(s.fond->pctEcran2, Qt::LeftButton, {4 * 60 + 30, 4 * 60 + 30});
        QVERIFY(pause.fired);
        QCOMPARE(gNiveau, 1);
        QTimer closer;
        closer.callOnTimeout([] {
            if (auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget())) dialog->done(0);
        });
        closer.start(10);
        xdotool({QStringLiteral("mouseup"), QStringLiteral("1")});
        QTest::qWait(100);
        QCOMPARE(s.played(), cues("010x2 001 002"));
    }
};

QTEST_MAIN(TestPlayControl)
#include "tst_play_control.moc"

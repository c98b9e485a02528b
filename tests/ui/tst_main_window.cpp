// SPDX-License-Identifier: MIT
// The main window driven as a player would: the idle window, the menu art, the screens, the drag,
// the Ctrl key and the clock.
#include "board_oracle.h"
#include "label_text.h"
#include "started_window.h"
#include "window_states.h"

#include <QScreen>

class TestMainWindow : public QObject {
    Q_OBJECT

    std::unique_ptr<frmFond> fond;

private slots:
    void init()
    {
        fond = startedWindow();
        QVERIFY(fond);
    }
    void cleanup() { fond.reset(); }

    void startsIdleCentredWithTheCatalogueShown()
    {
        QCOMPARE(fond->size(), QSize(600, 600));
        QCOMPARE(fond->frameGeometry().center(), fond->screen()->availableGeometry().center());
        QVERIFY(fond->Picture1->isVisible() && !fond->pctPion1->isVisible() && !fond->pctMenu->isVisible());
        verifyIdle(*fond);
        fond->AfficheMenu(1);
        QVERIFY(menuShowsIdleArt(*fond, false));
    }

    // Each screen, once prepared, is the only one shown and shows the background behind it.
    void aPreparedScreenLooksLikeTheWindowBehindIt()
    {
        const std::tuple<void (frmFond::*)(), Surface * frmFond::*, QRect> cases[] = {
            {&frmFond::PrepareEcran1, &frmFond::pctEcran1, QRect(128, 26, 432, 548)},
            {&frmFond::PrepareEcran2, &frmFond::pctEcran2, QRect(104, 30, 480, 540)},
            {&frmFond::PrepareEcran3, &frmFond::pctEcran3, QRect(110, 66, 468, 468)}};
        for (int game = 1; game <= 3; ++game) {
            const auto &[prepare, screen, place] = cases[game - 1];
            (fond.get()->*prepare)();
            verifyScreensShown(*fond, game);
            QCOMPARE(screenFault(*fond, fond.get()->*screen, place, backgroundUnder(*fond, place)), QString());
        }
    }

    // Past the strip the drag goes on while the button is down, whichever button it is.
    void theStripDragsTheWindowWithAnyButton()
    {
        for (Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
            fond->move(100, 100);
            const QPoint start = fond->pos();
            QTest::mousePress(fond->imgMove, button, {}, QPoint(50, 10));
            QTest::mouseMove(fond->imgMove, QPoint(55, 310));
            QCOMPARE(fond->pos(), start + QPoint(5, 300));
            QTest::mouseRelease(fond->imgMove, button, {}, QPoint(50, 10));
            fond->imgMove_MouseMove(Qt::NoButton, {}, 90, 90);
            QCOMPARE(fond->pos(), start + QPoint(5, 300));
        }
    }

    // Ctrl is held until any key is released, wherever the focus lies, and only while input is on.
    void ctrlIsHeldUntilAnyKeyIsReleased()
    {
        QWidget *const at[] = {fond.get(), fond->Picture1, fond->labTemps};
        // Each step: where (the window, the catalogue, the clock), a press or a release of a key, input on,
        // and whether Ctrl is held after it.
        const std::tuple<int, bool, Qt::Key, bool, bool> steps[] = {
            {0, true, Qt::Key_Control, true, true}, {0, true, Qt::Key_A, true, true},
            {0, false, Qt::Key_A, true, false},     {1, true, Qt::Key_Control, true, true},
            {2, false, Qt::Key_Shift, true, false}, {0, true, Qt::Key_Control, false, false},
            {0, true, Qt::Key_Control, true, true}, {0, false, Qt::Key_Control, false, true}};
        for (const auto &[where, press, key, on, held] : steps) {
            fond->setEnabled(on);
            press ? QTest::keyPress(at[where], key) : QTest::keyRelease(at[where], key);
            QCOMPARE(fond->mCtrl, held);
        }
    }

    void theClockCountsWholeSecondsWithALeadingBlank()
    {
        gTempsNiveau = 0;
        fond->labTemps->setText(QString());
        fond->myTimer.start();
        QTRY_COMPARE_WITH_TIMEOUT(fond->labTemps->text(), QStringLiteral(" 1"), 1600);
        QTRY_COMPARE_WITH_TIMEOUT(fond->labTemps->text(), QStringLiteral(" 2"), 1600);
        fond->myTimer.stop();
        gTempsNiveau = 3599;
        fond->myTimer_Timer();
        QCOMPARE(fond->labTemps->text(), QStringLiteral(" 3600"));
    }

    // Every count shows whole, up to that of 99 hours, whichever game's screen lies beside the clock.
    void theClockShowsTheWholeCount()
    {
        const QRect wide(36, 65, 120, 24); // room for any count
        fond->showClock();
        for (void (frmFond::*prepare)() : {&frmFond::PrepareEcran1, &frmFond::PrepareEcran2, &frmFond::PrepareEcran3}) {
            (fond.get()->*prepare)();
            fond->labTemps->setText(QString());
            const QImage behind = fond->grab(wide).toImage();
            for (const char *count : {" 1", " 356400"}) {
                fond->labTemps->setText(QLatin1String(count));
                const QImage wanted = withText(behind, fond->labTemps->font(), QColor(0xE0, 0xE0, 0xE0),
                                               Qt::AlignLeft | Qt::AlignTop, QLatin1String(count));
                QCOMPARE(firstWrongPixel(shownOn(*fond, wide), wanted), QString());
            }
        }
    }

    void aWonLevelsSecondsJoinTheTotalUpToTheCap()
    {
        const std::tuple<double, double, double> cases[] = {{10, 5, 15}, {356399, 2, 356400}, {356400, 7, 356400}};
        for (const auto &[total, level, expected] : cases) {
            gTempsTotal = total;
            gTempsNiveau = level;
            gASauver = false;
            fond->myTimer.start();
            fond->countWonLevelTime();
            QCOMPARE(std::tuple(gTempsTotal, gTempsNiveau, gASauver, fond->myTimer.isActive()),
                     std::tuple(expected, 0.0, true, false));
        }
    }
};

QTEST_MAIN(TestMainWindow)
#include "tst_main_window.moc"

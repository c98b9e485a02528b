// The main window driven as a player would: its layout, the menu art, the screens, the drag,
// the Ctrl key and the clock.
#include "label_text.h"
#include "modBase.h"
#include "sprite_pixels.h"
#include "started_window.h"
#include "system_input.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QTest>

namespace {

// The same pixels in a logical rectangle of one image and at a logical point of another.
bool sameRegion(const QImage &a, const QRect &inA, const QImage &b, const QPoint &inB)
{
    return a.copy(devicePixels(a, inA)) == b.copy(devicePixels(b, QRect(inB, inA.size())));
}

} // namespace

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

    void startsIdleWithThePictureShownAndTheRestHidden()
    {
        QCOMPARE(fond->size(), QSize(600, 600));
        QCOMPARE(fond->frameGeometry().center(), fond->screen()->availableGeometry().center());
        QVERIFY(fond->Picture1->isVisible());
        QCOMPARE(fond->Picture1->geometry(), QRect(0, 510, 90, 90));
        QCOMPARE(fond->Picture1->toolTip(), QStringLiteral("le catalogue Cerisaie Logiciels"));
        for (QWidget *hidden : {static_cast<QWidget *>(fond->labNiveau), static_cast<QWidget *>(fond->labTemps),
                                static_cast<QWidget *>(fond->pctEcran1), static_cast<QWidget *>(fond->pctEcran2),
                                static_cast<QWidget *>(fond->pctEcran3), static_cast<QWidget *>(fond->pctPion1),
                                static_cast<QWidget *>(fond->pctMenu)})
            QVERIFY(!hidden->isVisible());
        QVERIFY(!fond->myTimer.isActive());
        QCOMPARE(fond->imgMove->geometry(), QRect(0, 0, 601, 22));
        QCOMPARE(fond->imgMenu[3]->geometry(), QRect(37, 296, 43, 43));
        QCOMPARE(fond->imgMenu[6]->geometry(), QRect(9, 461, 43, 43));
        QCOMPARE(fond->imgMenu[5]->toolTip(), QStringLiteral("Cliquez sur ce bouton pour accéder à l'aide"));
        QVERIFY(sameRegion(fond->image, QRect(0, 130, 80, 375), fond->pctMenu->image, QPoint(0, 0)));
    }

    void menuArtFollowsTheState()
    {
        fond->AfficheMenu(1);
        QVERIFY(sameRegion(fond->image, QRect(0, 130, 80, 375), fond->pctMenu->image, QPoint(80, 0)));
        fond->AfficheMenu(0);
        QVERIFY(sameRegion(fond->image, QRect(0, 130, 80, 375), fond->pctMenu->image, QPoint(0, 0)));
        fond->AfficheMenu(10);
        QVERIFY(sameRegion(fond->image, QRect(0, 130, 80, 375), fond->pctMenu->image, QPoint(80, 0)));
    }

    void aPreparedScreenLooksLikeTheWindowBehindIt()
    {
        struct Case {
            void (frmFond::*prepare)();
            Surface *frmFond::*screen;
            QRect place;
        };
        const Case cases[] = {{&frmFond::PrepareEcran1, &frmFond::pctEcran1, QRect(128, 26, 432, 548)},
                              {&frmFond::PrepareEcran2, &frmFond::pctEcran2, QRect(104, 30, 480, 540)},
                              {&frmFond::PrepareEcran3, &frmFond::pctEcran3, QRect(110, 66, 468, 468)}};
        for (const Case &c : cases) {
            (fond.get()->*c.prepare)();
            Surface *screen = fond.get()->*c.screen;
            QVERIFY(screen->isVisible());
            QCOMPARE(screen->geometry(), c.place);
            QCOMPARE(screen->image.deviceIndependentSize(), QSizeF(c.place.size()));
            QVERIFY(sameRegion(screen->image, QRect(QPoint(0, 0), c.place.size()), fond->image, c.place.topLeft()));
            // Exactly one screen is visible: preparing one hides the other two.
            int visible = fond->pctEcran1->isVisible() + fond->pctEcran2->isVisible() + fond->pctEcran3->isVisible();
            QCOMPARE(visible, 1);
            // What shows on the screen is the background itself.
            const QImage shown = fond->grab(c.place).toImage().convertToFormat(QImage::Format_RGB32);
            QVERIFY(sameRegion(shown, QRect(QPoint(0, 0), c.place.size()), fond->image, c.place.topLeft()));
        }
    }

    void levelLabelShowsTheIndexOnThreeDigits()
    {
        const std::pair<int, const char *> cases[] = {{0, "000"}, {7, "007"}, {99, "099"}, {119, "119"}};
        for (auto [niveau, caption] : cases) {
            gNiveau = niveau;
            fond->showLevelNumber();
            QCOMPARE(fond->labNiveau->text(), QString::fromLatin1(caption));
        }
        QVERIFY(fond->labNiveau->isVisible());
    }

    void theStripDragsTheWindowWithAnyButton()
    {
        for (Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
            fond->move(100, 100);
            const QPoint start = fond->pos();
            QTest::mousePress(fond->imgMove, button, {}, QPoint(50, 10));
            QVERIFY(fond->mGlisse);
            QCOMPARE(fond->mPriseX, 50);
            QTest::mouseMove(fond->imgMove, QPoint(70, 16));
            QCOMPARE(fond->pos(), start + QPoint(20, 6));
            // Past the strip the drag goes on while the button is down; the strip moved with the window.
            QTest::mouseMove(fond->imgMove, QPoint(50 + 5, 10 + 300));
            QCOMPARE(fond->pos(), start + QPoint(25, 306));
            QTest::mouseRelease(fond->imgMove, button, {}, QPoint(50, 10));
            QVERIFY(!fond->mGlisse);
            fond->imgMove_MouseMove(Qt::NoButton, {}, 90, 90);
            QCOMPARE(fond->pos(), start + QPoint(25, 306));
        }
    }

    void ctrlIsHeldUntilAnyKeyIsReleased()
    {
        QTest::keyPress(fond.get(), Qt::Key_Control);
        QVERIFY(fond->mCtrl);
        QTest::keyPress(fond.get(), Qt::Key_A, Qt::ControlModifier);
        QVERIFY(fond->mCtrl);
        QTest::keyRelease(fond.get(), Qt::Key_A, Qt::ControlModifier);
        QVERIFY(!fond->mCtrl);
        // Wherever the focus lies in the window.
        QTest::keyPress(fond->Picture1, Qt::Key_Control);
        QVERIFY(fond->mCtrl);
        QTest::keyRelease(fond->labTemps, Qt::Key_Shift);
        QVERIFY(!fond->mCtrl);
    }

    void keysDoNotReachAWindowWithoutInput()
    {
        fond->setEnabled(false);
        QTest::keyPress(fond.get(), Qt::Key_Control);
        QVERIFY(!fond->mCtrl);
        fond->setEnabled(true);
        QTest::keyPress(fond.get(), Qt::Key_Control);
        fond->setEnabled(false);
        QTest::keyRelease(fond.get(), Qt::Key_Control);
        QVERIFY(fond->mCtrl);
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

    // Every count shows whole, up to that of 99 hours, at the clock's place in its font and colour,
    // whichever game's screen lies beside it.
    void theClockShowsTheWholeCount()
    {
        const QRect wide(36, 65, 120, 24); // room for any count
        fond->labTemps->show();
        for (void (frmFond::*prepare)() : {&frmFond::PrepareEcran1, &frmFond::PrepareEcran2, &frmFond::PrepareEcran3}) {
            (fond.get()->*prepare)();
            fond->labTemps->setText(QString());
            const QImage behind = fond->grab(wide).toImage();
            for (const char *count : {" 1", " 999", " 1000", " 356400"}) {
                fond->labTemps->setText(QLatin1String(count));
                const QImage wanted = withText(behind, fond->labTemps->font(), QColor(0xE0, 0xE0, 0xE0),
                                               Qt::AlignLeft | Qt::AlignTop, QLatin1String(count));
                QCOMPARE(firstWrongPixel(fond->grab(wide).toImage().convertToFormat(QImage::Format_RGB32), wanted),
                         QString());
            }
        }
    }

    void aWonLevelsSecondsJoinTheTotalUpToTheCap()
    {
        const struct {
            double total, level, expected;
        } cases[] = {{10, 5, 15}, {10, 0, 10}, {356399, 2, 356400}, {356398, 2, 356400}, {356400, 7, 356400}};
        for (const auto &c : cases) {
            gTempsTotal = c.total;
            gTempsNiveau = c.level;
            gASauver = false;
            fond->myTimer.start();
            fond->countWonLevelTime();
            QCOMPARE(gTempsTotal, c.expected);
            QCOMPARE(gTempsNiveau, 0.0);
            QVERIFY(gASauver);
            QVERIFY(!fond->myTimer.isActive());
        }
    }
};

QTEST_MAIN(TestMainWindow)
#include "tst_main_window.moc"

// SPDX-License-Identifier: MIT
// The window moved between screens of device pixel ratios 1, 2 and 1.5, a game of Jeu 3 under way
// with a tile selected: at each whole ratio every surface holds the art drawn for it and the board
// shows, pixel for pixel, what the model and that art make; at 1.5 the 2x art is brought down
// smoothly. Also: a surface keeps only the copies that still show.
#include "../games/pairs/pair_tiles_drawn.h"
#include "board_oracle.h"
#include "play_session.h"
#include "pointers.h"
#include "window_states.h"

#include <QApplication>
#include <QScreen>

namespace {

constexpr int kCell = 52;
const QRect kScreenPlace(110, 66, 468, 468);

// Screen 3 as the model and the art drawn for a scale make it: the window's picture behind the tiles.
QImage pairsScreen(const PairBoard &pairs, int scale)
{
    const QImage fond = artPicture(QStringLiteral("fond.jpg"), scale);
    QImage board = fond.copy(devicePixels(fond, kScreenPlace));
    drawPairTiles(board, artPicture(QStringLiteral("pion3.bmp"), scale),
                  [&pairs](int x, int y) { return pairs.tabPions3[x][y]; }, pairs.iChoix3);
    return board;
}

} // namespace

class TestScreenScale : public QObject {
    Q_OBJECT

    PlaySession session;
    frmFond &fond() { return *session.fond; }

    // Moves the window onto a screen and waits for it to be painted there.
    void moveTo(const char *name)
    {
        QScreen *screen = nullptr;
        for (QScreen *s : QGuiApplication::screens())
            if (s->name() == QLatin1String(name)) screen = s;
        QVERIFY(screen);
        fond().move(screen->geometry().topLeft() + QPoint(40, 40));
        QTRY_COMPARE(fond().screen(), screen);
        QTRY_COMPARE(fond().devicePixelRatioF(), screen->devicePixelRatio());
        QTest::qWait(50);
    }

    // Every surface holds the art drawn for the scale, the menu shows a game under way, the board the
    // model; at a whole ratio, the window shows the board as it is.
    void verifyDrawnAt(int scale)
    {
        const bool whole = fond().devicePixelRatioF() == scale;
        QCOMPARE(fond().scale(), scale);
        // Jeu 1's and Jeu 2's sheets are read only when their game's screen is first prepared.
        QVERIFY(fond().pctPion1->image.isNull() && fond().pctPion2->image.isNull());
        QVERIFY(fond().Picture1->image == artPicture(QStringLiteral("catalogue.jpg"), scale));
        QVERIFY(menuShowsIdleArt(fond(), false));
        const QImage picture = artPicture(QStringLiteral("fond.jpg"), scale);
        QVERIFY(fond().image.copy(devicePixels(picture, {80, 0, 520, 600}))
                == picture.copy(devicePixels(picture, {80, 0, 520, 600})));
        const QImage board = pairsScreen(fond().pairs, scale);
        QCOMPARE(whole ? screenFault(fond(), fond().pctEcran3, kScreenPlace, board)
                       : firstWrongPixel(fond().pctEcran3->image, board),
                 QString());
        if (!whole) return;
        QCOMPARE(fond().imgMenu[0]->cursor().hotSpot(), QPoint(2, 1) * scale);
        QCOMPARE(fond().Picture1->cursor().hotSpot(), QPoint(12, 1) * scale);
    }

private slots:
    void init()
    {
        session.start();
        session.stopClock();
        session.startOn(3, {0});
        PlaySession::press(fond().pctEcran3, Qt::LeftButton, {5 * kCell + 10, 3 * kCell + 10});
        QCOMPARE(fond().pairs.iChoix3, 3 * 9 + 5);
    }
    void cleanup() { session.fond.reset(); }

    void theWindowIsDrawnAnewOnEachScreen()
    {
        moveTo("one");
        verifyDrawnAt(1);
        moveTo("two");
        verifyDrawnAt(2);
        const QImage atTwo = fond().grab().toImage().convertToFormat(QImage::Format_RGB32);

        // Between two scales: the 2x art, shown smoothly at 1.5, close to the window at 2x everywhere.
        moveTo("one and a half");
        verifyDrawnAt(2);
        const QImage shown = fond().grab().toImage().convertToFormat(QImage::Format_RGB32);
        QCOMPARE(shown.size(), QSize(900, 900));
        const QImage wanted = atTwo.scaled(900, 900, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        double difference = 0;
        for (int y = 0; y < 900; ++y)
            for (int x = 0; x < 900; ++x)
                difference += std::abs(qGray(shown.pixel(x, y)) - qGray(wanted.pixel(x, y))) / (900.0 * 900.0);
        QVERIFY2(difference < 2, qPrintable(QString::number(difference)));
        // Play goes on there.
        PlaySession::press(fond().pctEcran3, Qt::LeftButton, {5 * kCell + 10, 3 * kCell + 10});
        QCOMPARE(fond().pairs.iChoix3, -1);
    }

    // A long game does not make the screens' kept copies grow: every full redraw drops what it covers.
    void keptCopiesStayFew()
    {
        for (int i = 0; i < 50; ++i)
            PlaySession::press(fond().pctEcran3, Qt::LeftButton, {5 * kCell + 10, 3 * kCell + 10});
        QVERIFY(fond().pctEcran3->copies().size() <= 1 + 2 * 81);
        QCOMPARE(fond().copies().size(), size_t(1));
    }
};

int main(int argc, char *argv[])
{
    // Three screens side by side, of device pixel ratios 1, 2 and 1.5.
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" SCREENS_FILE);
    QApplication application(argc, argv);
    TestScreenScale test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_screen_scale.moc"

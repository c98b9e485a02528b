// SPDX-License-Identifier: MIT
#include "frmFond.h"

#include "accessibility.h"
#include "bitblt.h"
#include "fonts.h"
#include "modBase.h"
#include "pointers.h"
#include "prefault.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QWindow>

namespace {

// How long after the window's first paint what it does not show is made ready.
constexpr int kSettleMs = 250;

struct MenuButton {
    int left;
    int top;
    const char *toolTip;
};

const MenuButton kMenuButtons[7] = {
    {38, 131, "Cliquez sur ce bouton pour lancer le jeu 1"},
    {38, 186, "Cliquez sur ce bouton pour lancer le jeu 2"},
    {36, 241, "Cliquez sur ce bouton pour lancer le jeu 3"},
    {37, 296, "Cliquez sur ce bouton pour abandonner en cours de partie"},
    {32, 351, "Cliquez sur ce bouton pour lire le tableau des scores"},
    {20, 407, "Cliquez sur ce bouton pour accéder à l'aide"},
    {9, 461, "Cliquez sur ce bouton pour quitter le programme"},
};

// A label of the window; `meaning` names it for assistive technology.
QLabel *makeLabel(QWidget *parent, const char *meaning, QRect geometry, Qt::Alignment alignment, QRgb colour)
{
    auto *label = new QLabel(parent);
    label->setAccessibleName(QString::fromUtf8(meaning));
    label->setGeometry(geometry);
    label->setFont(boldArial(19));
    label->setAlignment(alignment);
    // A colour by palette rather than by style sheet, which would bring in the style sheet engine.
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, QColor::fromRgb(colour));
    label->setPalette(palette);
    label->hide();
    return label;
}

Surface *makeSheet(QWidget *parent)
{
    auto *sheet = new Surface(parent);
    sheet->hide();
    return sheet;
}

Surface *makeScreen(QWidget *parent, const QCursor &pointer)
{
    auto *screen = new Surface(parent);
    screen->setCursor(pointer);
    screen->hide();
    return screen;
}

// Key codes as the handlers know them; only Ctrl is told apart.
int keyCodeOf(const QKeyEvent *event) { return event->key() == Qt::Key_Control ? 17 : event->key(); }

} // namespace

frmFond::frmFond(std::unique_ptr<QLockFile> instance, QWidget *parent)
    : Surface(parent), mInstance(std::move(instance)), mRatio(devicePixelRatioF())
{
    installAccessibility();
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    setWindowTitle(QStringLiteral("Marelle"));
    loadPicture(QStringLiteral("fond.jpg"));
    setFixedSize(600, 600);
    move(screen()->availableGeometry().center() - rect().center());

    const QCursor pointer = customPointer(this);
    imgMove = new HotSpot(this);
    imgMove->setGeometry(0, 0, 601, 22);
    imgMove->setCursor(Qt::SizeAllCursor);
    connect(imgMove, &HotSpot::mouseDown, this, &frmFond::imgMove_MouseDown);
    connect(imgMove, &HotSpot::mouseMove, this, &frmFond::imgMove_MouseMove);
    connect(imgMove, &HotSpot::mouseUp, this, &frmFond::imgMove_MouseUp);

    for (int i = 0; i < 7; ++i) {
        imgMenu[i] = new HotSpot(this);
        imgMenu[i]->setGeometry(kMenuButtons[i].left, kMenuButtons[i].top, 43, 43);
        imgMenu[i]->setCursor(pointer);
        // Assistive technology names a button by its tool tip's words.
        imgMenu[i]->setToolTip(QString::fromUtf8(kMenuButtons[i].toolTip));
        imgMenu[i]->setAccessibleName(imgMenu[i]->toolTip());
        connect(imgMenu[i], &HotSpot::clicked, this, [this, i] { imgMenu_Click(i); });
    }

    labNiveau = makeLabel(this, "Niveau", QRect(38, 33, 40, 26), Qt::AlignHCenter | Qt::AlignTop, 0x404040);
    labTemps = makeLabel(this, "Chronomètre", QRect(36, 65, 40, 24), Qt::AlignLeft | Qt::AlignTop, 0xE0E0E0);

    pctEcran1 = makeScreen(this, pointer);
    pctEcran2 = makeScreen(this, pointer);
    pctEcran3 = makeScreen(this, pointer);
    connect(pctEcran1, &Surface::mouseDown, this, &frmFond::pctEcran1_MouseDown);
    connect(pctEcran2, &Surface::mouseDown, this, &frmFond::pctEcran2_MouseDown);
    connect(pctEcran3, &Surface::mouseDown, this, &frmFond::pctEcran3_MouseDown);
    // The games' sheets are read when their screens are first prepared: the idle window shows none.
    pctPion1 = makeSheet(this);
    pctPion2 = makeSheet(this);
    pctPion3 = makeSheet(this);
    pctMenu = makeSheet(this);
    pctMenu->loadPicture(QStringLiteral("menu.bmp"));

    Picture1 = new Surface(this);
    Picture1->loadPicture(QStringLiteral("catalogue.jpg"));
    Picture1->move(0, 510);
    Picture1->setCursor(handPointer(this));
    Picture1->setToolTip(QStringLiteral("le catalogue Cerisaie Logiciels"));
    Picture1->setAccessibleName(Picture1->toolTip());
    Picture1->hide();
    connect(Picture1, &Surface::clicked, this, &frmFond::Picture1_Click);

    myTimer.setInterval(1000);
    connect(&myTimer, &QTimer::timeout, this, &frmFond::myTimer_Timer);

    qApp->installEventFilter(this);
}

frmFond::~frmFond() = default;

void frmFond::AfficheMenu(int32_t etat)
{
    BitBlt(this, 0, 130, 80, 375, pctMenu, etat == 0 ? 0 : 80, 0, SRCCOPY);
    refresh();
}

void frmFond::prepareScreen(Surface *screen, Surface *sheet, const char *picture, int left, int top, int width,
                            int height)
{
    if (sheet->image.isNull()) sheet->loadPicture(QLatin1String(picture));
    pctEcran1->hide();
    pctEcran2->hide();
    pctEcran3->hide();
    screen->move(left, top);
    screen->resizeSurface(width, height);
    BitBlt(screen, 0, 0, width, height, this, left, top, SRCCOPY);
    screen->show();
}

void frmFond::PrepareEcran1() { prepareScreen(pctEcran1, pctPion1, "pion1.bmp", 128, 26, 432, 548); }
void frmFond::PrepareEcran2() { prepareScreen(pctEcran2, pctPion2, "pion2.bmp", 104, 30, 480, 540); }
void frmFond::PrepareEcran3() { prepareScreen(pctEcran3, pctPion3, "pion3.bmp", 110, 66, 468, 468); }

void frmFond::showLevelNumber()
{
    labNiveau->setText((QStringLiteral("000") + QString::number(gNiveau)).right(3));
    labNiveau->show();
}

void frmFond::showClock()
{
    fitClock();
    labTemps->setText(QString());
    labTemps->show();
}

// The clock's count may run past the label's 40 pixels over the panel beside it: the label is as
// wide as the count of 99 hours. Measuring reads the fonts, which the idle window does not show, so
// it is done after the window is painted, or when the clock first shows, whichever comes first.
void frmFond::fitClock()
{
    labTemps->resize(QFontMetrics(labTemps->font()).horizontalAdvance(QStringLiteral(" 356400")), 24);
}

void frmFond::Form_KeyDown(int KeyCode, Qt::KeyboardModifiers)
{
    if (KeyCode == 17) mCtrl = true;
}

void frmFond::Form_KeyUp(int, Qt::KeyboardModifiers) { mCtrl = false; }

void frmFond::imgMove_MouseDown(Qt::MouseButton, Qt::KeyboardModifiers, double X, double Y)
{
    mPriseX = static_cast<int32_t>(std::lround(X));
    mPriseY = static_cast<int32_t>(std::lround(Y));
    mGlisse = true;
    // Where the platform keeps windows from moving themselves, it moves this one itself.
    if (QGuiApplication::platformName() == QLatin1String("wayland")) {
        mGlisse = false;
        windowHandle()->startSystemMove();
    }
}

void frmFond::imgMove_MouseMove(Qt::MouseButtons, Qt::KeyboardModifiers, double X, double Y)
{
    if (!mGlisse) return;
    move(x() + static_cast<int>(std::lround(X)) - mPriseX, y() + static_cast<int>(std::lround(Y)) - mPriseY);
}

void frmFond::imgMove_MouseUp(Qt::MouseButton, Qt::KeyboardModifiers, double, double) { mGlisse = false; }

void frmFond::paintEvent(QPaintEvent *event)
{
    if (devicePixelRatioF() != mRatio) showAtRatio(devicePixelRatioF());
    if (!mPainted) prefaultBackingStore(this);
    Surface::paintEvent(event);
    if (!mPainted) {
        mPainted = true;
        QTimer::singleShot(kSettleMs, this, &frmFond::afterFirstPaint);
    }
}

// What the idle window does not show is made ready a moment after it is painted, out of the way of
// the first frames: the sound player and the fonts of the clock.
void frmFond::afterFirstPaint()
{
    tambour.player();
    fitClock();
}

// The sheets, the menu art and the catalogue picture are pictures alone; the window's image is its
// picture with the menu art copied in, and the screens are copies of the window and the sheets. So
// each is drawn after the surfaces it copies from, and the screens show what they showed, crisp.
void frmFond::showAtRatio(qreal ratio)
{
    mRatio = ratio;
    if (const int s = artScaleFor(ratio); s != scale()) {
        for (Surface *picture : {pctPion1, pctPion2, pctPion3, pctMenu, Picture1}) picture->redrawAt(s);
        redrawAt(s);
        for (Surface *screen : {pctEcran1, pctEcran2, pctEcran3}) screen->redrawAt(s);
    }
    const QCursor pointer = customPointer(this);
    for (Surface *screen : {pctEcran1, pctEcran2, pctEcran3}) screen->setCursor(pointer);
    for (HotSpot *button : imgMenu) button->setCursor(pointer);
    Picture1->setCursor(handPointer(this));
}

void frmFond::Picture1_Click() { tambour.invoke(24, gCheminApp + QStringLiteral("catalogue.chm")); }

bool frmFond::eventFilter(QObject *watched, QEvent *event)
{
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    auto *widget = qobject_cast<QWidget *>(watched);
    // Tool tips, like clicks, only while the window takes input.
    if (event->type() == QEvent::ToolTip && widget && widget->window() == this && !isEnabled()) return true;
    if (isKey && widget && widget->window() == this && isEnabled()) {
        auto *key = static_cast<QKeyEvent *>(event);
        if (event->type() == QEvent::KeyPress)
            Form_KeyDown(keyCodeOf(key), key->modifiers());
        else
            Form_KeyUp(keyCodeOf(key), key->modifiers());
    }
    return Surface::eventFilter(watched, event);
}

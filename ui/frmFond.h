// The main window: a fixed, borderless 600 x 600 picture with the menu column, the level label,
// the clock and the three game screens, and the program's start-up.
#pragma once

#include "file_list.h"
#include "hot_spot.h"
#include "surface.h"
#include "tambour.h"

#include <QLabel>
#include <QLockFile>
#include <QTimer>
#include <cstdint>
#include <memory>

class frmFond : public Surface {
    Q_OBJECT

public:
    explicit frmFond(QWidget *parent = nullptr);
    ~frmFond() override;

    // Start-up. Returns false when another instance already runs: the program must then end.
    bool Form_Load();

    // Draws the menu art of the idle state (0) or of a running game (anything else).
    void AfficheMenu(int32_t etat);
    // Hide the three screens, then show one game's screen blank: a copy of the background behind it.
    void PrepareEcran1();
    void PrepareEcran2();
    void PrepareEcran3();
    // Shows gNiveau in labNiveau on three digits.
    void showLevelNumber();

    void Form_KeyDown(int KeyCode, Qt::KeyboardModifiers Shift);
    void Form_KeyUp(int KeyCode, Qt::KeyboardModifiers Shift);
    void imgMove_MouseDown(Qt::MouseButton Button, Qt::KeyboardModifiers Shift, double X, double Y);
    void imgMove_MouseMove(Qt::MouseButtons Button, Qt::KeyboardModifiers Shift, double X, double Y);
    void imgMove_MouseUp(Qt::MouseButton Button, Qt::KeyboardModifiers Shift, double X, double Y);
    void myTimer_Timer();
    void Picture1_Click();

    // The clock's part of a won level: the level's seconds join the total, capped at 99 hours.
    void countWonLevelTime();

    HotSpot *imgMove;
    HotSpot *imgMenu[7];
    QLabel *labNiveau;
    QLabel *labTemps;
    Surface *pctEcran1;
    Surface *pctEcran2;
    Surface *pctEcran3;
    Surface *pctPion1;
    Surface *pctPion2;
    Surface *pctPion3;
    Surface *pctMenu;
    Surface *Picture1;
    FileList filList{QStringLiteral("*.sml")};
    QTimer myTimer;
    Tambour tambour;

    // Pointer position in the strip at the start of a drag, and whether a drag is under way.
    int32_t mPriseX = 0;
    int32_t mPriseY = 0;
    bool mGlisse = false;
    // True from a press of Ctrl until the next release of any key.
    bool mCtrl = false;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void prepareScreen(Surface *screen, int left, int top, int width, int height);

    std::unique_ptr<QLockFile> mInstance;
};

// The one main window, for the routines that several windows share.
frmFond *mainWindow();

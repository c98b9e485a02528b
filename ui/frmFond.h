// SPDX-License-Identifier: MIT
// The main window: a fixed, borderless 600 x 600 picture with the menu column, the level label,
// the clock and the three game screens, and the program's start-up.
#pragma once

#include "dialog_owner.h"
#include "file_list.h"
#include "hot_spot.h"
#include "pair_board.h"
#include "stone_board.h"
#include "surface.h"
#include "tambour.h"
#include "tile_board.h"

#include <QLockFile>
#include <QTimer>
#include <cstdint>
#include <memory>

class QLabel;

class frmFond : public Surface {
    Q_OBJECT

public:
    // Built with the lock of the single instance when the caller took it already.
    explicit frmFond(std::unique_ptr<QLockFile> instance = nullptr, QWidget *parent = nullptr);
    ~frmFond() override;

    // Start-up. Returns false when another instance already runs: the program must then end.
    // A window built without the lock takes it here first.
    bool Form_Load();

    // Draws the menu art of the idle state (0) or of a running game (anything else).
    void AfficheMenu(int32_t etat);
    // Hide the three screens, then show one game's screen blank: a copy of the background behind it.
    void PrepareEcran1();
    void PrepareEcran2();
    void PrepareEcran3();
    // Shows gNiveau in labNiveau on three digits.
    void showLevelNumber();
    // Shows labTemps blank, wide enough for any count.
    void showClock();

    void Form_KeyDown(int KeyCode, Qt::KeyboardModifiers Shift);
    void Form_KeyUp(int KeyCode, Qt::KeyboardModifiers Shift);
    void imgMove_MouseDown(Qt::MouseButton Button, Qt::KeyboardModifiers Shift, double X, double Y);
    void imgMove_MouseMove(Qt::MouseButtons Button, Qt::KeyboardModifiers Shift, double X, double Y);
    void imgMove_MouseUp(Qt::MouseButton Button, Qt::KeyboardModifiers Shift, double X, double Y);
    void myTimer_Timer();
    void Picture1_Click();

    // The clock's part of a won level: the level's seconds join the total, capped at 99 hours.
    void countWonLevelTime();

    // Play control: the seven menu buttons by the state in gJeu.
    void imgMenu_Click(int Index);
    void LanceJeu(int32_t jeu);
    // The "Charger" road of a start: the chooser, then the load; false when no game is to be played.
    bool loadChosenGame(int32_t jeu);
    void abandonOrReplay();
    void showBestTimes();
    void quitQuestion();
    // The steps the three end-of-level tests share: whether the level is won, with the clock's part
    // of a win; the way on to the next level after a pause; the close of a game after its last level.
    bool wonLevel(bool solved);
    void nextLevel(int32_t jeu, double secondes);
    void closeGame(int32_t jeu);
    // What the dialogs shown over this window need of it.
    DialogOwner dialogOwner() { return {this, tambour}; }
    // A game left, abandoned or finished: the offer to save, then back to no game.
    void leaveGame();
    // A game's own screen, preparation and level set-up, by game number.
    Surface *screenOf(int32_t jeu) const;
    void prepareScreenOf(int32_t jeu);
    void setUpLevelOf(int32_t jeu);

    // Jeu 1, pip tiles.
    void ChargeNiveau1();
    void pctEcran1_MouseDown(Qt::MouseButton Button, Qt::KeyboardModifiers Shift, double X, double Y);
    void DessineJeu1();
    void DessineTout1();
    void TesteFin1();
    void placeTile(int32_t x, int32_t y);
    void takeBackTile();

    // Jeu 2, stones.
    void ChargeNiveau2();
    void pctEcran2_MouseDown(Qt::MouseButton Button, Qt::KeyboardModifiers Shift, double X, double Y);
    void DessinePions2();
    void TesteFin2();
    void drawStone(int32_t x, int32_t y);
    void flipStones(int32_t x, int32_t y);
    void takeBackFlip();

    // Jeu 3, tile pairs.
    void ChargeNiveau3();
    void pctEcran3_MouseDown(Qt::MouseButton Button, Qt::KeyboardModifiers Shift, double X, double Y);
    void DessinePion3(int32_t x, int32_t y, bool selected);
    void DessineTout3(int32_t selectedCell);
    void TesteFin3();
    void selectTile(int32_t x, int32_t y);
    void cancelSelection();
    void removePair(int32_t x, int32_t y);
    void takeBackPair();

    // The boards of the three games.
    TileBoard tiles;
    StoneBoard stones;
    PairBoard pairs;

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
    void closeEvent(QCloseEvent *event) override;
    // Shown on a screen of another device pixel ratio, the window first draws itself anew there.
    void paintEvent(QPaintEvent *event) override;

private:
    // Also reads the game's sheet, the first time.
    void prepareScreen(Surface *screen, Surface *sheet, const char *picture, int left, int top, int width, int height);
    // Every surface drawn again from the art that fits another device pixel ratio, and the pointers.
    void showAtRatio(qreal ratio);
    void fitClock();
    void afterFirstPaint();

    std::unique_ptr<QLockFile> mInstance;
    qreal mRatio; // the device pixel ratio the window was last drawn for
    bool mPainted = false;
};

// SPDX-License-Identifier: MIT
// Jeu 3 on the screen: the tiles on the window's own background, selection, pairs, take-back and the cues.
#include "bitblt.h"
#include "frmFond.h"
#include "level_store.h"
#include "modBase.h"
#include "sound.h"
#include "sound_cues.h"

#include <cmath>

namespace {

constexpr int kCell = 52;
constexpr int kMaskX = 416;     // column 8 of the sheet: the masks
constexpr int kSelectedX = 208; // columns 4 to 7: the selected tiles

} // namespace

// A tile in two copies: its mask makes the tile's shape white, then the tile fills it.
void frmFond::DessinePion3(int32_t x, int32_t y, bool selected)
{
    const int32_t value = pairs.tabPions3[x][y];
    const int32_t c = PairBoard::couleur(value);
    const int32_t n = PairBoard::points(value);
    BitBlt(pctEcran3, kCell * x, kCell * y, kCell, kCell, pctPion3, kMaskX, selected ? kCell : 0, SRCPAINT);
    BitBlt(pctEcran3, kCell * x, kCell * y, kCell, kCell, pctPion3, kCell * (n - 1) + (selected ? kSelectedX : 0),
           kCell * c, SRCAND);
}

void frmFond::DessineTout3(int32_t selectedCell)
{
    BitBlt(pctEcran3, 0, 0, kCell * PairBoard::kCotes, kCell * PairBoard::kCotes, this, 110, 66, SRCCOPY);
    for (int32_t y = 0; y < PairBoard::kCotes; ++y)
        for (int32_t x = 0; x < PairBoard::kCotes; ++x)
            if (pairs.tabPions3[x][y] > 0) DessinePion3(x, y, y * PairBoard::kCotes + x == selectedCell);
    pctEcran3->refresh();
}

void frmFond::ChargeNiveau3()
{
    showLevelNumber();
    pairs.LitNiveau3(storeBytes(gNiveaux3), gNiveau);
    for (int32_t y = 0; y < PairBoard::kCotes; ++y)
        for (int32_t x = 0; x < PairBoard::kCotes; ++x)
            if (pairs.tabPions3[x][y] > 0) DessinePion3(x, y, false);
    JoueSon(tambour, cue::kNewLevel);
    pctEcran3->refresh();
}

void frmFond::pctEcran3_MouseDown(Qt::MouseButton Button, Qt::KeyboardModifiers, double X, double Y)
{
    if (Button == Qt::RightButton) {
        if (pairs.iCoup3 < 0) return;
        if (pairs.iChoix3 > -1) cancelSelection();
        takeBackPair();
        return;
    }
    const auto x = static_cast<int32_t>(std::floor(X / kCell));
    const auto y = static_cast<int32_t>(std::floor(Y / kCell));
    if (x < 0 || x >= PairBoard::kCotes || y < 0 || y >= PairBoard::kCotes) return;
    if (pairs.iChoix3 >= 0 && y * PairBoard::kCotes + x == pairs.iChoix3) {
        cancelSelection();
        return;
    }
    if (pairs.tabPions3[x][y] == 0) return;
    JoueSon(tambour, cue::kBoardMove);
    if (pairs.iChoix3 == -1) {
        selectTile(x, y);
        return;
    }
    if (!pairs.Pareil3(x, y)) return;
    removePair(x, y);
    TesteFin3();
}

void frmFond::selectTile(int32_t x, int32_t y)
{
    setEnabled(false);
    pairs.Selectionne3(x, y);
    DessineTout3(y * PairBoard::kCotes + x);
    setEnabled(true);
}

void frmFond::cancelSelection()
{
    setEnabled(false);
    pairs.Deselectionne3();
    JoueSon(tambour, cue::kTakeBack);
    DessineTout3(-1);
    setEnabled(true);
}

void frmFond::removePair(int32_t x, int32_t y)
{
    setEnabled(false);
    pairs.Retire3(x, y);
    DessineTout3(-1);
    setEnabled(true);
}

// The pair comes back in three steps that the player sees: the second tile's neighbours turn back,
// the second tile returns, then the first.
void frmFond::takeBackPair()
{
    setEnabled(false);
    const int32_t a = pairs.tabCoupA3[pairs.iCoup3];
    pairs.undoTurnsOfSecond();
    JoueSon(tambour, cue::kTakeBack);
    DessineTout3(-1);
    pairs.undoSecondTileAndTurnsOfFirst();
    JoueSon(tambour, cue::kTakeBack);
    DessineTout3(-1);
    pairs.undoFirstTile();
    DessinePion3(a % PairBoard::kCotes, a / PairBoard::kCotes, false);
    pctEcran3->refresh();
    pairs.forgetLastPair();
    setEnabled(true);
}

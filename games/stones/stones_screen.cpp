// SPDX-License-Identifier: MIT
// Jeu 2 on the screen: the stones on the window's own background, the mouse, the cues and the end of a level.
#include "best_times_update.h"
#include "bitblt.h"
#include "frmFond.h"
#include "level_store.h"
#include "modBase.h"
#include "sound.h"
#include "sound_cues.h"

#include <cmath>

namespace {

constexpr int kCell = 60;

} // namespace

// A stone in two copies: its mask makes a white disc, then the stone fills it.
void frmFond::drawStone(int32_t x, int32_t y)
{
    BitBlt(pctEcran2, kCell * x, kCell * y, kCell, kCell, pctPion2, kCell, 0, SRCPAINT);
    BitBlt(pctEcran2, kCell * x, kCell * y, kCell, kCell, pctPion2, 0, 0, SRCAND);
}

void frmFond::DessinePions2()
{
    BitBlt(pctEcran2, 0, 0, kCell * StoneBoard::kColonnes, kCell * StoneBoard::kLignes, this, 104, 30, SRCCOPY);
    for (int32_t y = 0; y < StoneBoard::kLignes; ++y)
        for (int32_t x = 0; x < StoneBoard::kColonnes; ++x)
            if (stones.tabPions2[x][y] == StoneBoard::kVrai) drawStone(x, y);
}

void frmFond::ChargeNiveau2()
{
    showLevelNumber();
    stones.LitNiveau2(storeBytes(gNiveaux2), gNiveau);
    for (int32_t y = 0; y < StoneBoard::kLignes; ++y)
        for (int32_t x = 0; x < StoneBoard::kColonnes; ++x)
            if (stones.tabPions2[x][y] == StoneBoard::kVrai) drawStone(x, y);
    JoueSon(tambour, cue::kNewLevel);
    pctEcran2->refresh();
}

void frmFond::pctEcran2_MouseDown(Qt::MouseButton Button, Qt::KeyboardModifiers, double X, double Y)
{
    if (Button == Qt::RightButton) {
        if (stones.iCoup2 > -1) {
            JoueSon(tambour, cue::kBoardMove);
            takeBackFlip();
        }
        return;
    }
    const auto x = static_cast<int32_t>(std::floor(X / kCell));
    const auto y = static_cast<int32_t>(std::floor(Y / kCell));
    if (x < 0 || x >= StoneBoard::kColonnes || y < 0 || y >= StoneBoard::kLignes) return;
    JoueSon(tambour, cue::kBoardMove);
    flipStones(x, y);
    TesteFin2();
}

void frmFond::flipStones(int32_t x, int32_t y)
{
    setEnabled(false);
    stones.Retourne2(x, y);
    DessinePions2();
    pctEcran2->refresh();
    setEnabled(true);
}

void frmFond::takeBackFlip()
{
    setEnabled(false);
    stones.Annule2();
    JoueSon(tambour, cue::kTakeBack);
    DessinePions2();
    pctEcran2->refresh();
    setEnabled(true);
}

void frmFond::TesteFin2()
{
    if (!wonLevel(stones.Vide2())) return;
    MajBest2(tambour);
    if (gNiveau + 1 < gNbNiveaux)
        nextLevel(2, 2);
    else
        closeGame(2);
}

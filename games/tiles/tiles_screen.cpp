// SPDX-License-Identifier: MIT
// Jeu 1 on the screen: the target board above, the sockets below, the mouse, the cues and the end of a level.
#include "best_times_update.h"
#include "bitblt.h"
#include "frmFond.h"
#include "level_store.h"
#include "modBase.h"
#include "sound.h"
#include "sound_cues.h"

#include <cmath>

namespace {

constexpr int kCell = 54;
constexpr int kLowerTop = 278; // the lower board starts below the upper one and the gap
constexpr int kSocketX = 216;
constexpr int kWonX = 270;

// Copies one 54 x 54 cell of the sheet onto the screen.
void copyCell(Surface *screen, int x, int y, const Surface *sheet, int sheetX)
{
    BitBlt(screen, x, y, kCell, kCell, sheet, sheetX, 0, SRCCOPY);
}

} // namespace

void frmFond::ChargeNiveau1()
{
    showLevelNumber();
    tiles.LitNiveau1(storeBytes(gNiveaux1), gNiveau);
    for (int32_t y = 0; y < TileBoard::kLignes; ++y) {
        for (int32_t x = 0; x < TileBoard::kColonnes; ++x) {
            const int32_t cible = tiles.tabCible1[x][y];
            if (cible <= 0) continue;
            BitBlt(pctEcran1, kCell * x, kCell * y, kCell, kCell, pctPion1, (cible - 1) * kCell, 0, SRCCOPY);
            BitBlt(pctEcran1, kCell * x, kLowerTop + kCell * y, kCell, kCell, pctPion1, kSocketX, 0, SRCCOPY);
        }
    }
    JoueSon(tambour, cue::kNewLevel);
    pctEcran1->refresh();
}

void frmFond::pctEcran1_MouseDown(Qt::MouseButton Button, Qt::KeyboardModifiers, double X, double Y)
{
    if (Button == Qt::RightButton) {
        if (tiles.iCoup1 >= 0) takeBackTile();
        return;
    }
    const auto x = static_cast<int32_t>(std::floor(X / kCell));
    const auto y = static_cast<int32_t>(std::floor((Y - kLowerTop) / kCell));
    if (x < 0 || x >= TileBoard::kColonnes || y < 0 || y >= TileBoard::kLignes) return;
    if (tiles.tabJeu1[x][y] != TileBoard::kSocle) return;
    JoueSon(tambour, cue::kBoardMove);
    placeTile(x, y);
    TesteFin1();
}

void frmFond::placeTile(int32_t x, int32_t y)
{
    setEnabled(false);
    tiles.Pose1(x, y);
    DessineJeu1();
    pctEcran1->refresh();
    setEnabled(true);
}

void frmFond::takeBackTile()
{
    setEnabled(false);
    tiles.Annule1();
    DessineTout1();
    JoueSon(tambour, cue::kTakeBack);
    pctEcran1->refresh();
    setEnabled(true);
}

void frmFond::DessineJeu1()
{
    for (int32_t y = 0; y < TileBoard::kLignes; ++y) {
        for (int32_t x = 0; x < TileBoard::kColonnes; ++x) {
            const int32_t v = tiles.tabJeu1[x][y];
            if (v >= 1 && v <= 4) copyCell(pctEcran1, kCell * x, kLowerTop + kCell * y, pctPion1, (v - 1) * kCell);
        }
    }
}

void frmFond::DessineTout1()
{
    for (int32_t y = 0; y < TileBoard::kLignes; ++y) {
        for (int32_t x = 0; x < TileBoard::kColonnes; ++x) {
            const int32_t v = tiles.tabJeu1[x][y];
            if (v >= 1 && v <= 4)
                copyCell(pctEcran1, kCell * x, kLowerTop + kCell * y, pctPion1, (v - 1) * kCell);
            else if (v == TileBoard::kSocle)
                copyCell(pctEcran1, kCell * x, kLowerTop + kCell * y, pctPion1, kSocketX);
        }
    }
}

void frmFond::TesteFin1()
{
    if (!wonLevel(tiles.Complet1())) return;
    MajBest1(tambour);
    if (gNiveau + 1 < gNbNiveaux) {
        for (int32_t y = 0; y < TileBoard::kLignes; ++y)
            for (int32_t x = 0; x < TileBoard::kColonnes; ++x)
                if (tiles.tabCible1[x][y] > 0) copyCell(pctEcran1, kCell * x, kCell * y, pctPion1, kWonX);
        pctEcran1->refresh();
        nextLevel(1, 3);
    } else {
        closeGame(1);
    }
}

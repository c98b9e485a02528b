// SPDX-License-Identifier: MIT
#include "tile_board.h"

#include "neighbours.h"

void TileBoard::LitNiveau1(std::string_view niveaux, int32_t n)
{
    iCoup1 = -1;
    for (int32_t &coup : tabCoups1) coup = -1;
    for (int32_t y = 0; y < kLignes; ++y) {
        for (int32_t x = 0; x < kColonnes; ++x) {
            const int32_t d = static_cast<unsigned char>(niveaux[n * kOctetsParNiveau + y * kColonnes + x]) - 48;
            tabCible1[x][y] = d;
            tabJeu1[x][y] = d > 0 ? kSocle : kHorsJeu;
        }
    }
}

void TileBoard::Pose1(int32_t x, int32_t y)
{
    forEachNeighbour(kColonnes, kLignes, x, y, [this](int32_t vx, int32_t vy) {
        int32_t &v = tabJeu1[vx][vy];
        if (v < kSocle) {
            v += 1;
            if (v == 5) v = 1;
        }
    });
    tabJeu1[x][y] = 1;
    iCoup1 += 1;
    tabCoups1[iCoup1] = y * kColonnes + x;
}

void TileBoard::Annule1()
{
    const int32_t p = tabCoups1[iCoup1];
    const int32_t x = p % kColonnes;
    const int32_t y = p / kColonnes;
    forEachNeighbour(kColonnes, kLignes, x, y, [this](int32_t vx, int32_t vy) {
        int32_t &v = tabJeu1[vx][vy];
        if (v < kSocle) {
            v -= 1;
            if (v == 0) v = 4;
        }
    });
    tabJeu1[x][y] = kSocle;
    tabCoups1[iCoup1] = -1;
    iCoup1 -= 1;
}

bool TileBoard::Complet1() const
{
    for (int32_t y = 0; y < kLignes; ++y)
        for (int32_t x = 0; x < kColonnes; ++x)
            if (tabJeu1[x][y] != kHorsJeu && tabJeu1[x][y] != tabCible1[x][y]) return false;
    return true;
}

// SPDX-License-Identifier: MIT
#include "stone_board.h"

#include "neighbours.h"

void StoneBoard::LitNiveau2(std::string_view niveaux, int32_t n)
{
    for (int32_t y = 0; y < kLignes; ++y) {
        for (int32_t x = 0; x < kColonnes; ++x) {
            const int32_t v = static_cast<unsigned char>(niveaux[n * kOctetsParNiveau + y * kColonnes + x]) - 48;
            tabPions2[x][y] = v > 0 ? kVrai : kFaux;
        }
    }
    iCoup2 = -1;
}

// Negates the left, right, upper and lower neighbours, then the cell itself.
void StoneBoard::flipAround(int32_t x, int32_t y)
{
    forEachNeighbour(kColonnes, kLignes, x, y, [this](int32_t vx, int32_t vy) { tabPions2[vx][vy] = ~tabPions2[vx][vy]; });
    tabPions2[x][y] = ~tabPions2[x][y];
}

void StoneBoard::Retourne2(int32_t x, int32_t y)
{
    flipAround(x, y);
    iCoup2 = y * kColonnes + x;
}

void StoneBoard::Annule2()
{
    const int32_t p = iCoup2;
    iCoup2 = -1;
    flipAround(p % kColonnes, p / kColonnes);
}

bool StoneBoard::Vide2() const
{
    for (int32_t y = 0; y < kLignes; ++y)
        for (int32_t x = 0; x < kColonnes; ++x)
            if (tabPions2[x][y] != kFaux) return false;
    return true;
}

// SPDX-License-Identifier: MIT
#include "pair_board.h"

#include "neighbours.h"

namespace {

int32_t turnForward(int32_t v)
{
    v += 1;
    if (v == 53 || v == 69 || v == 85 || v == 101) v -= 4;
    return v;
}

int32_t turnBack(int32_t v)
{
    v -= 1;
    if (v == 48 || v == 64 || v == 80 || v == 96) v += 4;
    return v;
}

} // namespace

void PairBoard::LitNiveau3(std::string_view niveaux, int32_t n)
{
    iCoup3 = -1;
    for (int32_t i = 0; i < 101; ++i) {
        tabCoupA3[i] = -1;
        tabCoupB3[i] = -1;
    }
    iChoix3 = -1;
    for (int32_t y = 0; y < kCotes; ++y) {
        for (int32_t x = 0; x < kCotes; ++x) {
            const int32_t b = static_cast<unsigned char>(niveaux[n * kOctetsParNiveau + y * kCotes + x]);
            tabPions3[x][y] = b == 48 ? 0 : b;
        }
    }
}

void PairBoard::TourneVoisins3(int32_t x, int32_t y)
{
    forEachNeighbour(kCotes, kCotes, x, y, [this](int32_t vx, int32_t vy) {
        if (tabPions3[vx][vy] != 0) tabPions3[vx][vy] = turnForward(tabPions3[vx][vy]);
    });
}

void PairBoard::DetourneVoisins3(int32_t x, int32_t y)
{
    forEachNeighbour(kCotes, kCotes, x, y, [this](int32_t vx, int32_t vy) {
        if (tabPions3[vx][vy] != 0) tabPions3[vx][vy] = turnBack(tabPions3[vx][vy]);
    });
}

void PairBoard::Selectionne3(int32_t x, int32_t y)
{
    TourneVoisins3(x, y);
    iChoix3 = y * kCotes + x;
}

void PairBoard::Deselectionne3()
{
    const int32_t x = iChoix3 % kCotes;
    const int32_t y = iChoix3 / kCotes;
    iChoix3 = -1;
    DetourneVoisins3(x, y);
}

bool PairBoard::Pareil3(int32_t x, int32_t y) const
{
    return tabPions3[x][y] == tabPions3[iChoix3 % kCotes][iChoix3 / kCotes];
}

void PairBoard::Retire3(int32_t x, int32_t y)
{
    const int32_t sx = iChoix3 % kCotes;
    const int32_t sy = iChoix3 / kCotes;
    iCoup3 += 1;
    tabCoupA3[iCoup3] = iChoix3;
    tabCoupB3[iCoup3] = y * kCotes + x;
    tabCoupV3[iCoup3] = tabPions3[x][y];
    tabPions3[x][y] = 0;
    tabPions3[sx][sy] = 0;
    TourneVoisins3(x, y);
    iChoix3 = -1;
}

void PairBoard::Annule3()
{
    undoTurnsOfSecond();
    undoSecondTileAndTurnsOfFirst();
    undoFirstTile();
    forgetLastPair();
}

void PairBoard::undoTurnsOfSecond()
{
    const int32_t b = tabCoupB3[iCoup3];
    DetourneVoisins3(b % kCotes, b / kCotes);
}

void PairBoard::undoSecondTileAndTurnsOfFirst()
{
    const int32_t a = tabCoupA3[iCoup3];
    const int32_t b = tabCoupB3[iCoup3];
    tabPions3[b % kCotes][b / kCotes] = tabCoupV3[iCoup3];
    DetourneVoisins3(a % kCotes, a / kCotes);
}

void PairBoard::undoFirstTile()
{
    const int32_t a = tabCoupA3[iCoup3];
    tabPions3[a % kCotes][a / kCotes] = tabCoupV3[iCoup3];
}

void PairBoard::forgetLastPair() { iCoup3 -= 1; }

bool PairBoard::Vide3() const
{
    for (int32_t y = 0; y < kCotes; ++y)
        for (int32_t x = 0; x < kCotes; ++x)
            if (tabPions3[x][y] != 0) return false;
    return true;
}

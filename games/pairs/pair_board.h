// SPDX-License-Identifier: MIT
// Tile pairs: the board of one level and its rules, with no window.
#pragma once

#include <cstdint>
#include <string_view>

struct PairBoard {
    static constexpr int32_t kCotes = 9; // columns and rows
    static constexpr int32_t kOctetsParNiveau = kCotes * kCotes;

    // A tile value is 48 + 16 * colour + pips, colour 0 to 3 and pips 1 to 4; 0 is an empty cell.
    static constexpr int32_t couleur(int32_t valeur) { return (valeur - 48) / 16; }
    static constexpr int32_t points(int32_t valeur) { return (valeur - 48) % 16; }

    // Declared one wider and one taller than the board in use.
    int32_t tabPions3[10][10] = {};
    int32_t iChoix3 = -1;
    int32_t tabCoupA3[101] = {};
    int32_t tabCoupB3[101] = {};
    int32_t tabCoupV3[101] = {};
    int32_t iCoup3 = -1;

    // Sets level n of the store up: no selection, no pair removed.
    void LitNiveau3(std::string_view niveaux, int32_t n);
    // Turns the tiles next to (x, y) one pip forward, 4 going back to 1.
    void TourneVoisins3(int32_t x, int32_t y);
    // Turns the tiles next to (x, y) one pip back, 1 going to 4.
    void DetourneVoisins3(int32_t x, int32_t y);
    // Selects the tile at (x, y), turning its neighbours.
    void Selectionne3(int32_t x, int32_t y);
    // Cancels the selection, turning its neighbours back.
    void Deselectionne3();
    // True when (x, y) holds the value of the selected tile as the board stands now.
    bool Pareil3(int32_t x, int32_t y) const;
    // Removes the selected tile and the tile at (x, y), then turns the neighbours of (x, y).
    void Retire3(int32_t x, int32_t y);
    // Puts the last removed pair back as it was before its selection: the four steps below in turn.
    void Annule3();
    // The steps of Annule3, for a screen that shows the board between them.
    void undoTurnsOfSecond();             // the second tile's neighbours turn back
    void undoSecondTileAndTurnsOfFirst(); // the second tile returns, the first tile's neighbours turn back
    void undoFirstTile();                 // the first tile returns
    void forgetLastPair();
    // True when no tile is left.
    bool Vide3() const;
};

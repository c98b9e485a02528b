// SPDX-License-Identifier: MIT
// Pip tiles: the board of one level and its rules, with no window.
#pragma once

#include <cstdint>
#include <string_view>

struct TileBoard {
    static constexpr int32_t kColonnes = 8;
    static constexpr int32_t kLignes = 5;
    static constexpr int32_t kOctetsParNiveau = kColonnes * kLignes;

    // Values of tabJeu1 besides the placed tiles 1 to 4.
    static constexpr int32_t kSocle = 7;
    static constexpr int32_t kHorsJeu = 9;

    // Declared one wider and one taller than the board in use.
    int32_t tabCible1[9][6] = {};
    int32_t tabJeu1[9][6] = {};
    int32_t tabCoups1[51] = {};
    int32_t iCoup1 = -1;

    // Sets level n of the store up: the target, the empty sockets, no placement.
    void LitNiveau1(std::string_view niveaux, int32_t n);
    // Places a tile with 1 pip on the socket (x, y); placed neighbours gain a pip, 5 falling to 1.
    void Pose1(int32_t x, int32_t y);
    // Takes the last placement back.
    void Annule1();
    // True when every cell of the level holds its target.
    bool Complet1() const;
};

// SPDX-License-Identifier: MIT
// Stones: the board of one level and its rules, with no window.
#pragma once

#include <cstdint>
#include <string_view>

struct StoneBoard {
    static constexpr int32_t kColonnes = 8;
    static constexpr int32_t kLignes = 9;
    static constexpr int32_t kOctetsParNiveau = kColonnes * kLignes;

    // 16-bit Booleans: True has all bits set.
    static constexpr int16_t kVrai = -1;
    static constexpr int16_t kFaux = 0;

    // Declared one column wider than the board in use.
    int16_t tabPions2[9][9] = {};
    int32_t iCoup2 = -1;

    // Sets level n of the store up, with no click to take back.
    void LitNiveau2(std::string_view niveaux, int32_t n);
    // Flips (x, y) and its neighbours, and remembers the click.
    void Retourne2(int32_t x, int32_t y);
    // Takes the last click back; only one step is remembered.
    void Annule2();
    // True when no stone is left.
    bool Vide2() const;

private:
    void flipAround(int32_t x, int32_t y);
};

// SPDX-License-Identifier: MIT
// The shared record: the program-wide variables that every window and routine reads.
#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>

extern QString gCheminApp;   // folder of the program, with a trailing separator
extern QString gCheminData;  // data folder, with a trailing separator, or empty when unreachable
extern QString gFichierBest; // name of the best-times file inside gCheminData
extern QString gNomJoueur;   // player name, upper-cased and trimmed
extern QString gNomPartie;   // saved game in play, no folder and no extension
extern double gTempsTotal;   // seconds of the levels won in this game, at most 356400
extern double gTempsNiveau;  // seconds on the level in play
extern bool gASauver;        // a level was won since the game was started or loaded
extern int32_t gJeu;         // 0 idle, 1 to 3 that game running, 10 a game being started

// The raw level stores of games 1, 2 and 3.
extern QByteArray gNiveaux1;
extern QByteArray gNiveaux2;
extern QByteArray gNiveaux3;

extern int32_t gNbNiveaux; // levels of the game being started or running
extern int32_t gNiveau;    // level in play from 0; 999 marks a finished game

// Best-times tables, rows 1 to 3 (row 0 unused).
extern int32_t gBestNiveau1[4];
extern int32_t gBestNiveau2[4];
extern int32_t gBestNiveau3[4];
extern double gBestTemps1[4];
extern double gBestTemps2[4];
extern double gBestTemps3[4];
extern QString gBestNom1[4];
extern QString gBestNom2[4];
extern QString gBestNom3[4];

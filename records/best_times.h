// SPDX-License-Identifier: MIT
// The best-times tables of the three games and their file in the data folder, from start-up on.
#pragma once

#include <QString>
#include <cstdint>

// Makes the data folder ready, creating its two levels and the missing folders above them, clears what
// an interrupted write left there, and fills the tables from the best-times file. That file is written
// anew when it is missing, or when it cannot be read to its end, its old bytes then kept beside it
// under the name followed by ".1". gCheminData is left empty when the folder cannot be reached.
void InitDonnees();
// Puts the empty row in rows 1 to 3 of the three tables.
void RazBest();
// Reads the file into the tables, row after row; false when it could not be read to its end, or is
// not line for line what the tables write back.
bool LitBest();
// Replaces the whole file by the tables, keeping first beside it a file that start-up could not read
// to its end; false when it could not be written, the old file then whole.
bool EcritBest();

// The three arrays of one game's table, rows 1 to 3.
struct BestTable {
    int32_t *niveaux;
    double *temps;
    QString *noms;
};
BestTable bestTable(int32_t jeu);

// The folder that holds the two levels of the data folder: the user's data folder on this system.
QString dataFolderRoot();

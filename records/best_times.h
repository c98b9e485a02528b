// The best-times tables of the three games and their file in the data folder, from start-up on.
#pragma once

#include <QString>
#include <cstdint>

// Makes the data folder ready, creating its two levels when they are missing, and fills the tables
// from the best-times file, writing that file anew when it is missing or cannot be read to its end.
// gCheminData is left empty when the folder cannot be reached.
void InitDonnees();
// Puts the empty row in rows 1 to 3 of the three tables.
void RazBest();
// Reads the file into the tables, row after row; false when it could not be read to its end.
bool LitBest();
// Replaces the whole file by the tables; false when it could not be written, the old file then whole.
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

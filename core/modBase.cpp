// SPDX-License-Identifier: MIT
#include "modBase.h"

QString gCheminApp;
QString gCheminData;
QString gFichierBest;
QString gNomJoueur;
QString gNomPartie;
double gTempsTotal = 0.0;
double gTempsNiveau = 0.0;
bool gASauver = false;
int32_t gJeu = 0;

QByteArray gNiveaux1;
QByteArray gNiveaux2;
QByteArray gNiveaux3;

int32_t gNbNiveaux = 0;
int32_t gNiveau = 0;

int32_t gBestNiveau1[4] = {};
int32_t gBestNiveau2[4] = {};
int32_t gBestNiveau3[4] = {};
double gBestTemps1[4] = {};
double gBestTemps2[4] = {};
double gBestTemps3[4] = {};
QString gBestNom1[4];
QString gBestNom2[4];
QString gBestNom3[4];

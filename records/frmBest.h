// SPDX-License-Identifier: MIT
// The best-times screen: the three tables at once, nine names each over a level and a time.
#pragma once

#include "hot_spot.h"
#include "picture_dialog.h"

#include <QLabel>

class frmBest : public PictureDialog {
    Q_OBJECT

public:
    explicit frmBest(const DialogOwner &owner);

    // Fills the nine rows from the tables as they stand: index i is row i mod 3 + 1 of game i div 3 + 1.
    void Form_Load();
    void Image1_Click();

    // " en 1h 02min 05s " for 3725 seconds: hours unfilled, minutes and seconds on two digits.
    static QString FormatTemps(double t);

    QLabel *labNom[9];
    QLabel *labScore[9];
    HotSpot *Image1; // over the "Fermer" plate of the background

protected:
    void closeEvent(QCloseEvent *event) override;
};

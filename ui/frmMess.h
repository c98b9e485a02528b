// SPDX-License-Identifier: MIT
// The message dialog: a message, up to three label buttons and an optional one-line box.
#pragma once

#include "click_label.h"
#include "picture_dialog.h"

#include <QLineEdit>

class frmMess : public PictureDialog {
    Q_OBJECT

public:
    explicit frmMess(const DialogOwner &owner);

    void reponse_Click(int Index);

    QLabel *labMess;
    QLineEdit *txtReponse;
    ClickLabel *reponse[3];
    QLabel *imgB[3]; // 1 and 2 only: the first button's picture is part of the background
    QString Tag;     // the answer, read by the caller before the dialog is destroyed

protected:
    void closeEvent(QCloseEvent *event) override;
};

// Asks a question and gives the caption of the button clicked, or the text of the box when it is shown.
// An empty caption hides its button.
QString AfficheMess(const DialogOwner &owner, const QString &message, const QString &caption0, const QString &caption1, const QString &caption2,
                    bool boite, const QString &defaut);

// SPDX-License-Identifier: MIT
// A dialog made of a picture: borderless, the picture's size, centred on its parent, the main window,
// each time it shows. Only clicks on its own labels answer it: Escape and Enter do nothing.
#pragma once

#include "click_label.h"
#include "dialog_owner.h"

#include <QDialog>
#include <QImage>

class PictureDialog : public QDialog {
    Q_OBJECT

public:
    // `picture` names a picture of the art ("mess.jpg"), drawn for the screen of the parent.
    PictureDialog(const DialogOwner &owner, const QString &picture, const QString &caption);

    void setVisible(bool visible) override;

protected:
    // A button of the dialog: a label over the button plate at place 0, 1 or 2 from the top.
    ClickLabel *buttonLabel(int place, const QString &caption = QString());

    void paintEvent(QPaintEvent *event) override;

    Tambour &mTambour;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QString mPicture;
    QImage mFond;
    bool mPainted = false;
};

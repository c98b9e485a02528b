// A dialog made of a picture: borderless, the picture's size, centred on the main window each time it
// shows. Only clicks on its own labels answer it: Escape and Enter do nothing.
#pragma once

#include <QDialog>
#include <QImage>

class PictureDialog : public QDialog {
    Q_OBJECT

public:
    PictureDialog(QWidget *parent, const QString &picture, const QString &caption);

    void setVisible(bool visible) override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QImage mFond;
};

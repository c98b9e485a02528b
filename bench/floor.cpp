// SPDX-License-Identifier: MIT
// The floor of start-up: the least a Qt Widgets program does to show the same 600 x 600 picture as
// Marelle's window, in a frameless window of fixed size. bench/run times it beside Marelle.
#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QWidget>

class Picture : public QWidget {
public:
    Picture() { setAttribute(Qt::WA_OpaquePaintEvent); }

protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).drawImage(0, 0, mImage); }

private:
    QImage mImage{QStringLiteral(":/fond.jpg")};
};

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    Picture picture;
    picture.setWindowFlags(Qt::FramelessWindowHint);
    picture.setFixedSize(600, 600);
    picture.show();
    return app.exec();
}

// A picture surface: a widget that keeps a persistent image and shows it when refreshed.
#pragma once

#include <QImage>
#include <QWidget>

// Reads a picture in the format its suffix names. Qt reads BMP and PNG by itself, but when it has
// to guess it first loads every image format plugin to ask each whether it reads them.
QImage readPicture(const QString &path);

class Surface : public QWidget {
    Q_OBJECT

public:
    explicit Surface(QWidget *parent = nullptr);

    // The persistent image, drawn into by BitBlt; it has the surface's size.
    QImage image;

    // Gives the surface and its image a new size; the image starts black.
    void resizeSurface(int w, int h);
    // Loads a picture into the image and sizes the surface to it.
    void loadPicture(const QString &path);
    // Brings the image to the screen at once.
    void refresh();

signals:
    void mouseDown(Qt::MouseButton button, Qt::KeyboardModifiers shift, double x, double y);
    void clicked();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    Qt::MouseButtons mPressed; // the buttons whose press this surface took
};

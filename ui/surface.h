// SPDX-License-Identifier: MIT
// A picture surface: a widget that keeps a persistent image and shows it when refreshed.
#pragma once

#include <QImage>
#include <QPainter>
#include <QWidget>
#include <cstdint>
#include <vector>

// The scale of the art (1, 2 or 3) for a screen's device pixel ratio: the ratio itself when it is
// whole, else the next whole scale above it, which the painting then brings down smoothly.
int artScaleFor(qreal devicePixelRatio);
// The device pixel ratio of a window's screen; without a window, the application's.
qreal ratioOf(const QWidget *window);
// A picture of the program's art ("fond.jpg") as drawn for a scale ("fond@2x.jpg" for 2), opaque,
// with the scale as its device pixel ratio.
QImage artPicture(const QString &name, int scale);
// The resource path of that picture.
QString artPath(const QString &name, int scale);
// Asks the painter for smooth resampling where the picture's scale is not its device's.
void smoothIfScaled(QPainter &painter, const QImage &picture);

// Reads a picture in the format its suffix names. Qt reads BMP and PNG by itself, but when it has
// to guess it first loads every image format plugin to ask each whether it reads them.
QImage readPicture(const QString &path);

class Surface : public QWidget {
    Q_OBJECT

public:
    explicit Surface(QWidget *parent = nullptr);

    // The persistent image, drawn into by BitBlt. It holds the surface's size in logical pixels
    // times the scale in device pixels, and carries the scale as its device pixel ratio.
    QImage image;

    // Gives the surface and its image a new size; the image starts black.
    void resizeSurface(int w, int h);
    // Loads a picture of the art into the image and sizes the surface to it.
    void loadPicture(const QString &name);
    // Brings the image to the screen at once.
    void refresh();

    int scale() const { return mScale; }
    // Draws the image anew at another scale: the picture or the black it started from, then every
    // copy made into it since, read from its sources as they stand.
    void redrawAt(int scale);

    // A copy made into the image, in logical pixels, kept so that the image can be drawn again.
    struct Copy {
        QRect to;
        const Surface *from;
        QPoint fromAt;
        uint32_t rop;
    };
    // Keeps a copy; one that replaces a whole area drops those it covers, which it makes invisible.
    void keepCopy(const Copy &copy);
    const std::vector<Copy> &copies() const { return mCopies; }

signals:
    void mouseDown(Qt::MouseButton button, Qt::KeyboardModifiers shift, double x, double y);
    void clicked();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    Qt::MouseButtons mPressed; // the buttons whose press this surface took
    int mScale;
    QString mPicture;          // the picture the image started from; none for black
    std::vector<Copy> mCopies; // since then, in order
};

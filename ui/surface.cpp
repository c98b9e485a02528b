#include "surface.h"

#include <QFileInfo>
#include <QImageReader>
#include <QMouseEvent>
#include <QPainter>

QImage readPicture(const QString &path)
{
    QImageReader reader(path, QFileInfo(path).suffix().toLatin1());
    reader.setAutoDetectImageFormat(false);
    return reader.read();
}

Surface::Surface(QWidget *parent) : QWidget(parent) { setAttribute(Qt::WA_OpaquePaintEvent); }

void Surface::resizeSurface(int w, int h)
{
    image = QImage(w, h, QImage::Format_RGB32);
    image.fill(Qt::black);
    resize(w, h);
}

void Surface::loadPicture(const QString &path)
{
    image = readPicture(path).convertToFormat(QImage::Format_RGB32);
    resize(image.size());
}

void Surface::refresh() { repaint(); }

void Surface::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    painter.drawImage(event->rect(), image, event->rect());
}

void Surface::mousePressEvent(QMouseEvent *event)
{
    mPressed |= event->button();
    emit mouseDown(event->button(), event->modifiers(), event->position().x(), event->position().y());
}

void Surface::mouseReleaseEvent(QMouseEvent *event)
{
    // A release whose press came while the window took no input is no click.
    const bool pressedHere = mPressed & event->button();
    mPressed &= ~event->button();
    if (pressedHere && rect().contains(event->position().toPoint())) emit clicked();
}

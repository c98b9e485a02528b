// SPDX-License-Identifier: MIT
#include "surface.h"

#include "bitblt.h"
#include "prefault.h"

#include <QApplication>
#include <QFileInfo>
#include <QImageReader>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

QImage readPicture(const QString &path)
{
    QImageReader reader(path, QFileInfo(path).suffix().toLatin1());
    reader.setAutoDetectImageFormat(false);
    // The reader decodes into an image of the size and format it announces when it is given one:
    // made here, its memory is mapped in one go.
    QImage picture(reader.size(), reader.imageFormat());
    prefault(picture.constBits(), picture.sizeInBytes());
    return reader.read(&picture) ? picture : QImage();
}

void smoothIfScaled(QPainter &painter, const QImage &picture)
{
    // At the picture's own scale each pixel is copied as it is, which the paint engine does
    // fastest unsmoothed; on a screen whose ratio lies between two scales of the art, the picture
    // is brought to it smoothly.
    if (!qFuzzyCompare(painter.device()->devicePixelRatioF(), picture.devicePixelRatio()))
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
}

qreal ratioOf(const QWidget *window) { return window ? window->devicePixelRatioF() : qApp->devicePixelRatio(); }

int artScaleFor(qreal devicePixelRatio)
{
    // A ratio a hair above a whole number is that number, not the next one.
    return std::clamp(static_cast<int>(std::ceil(devicePixelRatio - 0.01)), 1, 3);
}

QString artPath(const QString &name, int scale)
{
    if (scale == 1) return QStringLiteral(":/art/") + name;
    return QStringLiteral(":/art/%1@%2x.%3").arg(name.section(u'.', 0, 0)).arg(scale).arg(name.section(u'.', 1));
}

QImage artPicture(const QString &name, int scale)
{
    QImage picture = readPicture(artPath(name, scale)).convertToFormat(QImage::Format_RGB32);
    picture.setDevicePixelRatio(scale);
    return picture;
}

namespace {

// A black image of `logical` pixels at a scale, its memory mapped in one go before it is filled.
QImage blackImage(QSize logical, int scale)
{
    QImage black(logical * scale, QImage::Format_RGB32);
    prefault(black.constBits(), black.sizeInBytes());
    black.setDevicePixelRatio(scale);
    black.fill(Qt::black);
    return black;
}

} // namespace

Surface::Surface(QWidget *parent) : QWidget(parent), mScale(artScaleFor(devicePixelRatioF()))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void Surface::resizeSurface(int w, int h)
{
    mPicture.clear();
    mCopies.clear();
    image = blackImage(QSize(w, h), mScale);
    resize(w, h);
}

void Surface::loadPicture(const QString &name)
{
    mPicture = name;
    mCopies.clear();
    image = artPicture(name, mScale);
    resize(image.deviceIndependentSize().toSize());
}

void Surface::refresh() { repaint(); }

void Surface::redrawAt(int scale)
{
    const QSize logical = image.deviceIndependentSize().toSize();
    mScale = scale;
    image = mPicture.isEmpty() ? blackImage(logical, scale) : artPicture(mPicture, scale);
    for (const Copy &copy : mCopies)
        BitBlt(image, copy.to.x(), copy.to.y(), copy.to.width(), copy.to.height(), copy.from->image, copy.fromAt.x(),
               copy.fromAt.y(), copy.rop);
}

void Surface::keepCopy(const Copy &copy)
{
    if (copy.rop == SRCCOPY) std::erase_if(mCopies, [&](const Copy &earlier) { return copy.to.contains(earlier.to); });
    mCopies.push_back(copy);
}

void Surface::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    smoothIfScaled(painter, image);
    // Rectangle by rectangle: within one rectangle the paint engine copies the pixels row by row,
    // where within a region of several (a window around its opaque children) it blends them span
    // by span, on threads started for the purpose.
    for (const QRect &area : event->region()) {
        painter.setClipRect(area);
        painter.drawImage(area, image, QRect(area.topLeft() * mScale, area.size() * mScale));
    }
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

// SPDX-License-Identifier: MIT
#include "hot_spot.h"

#include <QMouseEvent>

HotSpot::HotSpot(QWidget *parent) : QWidget(parent) {}

void HotSpot::mousePressEvent(QMouseEvent *event)
{
    mPressed |= event->button();
    emit mouseDown(event->button(), event->modifiers(), event->position().x(), event->position().y());
}

void HotSpot::mouseMoveEvent(QMouseEvent *event)
{
    emit mouseMove(event->buttons(), event->modifiers(), event->position().x(), event->position().y());
}

void HotSpot::mouseReleaseEvent(QMouseEvent *event)
{
    emit mouseUp(event->button(), event->modifiers(), event->position().x(), event->position().y());
    const bool pressedHere = mPressed & event->button();
    mPressed &= ~event->button();
    if (pressedHere && event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        emit clicked();
}

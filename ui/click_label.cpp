// SPDX-License-Identifier: MIT
#include "click_label.h"

#include <QMouseEvent>

ClickLabel::ClickLabel(QWidget *parent) : QLabel(parent) {}

void ClickLabel::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) emit clicked();
}

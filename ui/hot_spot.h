// SPDX-License-Identifier: MIT
// A transparent area of a window that takes the mouse: the drag strip and the menu buttons.
#pragma once

#include <QWidget>

class HotSpot : public QWidget {
    Q_OBJECT

public:
    explicit HotSpot(QWidget *parent = nullptr);

signals:
    void mouseDown(Qt::MouseButton button, Qt::KeyboardModifiers shift, double x, double y);
    void mouseMove(Qt::MouseButtons buttons, Qt::KeyboardModifiers shift, double x, double y);
    void mouseUp(Qt::MouseButton button, Qt::KeyboardModifiers shift, double x, double y);
    // A press and release of the left button over the area, the press taken while the area took input.
    void clicked();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    Qt::MouseButtons mPressed; // the buttons whose press this area took
};

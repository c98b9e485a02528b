// SPDX-License-Identifier: MIT
// A label that answers a click: the buttons of the dialogs are labels over button pictures.
#pragma once

#include <QLabel>

class ClickLabel : public QLabel {
    Q_OBJECT

public:
    explicit ClickLabel(QWidget *parent = nullptr);

signals:
    // A press and release of the left button over the label.
    void clicked();

protected:
    void mouseReleaseEvent(QMouseEvent *event) override;
};

// SPDX-License-Identifier: MIT
#include "picture_dialog.h"

#include "fonts.h"
#include "pointers.h"
#include "prefault.h"
#include "surface.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>

PictureDialog::PictureDialog(const DialogOwner &owner, const QString &picture, const QString &caption)
    : QDialog(owner.window, Qt::Dialog | Qt::FramelessWindowHint), mTambour(owner.tambour), mPicture(picture),
      mFond(artPicture(picture, artScaleFor(ratioOf(owner.window))))
{
    setWindowTitle(caption);
    setFixedSize(mFond.deviceIndependentSize().toSize());
}

void PictureDialog::setVisible(bool visible)
{
    if (visible)
        if (QWidget *owner = parentWidget()) move(owner->geometry().center() - rect().center());
    QDialog::setVisible(visible);
}

void PictureDialog::paintEvent(QPaintEvent *)
{
    if (const int scale = artScaleFor(devicePixelRatioF()); scale != mFond.devicePixelRatio())
        mFond = artPicture(mPicture, scale);
    if (!mPainted) prefaultBackingStore(this);
    mPainted = true;
    QPainter painter(this);
    smoothIfScaled(painter, mFond);
    painter.drawImage(rect(), mFond);
}

void PictureDialog::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return;
    QDialog::keyPressEvent(event);
}

ClickLabel *PictureDialog::buttonLabel(int place, const QString &caption)
{
    auto *label = new ClickLabel(this);
    label->setText(caption);
    label->setGeometry(100, 189 + 34 * place, 180, 27);
    label->setFont(boldArial(19));
    label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    label->setStyleSheet(QStringLiteral("color: black; background: transparent;"));
    label->setCursor(customPointer(parentWidget()));
    return label;
}

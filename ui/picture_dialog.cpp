#include "picture_dialog.h"

#include "fonts.h"
#include "frmFond.h"
#include "pointers.h"

#include <QKeyEvent>
#include <QPainter>

PictureDialog::PictureDialog(QWidget *parent, const QString &picture, const QString &caption)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint), mFond(readPicture(picture))
{
    setWindowTitle(caption);
    setFixedSize(mFond.size());
}

void PictureDialog::setVisible(bool visible)
{
    if (visible)
        if (QWidget *fond = mainWindow()) move(fond->geometry().center() - rect().center());
    QDialog::setVisible(visible);
}

void PictureDialog::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.drawImage(0, 0, mFond);
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
    label->setCursor(customPointer());
    return label;
}

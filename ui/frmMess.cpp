// SPDX-License-Identifier: MIT
#include "frmMess.h"

#include "fonts.h"
#include "pointers.h"
#include "sound.h"
#include "sound_cues.h"
#include "surface.h"

#include <QCloseEvent>

frmMess::frmMess(const DialogOwner &owner)
    : PictureDialog(owner, QStringLiteral("mess.jpg"), QStringLiteral("Message"))
{

    imgB[0] = nullptr;
    for (int i = 1; i <= 2; ++i) {
        imgB[i] = new QLabel(this);
        imgB[i]->setPixmap(
            QPixmap::fromImage(artPicture(QStringLiteral("bouton.bmp"), artScaleFor(ratioOf(owner.window)))));
        imgB[i]->setGeometry(100, 186 + 34 * i, 180, 30);
    }

    labMess = new QLabel(this);
    labMess->setGeometry(32, 54, 238, 108);
    labMess->setFont(boldArial(16));
    labMess->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    labMess->setWordWrap(true);
    labMess->setTextFormat(Qt::PlainText);
    labMess->setStyleSheet(QStringLiteral("color: black; background: transparent;"));

    txtReponse = new QLineEdit(this);
    txtReponse->setGeometry(24, 133, 251, 29);
    txtReponse->setFont(boldArial(19));
    txtReponse->setMaxLength(16);
    txtReponse->setStyleSheet(QStringLiteral("background: #E0E0E0;"));

    for (int i = 0; i < 3; ++i) {
        reponse[i] = buttonLabel(i);
        connect(reponse[i], &ClickLabel::clicked, this, [this, i] { reponse_Click(i); });
    }
}

void frmMess::reponse_Click(int Index)
{
    JoueSon(mTambour, cue::kClick);
    Tag = !txtReponse->isHidden() ? txtReponse->text() : reponse[Index]->text();
    hide();
}

void frmMess::closeEvent(QCloseEvent *event) { event->ignore(); }

QString AfficheMess(const DialogOwner &owner, const QString &message, const QString &caption0, const QString &caption1, const QString &caption2,
                    bool boite, const QString &defaut)
{
    auto *mess = new frmMess(owner);
    mess->labMess->setText(QString(message).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    for (int i = 0; i < 3; ++i) mess->reponse[i]->hide();
    mess->imgB[1]->hide();
    mess->imgB[2]->hide();
    mess->txtReponse->hide();
    if (!caption0.isEmpty()) {
        mess->reponse[0]->setText(caption0);
        mess->reponse[0]->show();
    }
    if (!caption1.isEmpty()) {
        mess->imgB[1]->show();
        mess->reponse[1]->setText(caption1);
        mess->reponse[1]->show();
    }
    if (!caption2.isEmpty()) {
        mess->imgB[2]->show();
        mess->reponse[2]->setText(caption2);
        mess->reponse[2]->show();
    }
    if (boite) {
        mess->txtReponse->setText(defaut);
        mess->txtReponse->show();
    }
    JoueSon(owner.tambour, cue::kDialog);
    mess->exec();
    const QString answer = mess->Tag;
    delete mess;
    return answer;
}

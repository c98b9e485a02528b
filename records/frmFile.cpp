// SPDX-License-Identifier: MIT
#include "frmFile.h"

#include "fonts.h"
#include "pointers.h"
#include "sound.h"
#include "sound_cues.h"

#include <QCloseEvent>

frmFile::frmFile(const DialogOwner &owner, const FileList &files)
    : PictureDialog(owner, QStringLiteral("file.jpg"), QStringLiteral("Selecteur fichier")), mFiles(files)
{
    setWindowTitle(QStringLiteral("Selecteur fichier"));
    setFixedSize(300, 300);

    labMess = new QLabel(QStringLiteral("Choisissez votre fichier :"), this);
    labMess->setGeometry(33, 30, 238, 20);
    labMess->setFont(boldArial(16));
    labMess->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    labMess->setStyleSheet(QStringLiteral("color: black; background: transparent;"));

    for (int i = 0; i < 5; ++i) {
        labF[i] = new ClickLabel(this);
        labF[i]->setGeometry(22, 58 + 22 * i, 230, 20);
        labF[i]->setFont(boldArial(16));
        labF[i]->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
        labF[i]->setTextFormat(Qt::PlainText);
        labF[i]->setCursor(customPointer(owner.window));
        QPalette palette = labF[i]->palette();
        palette.setColor(QPalette::Window, QColor(128, 128, 128));
        labF[i]->setPalette(palette);
        connect(labF[i], &ClickLabel::clicked, this, [this, i] { labF_Click(i); });
    }

    for (int i = 0; i < 2; ++i) {
        imgScroll[i] = new HotSpot(this);
        imgScroll[i]->setGeometry(255, 59 + 52 * i, 20, 51);
        imgScroll[i]->setAccessibleName(i == 0 ? QStringLiteral("Défiler vers le haut")
                                               : QStringLiteral("Défiler vers le bas"));
        connect(imgScroll[i], &HotSpot::clicked, this, [this, i] { imgScroll_Click(i); });

        reponse[i] = buttonLabel(i, i == 0 ? QStringLiteral("Charger") : QStringLiteral("Annuler"));
        connect(reponse[i], &ClickLabel::clicked, this, [this, i] { reponse_Click(i); });
    }
}

void frmFile::Form_Load()
{
    mPremier = 0;
    mChoix = -1;
    clearNames();
    mDernier = mFiles.ListCount() - 1;
    for (int32_t i = 0; i <= mDernier && i < 5; ++i) labF[i]->setText(shownName(i));
}

void frmFile::imgScroll_Click(int Index)
{
    // Up looks one step further than down does: from anywhere below 8 it goes straight to the top.
    if (Index == 0) {
        mPremier -= 4;
        if (mPremier - 4 < 0) mPremier = 0;
    } else {
        mPremier += 4;
        if (mPremier + 4 > mDernier) mPremier = mDernier - 4;
        if (mPremier < 0) mPremier = 0;
    }
    clearNames();
    JoueSon(mTambour, cue::kClick);
    for (int32_t i = mPremier; i <= mPremier + 4 && i <= mDernier; ++i) labF[i - mPremier]->setText(shownName(i));
    mChoix = -1;
}

void frmFile::labF_Click(int Index)
{
    if (labF[Index]->text().isEmpty()) return;
    for (int i = 0; i < 5; ++i) setMarked(i, false);
    JoueSon(mTambour, cue::kClick);
    setMarked(Index, true);
    mChoix = mPremier + Index;
}

void frmFile::reponse_Click(int Index)
{
    JoueSon(mTambour, cue::kClick);
    if (Index == 0) {
        if (mChoix == -1) return;
        Tag = shownName(mChoix);
    } else {
        Tag.clear();
    }
    hide();
}

void frmFile::clearNames()
{
    for (int i = 0; i < 5; ++i) {
        labF[i]->clear();
        setMarked(i, false);
    }
}

// The marked label is filled with the grey of its palette; the others let the frame show through.
void frmFile::setMarked(int index, bool marked) { labF[index]->setAutoFillBackground(marked); }

QString frmFile::shownName(int32_t index) const
{
    const QString name = mFiles.List(index);
    return name.left(qMax(0, name.size() - 4));
}

// The window system's close answers nothing, as "Annuler" does.
void frmFile::closeEvent(QCloseEvent *event)
{
    event->ignore();
    if (!isVisible()) return;
    Tag.clear();
    hide();
}

// SPDX-License-Identifier: MIT
// The saved-game chooser: the names of a file list, five at a time, one of them marked.
#pragma once

#include "click_label.h"
#include "file_list.h"
#include "hot_spot.h"
#include "picture_dialog.h"

#include <cstdint>

class frmFile : public PictureDialog {
    Q_OBJECT

public:
    // Shows the names of `files`, the main window's list, as it stands at each Form_Load.
    frmFile(const DialogOwner &owner, const FileList &files);

    // Shows the first five names, none marked.
    void Form_Load();
    // 0 moves the view up, any other index down, four names at a time; the mark is dropped.
    void imgScroll_Click(int Index);
    // Marks the name of a filled label.
    void labF_Click(int Index);
    // 0 "Charger" answers the marked name, once one is marked; any other index answers nothing.
    void reponse_Click(int Index);

    QLabel *labMess;
    ClickLabel *labF[5];
    HotSpot *imgScroll[2];
    ClickLabel *reponse[2];

    int32_t mPremier = 0;  // list index of the name in labF(0)
    int32_t mChoix = -1;   // list index of the marked name, -1 when none is
    int32_t mDernier = -1; // list index of the last name
    QString Tag;           // the answer: a name without its extension, or empty

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    // Empties the five labels and drops the mark from them.
    void clearNames();
    void setMarked(int index, bool marked);
    // The list entry at an index without its last four characters, the extension.
    QString shownName(int32_t index) const;

    const FileList &mFiles;
};

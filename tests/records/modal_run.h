// Runs a record dialog the way play control does, with a player acting on it once it is up.
#pragma once

#include "frmFond.h"
#include "modal_answer.h"
#include "pause.h"

#include <QTest>
#include <functional>
#include <memory>

// The program started at its idle window, with the cues heard so far forgotten.
inline std::unique_ptr<frmFond> startedWindow()
{
    pauseScale() = 0.01;
    auto fond = std::make_unique<frmFond>();
    if (!fond->Form_Load()) return nullptr;
    fond->show();
    if (!QTest::qWaitForWindowExposed(fond.get())) return nullptr;
    fond->tambour.played.clear();
    return fond;
}

// Shows the dialog modally and lets the player act on it. True when the player's acts ended the modal
// display; a dialog still up afterwards is hidden here, so that a failed check cannot hang the test.
template <class Dialog>
bool execWith(Dialog *dialog, std::function<void(Dialog *)> player)
{
    bool leftOpen = false;
    whenModal([&leftOpen, player](QWidget *shown) {
        if (auto *ours = qobject_cast<Dialog *>(shown))
            player(ours);
        else
            QTest::qFail("another dialog is up", __FILE__, __LINE__);
        leftOpen = shown->isVisible();
        if (leftOpen) shown->hide();
    });
    dialog->exec();
    return !leftOpen;
}

// SPDX-License-Identifier: MIT
// The program as every test of the real window starts it.
#pragma once

#include "frmFond.h"
#include "pause.h"

#include <QTest>
#include <memory>

// The program started at its idle window, with pauses a hundred times shorter and the cues heard so far
// forgotten; null when it did not start.
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

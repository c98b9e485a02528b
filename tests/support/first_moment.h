// SPDX-License-Identifier: MIT
// A look at the program at a moment inside one of its own waits, such as the pause after a won level.
#pragma once

#include <QTest>
#include <QTimer>
#include <functional>

// Runs an action once, at the first turn of the event loop at which the condition holds.
class Probe {
public:
    Probe(std::function<bool()> when, std::function<void()> act)
    {
        mTimer.setInterval(0);
        QObject::connect(&mTimer, &QTimer::timeout, [this, when, act] {
            if (fired || !when()) return;
            fired = true;
            mTimer.stop();
            act();
        });
        mTimer.start();
    }
    bool fired = false;

private:
    QTimer mTimer;
};

// The clicks that a window with its input off turns away: the warning of each press and release.
inline void expectRefusedClicks(int clicks)
{
    for (int i = 0; i < clicks; ++i) {
        QTest::ignoreMessage(QtWarningMsg, "Mouse event \"MousePress\" not accepted by receiving widget");
        QTest::ignoreMessage(QtWarningMsg, "Mouse event \"MouseRelease\" not accepted by receiving widget");
    }
}

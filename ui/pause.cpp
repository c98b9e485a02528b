// SPDX-License-Identifier: MIT
#include "pause.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <cmath>

double &pauseScale()
{
    static double scale = 1.0;
    return scale;
}

void Pause(double secondes)
{
    const qint64 limit = std::llround(secondes * pauseScale() * 1e9);
    QElapsedTimer clock;
    clock.start();
    QEventLoop loop;
    QTimer wake;
    wake.setSingleShot(true);
    wake.setTimerType(Qt::PreciseTimer);
    QObject::connect(&wake, &QTimer::timeout, &loop, &QEventLoop::quit);
    while (clock.nsecsElapsed() <= limit) {
        wake.start(static_cast<int>((limit - clock.nsecsElapsed()) / 1000000) + 1);
        loop.exec();
    }
}

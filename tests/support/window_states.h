// SPDX-License-Identifier: MIT
// The states the window goes through in a game, each checked whole: in play, in the pause after a
// won level, at the close of a finished game, and idle.
#pragma once

#include "frmFond.h"
#include "modBase.h"
#include "sprite_pixels.h"

#include <QApplication>
#include <QTest>

// The menu column shows the art of the idle window, or of a game in play.
inline bool menuShowsIdleArt(const frmFond &fond, bool idle)
{
    return fond.image.copy(devicePixels(fond.image, {0, 130, 80, 375}))
           == fond.pctMenu->image.copy(devicePixels(fond.pctMenu->image, {idle ? 0 : 80, 0, 80, 375}));
}

inline void verifyScreensShown(const frmFond &fond, int game)
{
    const Surface *screens[] = {fond.pctEcran1, fond.pctEcran2, fond.pctEcran3};
    for (int i = 0; i < 3; ++i) QCOMPARE(screens[i]->isVisible(), i + 1 == game);
}

// Both labels shown, with the level's number on three digits and the seconds given.
inline void verifyLabels(const frmFond &fond, int level, const QString &seconds)
{
    QVERIFY(fond.labNiveau->isVisible());
    QCOMPARE(fond.labNiveau->text(), QStringLiteral("%1").arg(level, 3, 10, QLatin1Char('0')));
    QVERIFY(fond.labTemps->isVisible());
    QCOMPARE(fond.labTemps->text(), seconds);
}

// A level in play: the game's own screen the only one shown, the labels, the clock running, input on.
inline void verifyPlaying(const frmFond &fond, int game, int level, const QString &seconds)
{
    QCOMPARE(gJeu, game);
    QCOMPARE(gNiveau, level);
    verifyLabels(fond, level, seconds);
    verifyScreensShown(fond, game);
    QVERIFY(fond.myTimer.isActive());
    QVERIFY(fond.isEnabled());
}

// The pause after a won level that is not the last: the labels keep the level just won and its
// seconds, the clock is stopped, input is off, the seconds have joined the total, the game is to save.
inline void verifyPaused(const frmFond &fond, int level, const QString &seconds, double total)
{
    QCOMPARE(gNiveau, level);
    verifyLabels(fond, level, seconds);
    QVERIFY(!fond.myTimer.isActive());
    QVERIFY(!fond.isEnabled());
    QCOMPARE(gTempsTotal, total);
    QCOMPARE(gTempsNiveau, 0.0);
    QVERIFY(gASauver);
}

// The close of a finished game, before its message: the screens gone at once, the labels still up,
// the clock stopped, input off, the total kept, no dialog yet.
inline void verifyClosing(const frmFond &fond, double total)
{
    QCOMPARE(gNiveau, 999);
    verifyScreensShown(fond, 0);
    QVERIFY(fond.labNiveau->isVisible());
    QVERIFY(fond.labTemps->isVisible());
    QVERIFY(!fond.myTimer.isActive());
    QVERIFY(!fond.isEnabled());
    QCOMPARE(gTempsTotal, total);
    QVERIFY(!QApplication::activeModalWidget());
}

// The idle window: no game, no screen, no labels, no clock, nothing to save, the idle menu art.
inline void verifyIdle(const frmFond &fond)
{
    QCOMPARE(gJeu, 0);
    QCOMPARE(gNiveau, 0);
    QVERIFY(!gASauver);
    QVERIFY(gNomPartie.isEmpty());
    QVERIFY(fond.isEnabled());
    QVERIFY(!fond.myTimer.isActive());
    QVERIFY(!fond.labNiveau->isVisible());
    QVERIFY(!fond.labTemps->isVisible());
    verifyScreensShown(fond, 0);
    QVERIFY(menuShowsIdleArt(fond, true));
}

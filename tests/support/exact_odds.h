// A player's measured figure of moves per win against the exact figure worked out over all of the
// player's choices.
#pragma once

#include <QString>
#include <QtGlobal>

#include <cmath>
#include <string>

// The exact chance that the player wins from the start, and the moves it makes on the way.
struct ExactOdds {
    double win = 0;
    double moves = 0;
};

// Empty when the measured figure equals the exact one where the player cannot fail, and lies within
// a quarter of it where it can; else what differs.
inline QString measuredAgainstExact(const std::string &level, double measured, ExactOdds exact)
{
    const double expected = exact.moves / exact.win;
    const bool close = exact.win < 1 ? std::abs(measured / expected - 1) < 0.25 : qFuzzyCompare(measured, expected);
    return close ? QString() : QStringLiteral("%1: %2 measured, %3 exact").arg(level.c_str()).arg(measured).arg(expected);
}

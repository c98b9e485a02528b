// SPDX-License-Identifier: MIT
// The best-times file built by hand: nine quoted lines, three rows for each game.
#pragma once

#include <QByteArrayList>

// An empty row: level and seconds at zero, the name all dots.
inline const QByteArray kEmptyTimesLine = "\"00000000000................\"\r\n";

// One row: the level on 3 digits, the seconds on 8, the name filled with spaces to 16.
inline QByteArray timesLine(int level, int seconds, const QByteArray &name)
{
    return '"' + QByteArray::number(level).rightJustified(3, '0') + QByteArray::number(seconds).rightJustified(8, '0')
           + name.leftJustified(16, ' ') + "\"\r\n";
}

// The whole file: the first rows of the given game (1 to 3) as given, every other row empty.
inline QByteArray timesFile(int game = 1, QByteArrayList rows = {})
{
    while (rows.size() < 3) rows << kEmptyTimesLine;
    return kEmptyTimesLine.repeated(3 * (game - 1)) + rows.join() + kEmptyTimesLine.repeated(3 * (3 - game));
}

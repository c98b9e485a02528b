// SPDX-License-Identifier: MIT
// The lines of the best-times file: a quoted text of 27 characters per row, the level on 3 digits,
// the time on 8 and the name on 16, then CR LF.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <cstdint>

struct BestRow {
    int32_t niveau = 0;
    double temps = 0;
    QString nom;
};

// The 27 characters of a row; a value too long for its field loses its leading digits or its tail.
QString bestText(const BestRow &row);
// The whole line as written: quotes, code page, CR LF.
QByteArray bestLine(const BestRow &row);
// A row taken apart as written; a piece that does not start with a number counts as 0, and numbers
// are brought within what the program writes: a level from 0 to 999, a time from 0 to 356400.
BestRow parseBestText(const QString &text);
// The rows of a file in order, one for each line that is not blank, at most nine: a damaged line
// costs that line alone.
QList<BestRow> readBestRows(const QByteArray &file);

// The number at the start of a text, blanks ignored; 0 when there is none.
double leadingNumber(const QString &text);

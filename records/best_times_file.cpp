// SPDX-License-Identifier: MIT
#include "best_times_file.h"

#include "blanks.h"
#include "codepage.h"

#include <algorithm>
#include <cmath>

double leadingNumber(const QString &text)
{
    QString number;
    bool digits = false;
    bool point = false;
    for (QChar c : text) {
        if (c == QLatin1Char(' ') || c == QLatin1Char('\t')) continue;
        if (c.isDigit() && c.unicode() < 128) {
            number.append(c);
            digits = true;
        } else if ((c == QLatin1Char('-') || c == QLatin1Char('+')) && number.isEmpty()) {
            number.append(c);
        } else if (c == QLatin1Char('.') && !point) {
            number.append(c);
            point = true;
        } else {
            break;
        }
    }
    return digits ? number.toDouble() : 0.0;
}

QString bestText(const BestRow &row)
{
    const QString niveau = (QStringLiteral("000") + QString::number(row.niveau)).right(3);
    const QString temps = (QStringLiteral("00000000") + QString::number(static_cast<qint64>(row.temps))).right(8);
    const QString nom = (row.nom + QString(16, QLatin1Char(' '))).left(16);
    return niveau + temps + nom;
}

QByteArray bestLine(const BestRow &row) { return '"' + toCodePage(bestText(row)) + "\"\r\n"; }

BestRow parseBestText(const QString &text)
{
    BestRow row;
    // Whole numbers within what the program writes, halves going to the even neighbour: a garbled line
    // cannot bring a value that would not write back as it reads, nor a time past the cap.
    row.niveau = static_cast<int32_t>(std::clamp(std::nearbyint(leadingNumber(text.left(3))), 0.0, 999.0));
    row.temps = std::clamp(std::nearbyint(leadingNumber(text.mid(3, 8))), 0.0, 356400.0);
    row.nom = trimBlanks(text.right(16));
    return row;
}

namespace {

// The text of a line: from its opening quote to the last quote, or to its end when it has no closing
// one; blanks before the opening quote are passed over.
QByteArray lineText(const QByteArray &line)
{
    const qsizetype open = line.indexOf('"');
    if (open < 0 || !line.left(open).trimmed().isEmpty()) return line;
    const qsizetype close = line.lastIndexOf('"');
    return close > open ? line.mid(open + 1, close - open - 1) : line.mid(open + 1);
}

} // namespace

QList<BestRow> readBestRows(const QByteArray &file)
{
    QList<BestRow> rows;
    const QByteArrayList lines = QByteArray(file).replace("\r\n", "\n").replace('\r', '\n').split('\n');
    for (const QByteArray &line : lines) {
        if (rows.size() == 9) break;
        if (!line.trimmed().isEmpty()) rows.append(parseBestText(fromCodePage(lineText(line))));
    }
    return rows;
}

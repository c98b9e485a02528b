#include "best_times_file.h"

#include "blanks.h"
#include "codepage.h"
#include "text_fields.h"

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
    // Whole numbers that fit their fields, halves going to the even neighbour: a garbled line cannot
    // bring a value that would not write back as it reads.
    row.niveau = static_cast<int32_t>(std::clamp(std::nearbyint(leadingNumber(text.left(3))), 0.0, 999.0));
    row.temps = std::clamp(std::nearbyint(leadingNumber(text.mid(3, 8))), 0.0, 99999999.0);
    row.nom = trimBlanks(text.right(16));
    return row;
}

QList<BestRow> readBestRows(const QByteArray &file)
{
    QList<BestRow> rows;
    FieldReader fields(file);
    while (rows.size() < 9) {
        const std::optional<QByteArray> field = fields.next();
        if (!field) break;
        rows.append(parseBestText(fromCodePage(*field)));
    }
    return rows;
}

// SPDX-License-Identifier: MIT
#include "codepage.h"

#include "blanks.h"

#include <QList>

namespace {

// Bytes 0x80 to 0x9F; 0 where the code page defines no character: those five bytes stand for the
// control characters of the same number, so that any byte reads and writes back unchanged.
constexpr char16_t kHighControls[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};

char byteFor(char16_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(c);
    for (int i = 0; i < 32; ++i)
        if (kHighControls[i] == c || (kHighControls[i] == 0 && c == 0x80 + i)) return static_cast<char>(0x80 + i);
    return '?';
}

} // namespace

QByteArray toCodePage(const QString &text)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (QChar c : text) bytes.append(byteFor(c.unicode()));
    return bytes;
}

QString fromCodePage(const QByteArray &bytes)
{
    QString text;
    text.reserve(bytes.size());
    for (char b : bytes) {
        const auto u = static_cast<unsigned char>(b);
        if (u >= 0x80 && u <= 0x9F)
            text.append(QChar(kHighControls[u - 0x80] ? kHighControls[u - 0x80] : char16_t(u)));
        else
            text.append(QChar(u));
    }
    return text;
}

bool inCodePage(char32_t c) { return c == U'?' || (c <= 0xFFFF && byteFor(static_cast<char16_t>(c)) != '?'); }

QString storableName(const QString &name)
{
    QString text;
    for (char32_t c : name.toUcs4()) {
        if (c == U'"')
            text += QLatin1Char('\'');
        else if (QChar::category(c) == QChar::Other_Control)
            text += QLatin1Char(' ');
        else
            text += inCodePage(c) ? QChar(static_cast<char16_t>(c)) : QLatin1Char('?');
    }
    return trimBlanks(trimBlanks(text).left(16));
}

QString playerName(const QString &typed)
{
    // An accent typed as a mark of its own joins its letter where the code page has the two as one.
    const QString composed = typed.normalized(QString::NormalizationForm_C);
    QString upper;
    for (char32_t c : (composed.size() <= typed.size() ? composed : typed).toUcs4()) {
        const char32_t capital = QChar::toUpper(c);
        upper += QString::fromUcs4(inCodePage(capital) ? &capital : &c, 1);
    }
    return storableName(upper);
}

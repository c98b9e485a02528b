// SPDX-License-Identifier: MIT
// Windows-1252, the 8-bit code page of the best-times file and the saved games, so that both can be
// carried to and from Windows systems, accents included.
#pragma once

#include <QByteArray>
#include <QString>

// One byte per character; a character the code page lacks becomes '?'.
QByteArray toCodePage(const QString &text);
QString fromCodePage(const QByteArray &bytes);

// Whether the code page holds the character, so that it writes and reads back unchanged.
bool inCodePage(char32_t c);

// A name as both files hold it and give it back: a double quote becomes ', a control character a
// blank and any other character outside the code page '?'; trimmed of blanks, 16 characters at most.
QString storableName(const QString &name);

// The name typed at the name question: each letter upper-cased where its capital is one character of
// the code page, kept as it is otherwise, then made storable. It never grows.
QString playerName(const QString &typed);

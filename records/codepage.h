// Windows-1252, the 8-bit code page of the best-times file and the saved games, so that both can be
// carried to and from Windows systems, accents included.
#pragma once

#include <QByteArray>
#include <QString>

// One byte per character; a character the code page lacks becomes '?'.
QByteArray toCodePage(const QString &text);
QString fromCodePage(const QByteArray &bytes);

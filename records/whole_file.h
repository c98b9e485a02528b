// Replacing a file whole or not at all: a full disk, a removed folder or a crash never leaves half
// a file, and the old one stays as it was.
#pragma once

#include <QByteArray>
#include <QString>

bool writeWholeFile(const QString &path, const QByteArray &bytes);

// SPDX-License-Identifier: MIT
// Whole files as bytes, for tests that check what lands on disk.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QTest>

inline QByteArray readAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline void writeAll(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

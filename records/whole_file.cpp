#include "whole_file.h"

#include <QSaveFile>

bool writeWholeFile(const QString &path, const QByteArray &bytes)
{
    // Unbuffered, so that a write cut short by a full disk is seen here and not hidden in a flush.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) return false;
    if (file.write(bytes) != bytes.size()) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

// SPDX-License-Identifier: MIT
// The window's file list: the names of the plain files of one folder that match a pattern,
// without folder, sorted by name ignoring case. It reads the folder only when refreshed.
#pragma once

#include <QString>
#include <QStringList>

class FileList {
public:
    explicit FileList(const QString &pattern);

    QString Path;
    QString Pattern;

    void Refresh();
    int ListCount() const;
    QString List(int index) const;

private:
    QStringList mNames;
};

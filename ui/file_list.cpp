// SPDX-License-Identifier: MIT
#include "file_list.h"

#include <QDir>

FileList::FileList(const QString &pattern) : Pattern(pattern) {}

void FileList::Refresh()
{
    QDir folder(Path.isEmpty() ? QStringLiteral(".") : Path);
    folder.setNameFilters({Pattern});
    folder.setFilter(QDir::Files | QDir::Hidden);
    folder.setSorting(QDir::Name | QDir::IgnoreCase);
    mNames = folder.entryList();
}

int FileList::ListCount() const { return static_cast<int>(mNames.size()); }

QString FileList::List(int index) const { return index >= 0 && index < mNames.size() ? mNames.at(index) : QString(); }

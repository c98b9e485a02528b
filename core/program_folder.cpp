// SPDX-License-Identifier: MIT
#include "program_folder.h"

#include <QDir>

QString withTrailingSeparator(const QString &folder)
{
    const QString native = QDir::toNativeSeparators(folder);
    return native.endsWith(QDir::separator()) ? native : native + QDir::separator();
}

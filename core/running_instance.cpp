// SPDX-License-Identifier: MIT
#include "running_instance.h"

#include <QDir>
#include <QStandardPaths>

std::unique_ptr<QLockFile> lockSingleInstance()
{
    QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folder.isEmpty()) folder = QDir::tempPath();
    auto lock = std::make_unique<QLockFile>(folder + QStringLiteral("/marelle.lock"));
    // A lock left by an instance that died is stale: QLockFile takes it over.
    lock->setStaleLockTime(0);
    if (!lock->tryLock(0)) return nullptr;
    return lock;
}

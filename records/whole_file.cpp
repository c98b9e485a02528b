// SPDX-License-Identifier: MIT
#include "whole_file.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// A new file is written beside its target under a hidden name: a dot, the target's name, a dot and
// six letters or digits. What a kill leaves of it is recognised by that name at the next start.
constexpr char kSuffixCharacters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
constexpr int kSuffixLength = 6;

int openBeside(const QByteArray &target, QByteArray &temporary)
{
    const qsizetype slash = target.lastIndexOf('/');
    for (int attempt = 0; attempt < 100; ++attempt) {
        temporary = target.left(slash + 1) + '.' + target.mid(slash + 1) + '.';
        for (int i = 0; i < kSuffixLength; ++i)
            temporary += kSuffixCharacters[QRandomGenerator::global()->bounded(int(sizeof kSuffixCharacters) - 1)];
        const int fd = ::open(temporary.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd >= 0 || errno != EEXIST) return fd;
    }
    return -1;
}

bool writeAll(int fd, const QByteArray &bytes)
{
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t written = ::write(fd, bytes.constData() + done, size_t(bytes.size() - done));
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        done += written;
    }
    return true;
}

// Flushes the entries of a file's folder to disk, so that a file put in place there stays put.
bool syncFolder(const QByteArray &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    const QByteArray folder = slash > 0 ? path.left(slash) : slash == 0 ? QByteArray("/") : QByteArray(".");
    const int fd = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return false;
    const bool synced = ::fsync(fd) == 0;
    return ::close(fd) == 0 && synced;
}

// Writes the bytes to a new file beside the target, with the target's permissions, and flushes them
// to disk. On failure nothing is left of it.
bool writeBeside(const QByteArray &target, const QByteArray &bytes, QByteArray &temporary)
{
    const int fd = openBeside(target, temporary);
    if (fd < 0) return false;
    struct stat old {};
    if (::stat(target.constData(), &old) == 0) ::fchmod(fd, old.st_mode & 07777);
    const bool written = writeAll(fd, bytes) && ::fsync(fd) == 0;
    if (::close(fd) == 0 && written) return true;
    ::unlink(temporary.constData());
    return false;
}

// Gives a file the name of a file that must not exist: in one step that fails if it does, or, where
// the file system cannot take that step, by a second name for the file and the first one removed.
bool renameIfFree(const QByteArray &from, const QByteArray &to)
{
    if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0) return true;
    if (errno != EINVAL && errno != ENOSYS && errno != ENOTSUP) return false;
    if (::link(from.constData(), to.constData()) != 0) return false;
    ::unlink(from.constData());
    return true;
}

} // namespace

RecordFile readRecordFile(const QString &path)
{
    RecordFile file;
    // Not blocked by a pipe that has taken the file's name.
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) {
        file.status = errno == ENOENT ? RecordFile::Missing : RecordFile::Unreadable;
        return file;
    }
    QByteArray bytes(kRecordFileLimit + 1, Qt::Uninitialized);
    qsizetype size = 0;
    file.status = RecordFile::Read;
    while (size < bytes.size()) {
        const ssize_t got = ::read(fd, bytes.data() + size, size_t(bytes.size() - size));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) file.status = RecordFile::Unreadable;
        if (got <= 0) break;
        size += got;
    }
    ::close(fd);
    file.whole = file.status == RecordFile::Read && size <= kRecordFileLimit;
    file.bytes = bytes.left(std::min(size, kRecordFileLimit));
    return file;
}

bool writeWholeFile(const QString &path, const QByteArray &bytes)
{
    const QByteArray target = QFile::encodeName(path);
    QByteArray temporary;
    if (!writeBeside(target, bytes, temporary)) return false;
    if (::rename(temporary.constData(), target.constData()) != 0) {
        ::unlink(temporary.constData());
        return false;
    }
    return syncFolder(target);
}

bool createWholeFile(const QString &path, const QByteArray &bytes)
{
    const QByteArray target = QFile::encodeName(path);
    QByteArray temporary;
    if (!writeBeside(target, bytes, temporary)) return false;
    if (!renameIfFree(temporary, target)) {
        ::unlink(temporary.constData());
        return false;
    }
    if (syncFolder(target)) return true;
    ::unlink(target.constData());
    return false;
}

bool keepBeside(const QString &path)
{
    const QByteArray file = QFile::encodeName(path);
    const QByteArray copy = file + ".1";
    if (::unlink(copy.constData()) != 0 && errno != ENOENT) return false;
    // A second name for the same bytes; where the file system has none, the file moves there.
    if (::link(file.constData(), copy.constData()) != 0 && ::rename(file.constData(), copy.constData()) != 0)
        return false;
    return syncFolder(file);
}

void removeLeftovers(const QString &folder, const std::function<bool(const QString &)> &written)
{
    const auto suffixCharacter = [](QChar c) {
        return c.unicode() != 0 && c.unicode() < 128 && std::strchr(kSuffixCharacters, c.toLatin1());
    };
    const QDir dir(folder);
    for (const QString &name : dir.entryList(QDir::Files | QDir::Hidden | QDir::System)) {
        const qsizetype cut = name.size() - kSuffixLength - 1;
        if (cut < 2 || name[0] != u'.' || name[cut] != u'.') continue;
        const QStringView suffix = QStringView(name).sliced(cut + 1);
        if (std::all_of(suffix.begin(), suffix.end(), suffixCharacter) && written(name.sliced(1, cut - 1)))
            ::unlink(QFile::encodeName(dir.filePath(name)).constData());
    }
}

// SPDX-License-Identifier: MIT
// The record files on disk: read in a bounded amount, and written whole or not at all. A full disk,
// a file-size limit, a removed folder, an I/O error or a kill at any moment never leaves half a file:
// the old one stays as it was until the new one is complete, on disk, and put in its place in one step.
#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

// The record files hold a few hundred bytes; no more than this is ever read of one.
constexpr qsizetype kRecordFileLimit = 4096;

struct RecordFile {
    enum Status { Read, Missing, Unreadable };
    Status status = Missing;
    QByteArray bytes;   // at most kRecordFileLimit of them; those read before an error when it is unreadable
    bool whole = false; // the bytes are all that the file holds
};

// The start of a file; a file that is not there is told apart from one that cannot be read.
RecordFile readRecordFile(const QString &path);

// Replaces the file by the bytes. False when any step fails, the old file then as it was.
bool writeWholeFile(const QString &path, const QByteArray &bytes);

// Creates the file with the bytes, only if no file of that name exists at that moment, also under
// another case on a file system that ignores case. False, with nothing created, otherwise.
bool createWholeFile(const QString &path, const QByteArray &bytes);

// Keeps the file as it stands under its name followed by ".1", in place of an older copy.
bool keepBeside(const QString &path);

// Removes from a folder the new files that a write cut short by a kill left before putting them in
// place: those whose target's name `written` accepts.
void removeLeftovers(const QString &folder, const std::function<bool(const QString &)> &written);

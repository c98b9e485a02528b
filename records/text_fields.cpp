// SPDX-License-Identifier: MIT
#include "text_fields.h"

FieldReader::FieldReader(const QByteArray &bytes) : mBytes(bytes) {}

bool FieldReader::atLineEnd() const { return mBytes[mAt] == '\r' || mBytes[mAt] == '\n'; }

// Past a comma, or past a line end of CR, LF or CR LF.
void FieldReader::skipDelimiter()
{
    if (mAt >= mBytes.size()) return;
    if (mBytes[mAt] == ',') {
        ++mAt;
    } else if (mBytes[mAt] == '\r') {
        ++mAt;
        if (mAt < mBytes.size() && mBytes[mAt] == '\n') ++mAt;
    } else if (mBytes[mAt] == '\n') {
        ++mAt;
    }
}

std::optional<QByteArray> FieldReader::next()
{
    while (mAt < mBytes.size() && (mBytes[mAt] == ' ' || mBytes[mAt] == '\t')) ++mAt;
    if (mAt >= mBytes.size()) return std::nullopt;

    QByteArray field;
    if (mBytes[mAt] == '"') {
        const qsizetype close = mBytes.indexOf('"', mAt + 1);
        const qsizetype end = close < 0 ? mBytes.size() : close;
        field = mBytes.mid(mAt + 1, end - mAt - 1);
        mAt = close < 0 ? end : close + 1;
        // Whatever follows the closing quote on its line is passed over.
        while (mAt < mBytes.size() && mBytes[mAt] != ',' && !atLineEnd()) ++mAt;
    } else {
        const qsizetype start = mAt;
        while (mAt < mBytes.size() && mBytes[mAt] != ',' && !atLineEnd()) ++mAt;
        field = mBytes.mid(start, mAt - start).trimmed();
    }
    skipDelimiter();
    return field;
}

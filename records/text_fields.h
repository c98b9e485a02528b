// SPDX-License-Identifier: MIT
// Fields of a text written one item per line, read in order: a quoted text runs to its closing quote,
// a bare field to the next comma or line end. Past the last field there is none.
#pragma once

#include <QByteArray>
#include <optional>

class FieldReader {
public:
    explicit FieldReader(const QByteArray &bytes);

    std::optional<QByteArray> next();

private:
    QByteArray mBytes;
    qsizetype mAt = 0;

    bool atLineEnd() const;
    void skipDelimiter();
};

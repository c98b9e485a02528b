// SPDX-License-Identifier: MIT
// Any bytes read as a best-times file give at most nine rows, each of which writes back to a line of
// the fixed layout and reads back as written. A row the program can write, made from the same bytes,
// reads back with the same values.
#include "best_times_file.h"
#include "codepage.h"

#include <cstdint>
#include <cstdlib>
#include <fuzzer/FuzzedDataProvider.h>

namespace {

bool same(const BestRow &a, const BestRow &b) { return a.niveau == b.niveau && a.temps == b.temps && a.nom == b.nom; }

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QList<BestRow> rows =
        readBestRows(QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    if (rows.size() > 9) std::abort();
    for (const BestRow &row : rows) {
        const QByteArray line = bestLine(row);
        if (line.size() != 31) std::abort();
        const QList<BestRow> again = readBestRows(line);
        if (again.size() != 1 || !same(again[0], row) || bestLine(again[0]) != line) std::abort();
    }

    FuzzedDataProvider provider(data, size);
    BestRow written;
    written.niveau = provider.ConsumeBool() ? 999 : provider.ConsumeIntegralInRange<int32_t>(0, 999);
    written.temps = provider.ConsumeBool() ? 356400 : provider.ConsumeIntegralInRange<int32_t>(0, 356400);
    written.nom = storableName(fromCodePage(QByteArray::fromStdString(provider.ConsumeRandomLengthString(24))));
    const QList<BestRow> read = readBestRows(bestLine(written));
    if (read.size() != 1 || !same(read[0], written)) std::abort();
    return 0;
}

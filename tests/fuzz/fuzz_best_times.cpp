// Any bytes read as a best-times file give at most nine rows, each of which writes back to a line of
// the fixed layout. A name free of quotes and line breaks, which the format cannot hold, reads back as written.
#include "best_times_file.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QList<BestRow> rows =
        readBestRows(QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    if (rows.size() > 9) std::abort();
    for (const BestRow &row : rows) {
        const QByteArray line = bestLine(row);
        if (line.size() != 31) std::abort();
        const QList<BestRow> again = readBestRows(line);
        if (again.size() != 1) std::abort();
        const bool plainName =
            !line.mid(1, 27).contains('"') && !line.mid(1, 27).contains('\r') && !line.mid(1, 27).contains('\n');
        if (plainName && bestLine(again[0]) != line) std::abort();
    }
    return 0;
}

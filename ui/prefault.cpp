// SPDX-License-Identifier: MIT
#include "prefault.h"

#include <QBackingStore>
#include <QImage>
#include <QWidget>
#include <sys/mman.h>
#include <unistd.h>

#ifndef MADV_POPULATE_WRITE
#define MADV_POPULATE_WRITE 23
#endif

void prefault(const void *data, qsizetype bytes)
{
    if (!data || bytes <= 0) return;
    static const auto page = static_cast<quintptr>(sysconf(_SC_PAGESIZE));
    const auto start = reinterpret_cast<quintptr>(data) & ~(page - 1);
    const auto end = (reinterpret_cast<quintptr>(data) + static_cast<quintptr>(bytes) + page - 1) & ~(page - 1);
    // Where the kernel does not know the advice, it refuses it and nothing changes.
    madvise(reinterpret_cast<void *>(start), end - start, MADV_POPULATE_WRITE);
}

void prefaultBackingStore(QWidget *window)
{
    QBackingStore *store = window->backingStore();
    QPaintDevice *device = store ? store->paintDevice() : nullptr;
    if (device && device->devType() == QInternal::Image) {
        const auto *image = static_cast<const QImage *>(device);
        prefault(image->constBits(), image->sizeInBytes());
    }
}

// SPDX-License-Identifier: MIT
// A ceiling on the memory of the test process, for the tests that must show a reader takes little.
#pragma once

#include <QFile>
#include <sys/resource.h>
#include <unistd.h>

// While it lives, the process cannot map more than the given number of bytes beyond what it holds
// now: an allocation past that fails.
class MemoryLimitAbove {
public:
    explicit MemoryLimitAbove(rlim_t bytes)
    {
        getrlimit(RLIMIT_AS, &mOld);
        QFile statm(QStringLiteral("/proc/self/statm"));
        const rlim_t pages = statm.open(QIODevice::ReadOnly) ? statm.readLine().split(' ').value(0).toULongLong() : 0;
        rlimit limit{pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + bytes, mOld.rlim_max};
        setrlimit(RLIMIT_AS, &limit);
    }
    ~MemoryLimitAbove() { setrlimit(RLIMIT_AS, &mOld); }
    MemoryLimitAbove(const MemoryLimitAbove &) = delete;
    MemoryLimitAbove &operator=(const MemoryLimitAbove &) = delete;

private:
    rlimit mOld{};
};

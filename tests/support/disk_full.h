// SPDX-License-Identifier: MIT
// A full disk for the test that asks for one, without root and without a file system of its own.
#pragma once

#include <csignal>
#include <sys/resource.h>

// While it lives, no file of this process can grow past the given size: a write beyond it fails as
// it would on a full disk.
class DiskFullAfter {
public:
    explicit DiskFullAfter(rlim_t bytes)
    {
        getrlimit(RLIMIT_FSIZE, &mOld);
        mOldHandler = signal(SIGXFSZ, SIG_IGN);
        rlimit limit{bytes, mOld.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~DiskFullAfter()
    {
        setrlimit(RLIMIT_FSIZE, &mOld);
        signal(SIGXFSZ, mOldHandler);
    }
    DiskFullAfter(const DiskFullAfter &) = delete;
    DiskFullAfter &operator=(const DiskFullAfter &) = delete;

private:
    rlimit mOld{};
    void (*mOldHandler)(int);
};

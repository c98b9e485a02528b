// SPDX-License-Identifier: MIT
// Preloaded into the fault-injection test: counts the calls of the file routines that act on one
// folder and, at the call chosen, makes that call fail or kills the process just before it.
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace {

enum Kind { Count, Fail, Kill };

std::string watchedFolder;  // the folder watched, without a trailing separator; empty: none
std::string watchedRoutine; // only calls of this routine count; empty: every routine
int faultAt = 0;            // the call to act on, from 1
Kind faultKind = Count;
int callsCounted = 0;
std::string callTrace;         // one line per call counted: its number, routine and path
bool noReplaceRefused = false; // renaming without replacing is refused as by a file system without it

bool inFolder(const char *path)
{
    return !watchedFolder.empty() && path && std::strncmp(path, watchedFolder.c_str(), watchedFolder.size()) == 0
           && (path[watchedFolder.size()] == '/' || path[watchedFolder.size()] == '\0');
}

// Whether this call is to fail, with errno set; the process does not come back from a kill.
bool faulted(const char *routine, const char *path, int error)
{
    if (!inFolder(path) || (!watchedRoutine.empty() && watchedRoutine != routine)) return false;
    ++callsCounted;
    callTrace += std::to_string(callsCounted) + ' ' + routine + ' ' + path + '\n';
    if (callsCounted != faultAt || faultKind == Count) return false;
    if (faultKind == Kill) raise(SIGKILL);
    errno = error;
    return true;
}

bool faulted(const char *routine, int fd, int error)
{
    if (watchedFolder.empty()) return false;
    char link[32];
    char path[4096] = {};
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", fd);
    return readlink(link, path, sizeof path - 1) > 0 && faulted(routine, path, error);
}

// The routine of the C library that the one of this name below stands in front of.
template <auto &Routine>
auto next(const char *name)
{
    return reinterpret_cast<decltype(&Routine)>(dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" {

// Watches a folder from now on: the at-th call of the routine named (of any, when null) fails
// (kind 1) or kills the process (kind 2); kind 0 only counts.
void faultArm(const char *folder, const char *routine, int at, int kind)
{
    watchedFolder = folder ? folder : "";
    while (watchedFolder.size() > 1 && watchedFolder.back() == '/') watchedFolder.pop_back();
    watchedRoutine = routine ? routine : "";
    faultAt = at;
    faultKind = static_cast<Kind>(kind);
    callsCounted = 0;
    callTrace.clear();
}

// From now on, renaming without replacing in the folder watched is refused as a file system that
// cannot do it refuses it, or is done as usual again.
void faultRefuseNoReplace(int refused) { noReplaceRefused = refused; }

// The calls counted since arming, one line each.
const char *faultTrace() { return callTrace.c_str(); }

int open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = flags & O_CREAT ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return faulted("open", path, EACCES) ? -1 : next<open>("open")(path, flags, mode);
}

ssize_t read(int fd, void *to, size_t n) { return faulted("read", fd, EIO) ? -1 : next<read>("read")(fd, to, n); }

ssize_t write(int fd, const void *from, size_t n)
{
    return faulted("write", fd, ENOSPC) ? -1 : next<write>("write")(fd, from, n);
}

int fsync(int fd) { return faulted("fsync", fd, EIO) ? -1 : next<fsync>("fsync")(fd); }

int close(int fd) { return faulted("close", fd, EIO) ? -1 : next<close>("close")(fd); }

int link(const char *from, const char *to) noexcept
{
    return faulted("link", from, EIO) ? -1 : next<link>("link")(from, to);
}

int rename(const char *from, const char *to) noexcept
{
    return faulted("rename", from, EIO) ? -1 : next<rename>("rename")(from, to);
}

int renameat2(int fromFolder, const char *from, int toFolder, const char *to, unsigned flags) noexcept
{
    if (faulted("rename", from, EIO)) return -1;
    if (noReplaceRefused && (flags & RENAME_NOREPLACE) && inFolder(to)) {
        errno = EINVAL;
        return -1;
    }
    return next<renameat2>("renameat2")(fromFolder, from, toFolder, to, flags);
}

int unlink(const char *path) noexcept { return faulted("unlink", path, EIO) ? -1 : next<unlink>("unlink")(path); }
}

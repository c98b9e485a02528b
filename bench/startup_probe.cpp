// SPDX-License-Identifier: MIT
// Start-up probe: starts a windowed program on the X display of $DISPLAY and measures, for each run,
// the time from the start to the window shown and painted, and the memory it holds at that moment.
//
//   startup_probe [--reps N] [--idle SECONDS] [--min-side PIXELS] [--home FOLDER] -- PROGRAM [ARGS...]
//
// Each run starts PROGRAM with a new runtime folder of its own (XDG_RUNTIME_DIR), so that a
// single-instance program never meets the run before it; it lies in /dev/shm where there is one,
// in memory as a desktop's is. The data, configuration and cache folders
// (XDG_DATA_HOME, XDG_CONFIG_HOME, XDG_CACHE_HOME) lie in FOLDER, kept from one run and one call to
// the next as a user's are from one start to the next (a new temporary folder without --home): what a
// program writes at its very first start is written in a warm-up run.
//
// Method, the same for every program: the clock starts just before fork(). Every millisecond the
// probe lists the top-level windows of the display (the display runs no window manager, so these are
// the children of the root window); the first window that was not there before the start, is viewable
// and at least MIN-SIDE pixels each way is the program's window: that time is "mapped". From then on
// it reads the window's pixels (through shared memory) every millisecond; the first read in which the
// pixels are not all one colour is "painted", and stops the clock. The display's root is black, so a
// window that has not painted yet reads as one colour. At that moment the probe reads the program's peak resident
// memory so far (VmHWM of /proc/PID/status) and the processor time its threads have used (schedstat),
// then sends it SIGTERM.
//
// With --idle, after the window is painted the probe waits one second more, then reads the program's
// processor time (utime + stime of /proc/PID/stat) over SECONDS of idleness.
//
// Prints one line per run, "run mapped_ms=... painted_ms=... hwm_kb=... cpu_ms=...
// [idle_cpu_ms=...]", for scripts.
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XShm.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

double msSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

int ignoreXErrors(Display *, XErrorEvent *) { return 0; } // a window may vanish between list and read

std::set<Window> topLevels(Display *display)
{
    Window root = 0;
    Window parent = 0;
    Window *children = nullptr;
    unsigned int count = 0;
    std::set<Window> windows;
    if (XQueryTree(display, DefaultRootWindow(display), &root, &parent, &children, &count)) {
        windows.insert(children, children + count);
        if (children) XFree(children);
    }
    return windows;
}

// The largest viewable new top-level window of at least minSide pixels each way, if any.
std::optional<Window> newWindow(Display *display, const std::set<Window> &before, int minSide)
{
    std::optional<Window> best;
    long bestArea = 0;
    for (Window w : topLevels(display)) {
        if (before.count(w)) continue;
        XWindowAttributes a;
        if (!XGetWindowAttributes(display, w, &a)) continue;
        if (a.map_state != IsViewable || a.width < minSide || a.height < minSide) continue;
        const long area = static_cast<long>(a.width) * a.height;
        if (area > bestArea) {
            bestArea = area;
            best = w;
        }
    }
    return best;
}

// Reads a window's pixels. Through shared memory (MIT-SHM) a read of 600 x 600 pixels costs the
// display about 0.2 ms; XGetImage sends them over the socket and costs it about 10 ms, during which
// it serves no other client: polled every millisecond, that would hold up the very program being
// timed and make each poll ten times coarser. XGetImage is kept for displays without MIT-SHM.
class PixelReader {
public:
    explicit PixelReader(Display *display) : mDisplay(display), mShm(XShmQueryExtension(display)) {}
    PixelReader(const PixelReader &) = delete;
    PixelReader &operator=(const PixelReader &) = delete;
    ~PixelReader() { release(); }

    // Whether the window's pixels are not all one colour.
    bool varied(Window w)
    {
        XWindowAttributes a;
        if (!XGetWindowAttributes(mDisplay, w, &a) || a.map_state != IsViewable) return false;
        XImage *image = read(w, a);
        if (!image) return false;
        const unsigned long first = XGetPixel(image, 0, 0);
        bool varied = false;
        for (int y = 0; y < a.height && !varied; ++y)
            for (int x = 0; x < a.width; ++x)
                if (XGetPixel(image, x, y) != first) {
                    varied = true;
                    break;
                }
        if (image != mShmImage) XDestroyImage(image);
        return varied;
    }

private:
    XImage *read(Window w, const XWindowAttributes &a)
    {
        if (!mShm) return XGetImage(mDisplay, w, 0, 0, a.width, a.height, AllPlanes, ZPixmap);
        if (!mShmImage || mShmImage->width != a.width || mShmImage->height != a.height || mShmImage->depth != a.depth) {
            release();
            mShmImage = XShmCreateImage(mDisplay, a.visual, a.depth, ZPixmap, nullptr, &mSegment, a.width, a.height);
            if (!mShmImage) return nullptr;
            mSegment.shmid =
                shmget(IPC_PRIVATE, static_cast<size_t>(mShmImage->bytes_per_line) * a.height, IPC_CREAT | 0600);
            void *memory = mSegment.shmid < 0 ? reinterpret_cast<void *>(-1) : shmat(mSegment.shmid, nullptr, 0);
            if (memory == reinterpret_cast<void *>(-1)) { // no shared memory to be had: read over the socket
                if (mSegment.shmid >= 0) shmctl(mSegment.shmid, IPC_RMID, nullptr);
                XDestroyImage(mShmImage);
                mShmImage = nullptr;
                mShm = false;
                return XGetImage(mDisplay, w, 0, 0, a.width, a.height, AllPlanes, ZPixmap);
            }
            mSegment.shmaddr = mShmImage->data = static_cast<char *>(memory);
            mSegment.readOnly = False;
            XShmAttach(mDisplay, &mSegment);
            XSync(mDisplay, False);
            shmctl(mSegment.shmid, IPC_RMID, nullptr); // freed once both sides detach
        }
        return XShmGetImage(mDisplay, w, mShmImage, 0, 0, AllPlanes) ? mShmImage : nullptr;
    }

    void release()
    {
        if (!mShmImage) return;
        XShmDetach(mDisplay, &mSegment);
        XSync(mDisplay, False);
        shmdt(mSegment.shmaddr);
        mShmImage->data = nullptr;
        XDestroyImage(mShmImage);
        mShmImage = nullptr;
    }

    Display *mDisplay;
    bool mShm;
    XShmSegmentInfo mSegment{};
    XImage *mShmImage = nullptr;
};

// utime + stime of a process, in clock ticks; -1 when it cannot be read.
long long cpuTicks(pid_t pid)
{
    std::ifstream stat("/proc/" + std::to_string(pid) + "/stat");
    std::string line;
    if (!std::getline(stat, line)) return -1;
    const auto close = line.rfind(')');
    if (close == std::string::npos) return -1;
    std::istringstream rest(line.substr(close + 2));
    std::string field;
    long long utime = 0;
    long long stime = 0;
    for (int i = 3; i <= 15; ++i) {
        rest >> field;
        if (i == 14) utime = std::atoll(field.c_str());
        if (i == 15) stime = std::atoll(field.c_str());
    }
    return utime + stime;
}

// The peak resident memory of a process so far, in KiB; -1 when it cannot be read.
long peakRssKb(pid_t pid)
{
    std::ifstream status("/proc/" + std::to_string(pid) + "/status");
    std::string line;
    while (std::getline(status, line))
        if (line.rfind("VmHWM:", 0) == 0) return std::atol(line.c_str() + 6);
    return -1;
}

// The processor time of a process's living threads so far, in milliseconds (first field of each
// /proc/PID/task/TID/schedstat, in nanoseconds): the work done, whatever else the machine runs.
double cpuMsOfThreads(pid_t pid)
{
    double ns = 0;
    std::error_code error;
    for (const auto &task : std::filesystem::directory_iterator("/proc/" + std::to_string(pid) + "/task", error)) {
        std::ifstream schedstat(task.path() / "schedstat");
        double threadNs = 0;
        if (schedstat >> threadNs) ns += threadNs;
    }
    return ns / 1e6;
}

struct Run {
    double mappedMs = -1;
    double paintedMs = -1;
    long hwmKb = -1;
    double cpuMs = -1;
    double idleCpuMs = -1;
};

std::string makeFolder(const std::string &base, const char *name)
{
    const std::string path = base + "/" + name;
    mkdir(path.c_str(), 0700);
    return path;
}

// A new folder under `parent`, or under $TMPDIR or /tmp; empty on failure.
std::string newTempFolder(const char *parent = nullptr)
{
    const char *tmp = std::getenv("TMPDIR");
    if (!parent) parent = tmp && *tmp ? tmp : "/tmp";
    std::string pattern = std::string(parent) + "/startup-probe-XXXXXX";
    std::vector<char> buffer(pattern.begin(), pattern.end());
    buffer.push_back('\0');
    if (!mkdtemp(buffer.data())) {
        std::perror("mkdtemp");
        return {};
    }
    return buffer.data();
}

Run runOnce(Display *display, PixelReader &pixels, const std::string &home, const std::vector<std::string> &command,
            int minSide, double idleSeconds, double limitSeconds)
{
    Run run;
    // A desktop's runtime folder lies in memory (tmpfs), where writing a lock file waits for no disk.
    const bool inMemory = access("/dev/shm", W_OK) == 0;
    const std::string base = newTempFolder(inMemory ? "/dev/shm" : nullptr);
    if (base.empty()) return run;
    const std::string runtime = makeFolder(base, "run");
    const std::string data = makeFolder(home, "data");
    const std::string config = makeFolder(home, "config");
    const std::string cache = makeFolder(home, "cache");

    const std::set<Window> before = topLevels(display);
    const auto start = Clock::now();
    const pid_t pid = fork();
    if (pid == 0) {
        setenv("XDG_RUNTIME_DIR", runtime.c_str(), 1);
        setenv("XDG_DATA_HOME", data.c_str(), 1);
        setenv("XDG_CONFIG_HOME", config.c_str(), 1);
        setenv("XDG_CACHE_HOME", cache.c_str(), 1);
        const int devNull = open("/dev/null", O_RDWR);
        dup2(devNull, STDIN_FILENO);
        dup2(devNull, STDOUT_FILENO);
        dup2(devNull, STDERR_FILENO);
        std::vector<std::string> argv = command;
        std::vector<char *> args;
        for (auto &a : argv) args.push_back(a.data());
        args.push_back(nullptr);
        execvp(args[0], args.data());
        _exit(127);
    }

    std::optional<Window> window;
    while (msSince(start) < limitSeconds * 1000) {
        if (!window) {
            window = newWindow(display, before, minSide);
            if (window) run.mappedMs = msSince(start);
        }
        if (window && pixels.varied(*window)) {
            run.paintedMs = msSince(start);
            run.hwmKb = peakRssKb(pid);
            run.cpuMs = cpuMsOfThreads(pid);
            break;
        }
        int status = 0;
        if (waitpid(pid, &status, WNOHANG) == pid) {
            std::fprintf(stderr, "startup_probe: %s ended before its window was painted\n", command[0].c_str());
            std::filesystem::remove_all(base);
            return run;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }

    if (run.paintedMs >= 0 && idleSeconds > 0) {
        std::this_thread::sleep_for(std::chrono::seconds(1));
        const long long t0 = cpuTicks(pid);
        std::this_thread::sleep_for(std::chrono::duration<double>(idleSeconds));
        const long long t1 = cpuTicks(pid);
        if (t0 >= 0 && t1 >= 0)
            run.idleCpuMs = static_cast<double>(t1 - t0) * 1000.0 / static_cast<double>(sysconf(_SC_CLK_TCK));
    }
    kill(pid, SIGTERM);
    // A program that ignores SIGTERM is killed after two seconds.
    const auto stopping = Clock::now();
    int status = 0;
    while (waitpid(pid, &status, WNOHANG) != pid) {
        if (msSince(stopping) > 2000) kill(pid, SIGKILL);
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    // Let the display forget the window before the next run lists the windows.
    while (window && topLevels(display).count(*window)) std::this_thread::sleep_for(std::chrono::milliseconds(2));
    std::filesystem::remove_all(base);
    return run;
}

void usage()
{
    std::fputs("usage: startup_probe [--reps N] [--idle SECONDS] [--min-side PIXELS] [--home FOLDER] -- PROGRAM "
               "[ARGS...]\n",
               stderr);
}

} // namespace

int main(int argc, char *argv[])
{
    int reps = 1;
    int minSide = 64;
    double idleSeconds = 0;
    std::string home;
    std::vector<std::string> command;
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        if (a == "--" && i + 1 < argc) {
            command.assign(argv + i + 1, argv + argc);
            break;
        }
        if (i + 1 >= argc) {
            usage();
            return 2;
        }
        if (a == "--reps")
            reps = std::max(1, std::atoi(argv[++i]));
        else if (a == "--idle")
            idleSeconds = std::atof(argv[++i]);
        else if (a == "--min-side")
            minSide = std::atoi(argv[++i]);
        else if (a == "--home")
            home = argv[++i];
        else {
            usage();
            return 2;
        }
    }
    if (command.empty()) {
        usage();
        return 2;
    }
    Display *display = XOpenDisplay(nullptr);
    if (!display) {
        std::fputs("startup_probe: cannot open the display of $DISPLAY\n", stderr);
        return 1;
    }
    XSetErrorHandler(ignoreXErrors);

    const bool ownHome = home.empty();
    if (ownHome) home = newTempFolder();
    if (home.empty()) return 1;
    mkdir(home.c_str(), 0700);
    int status = 0;
    {
        PixelReader pixels(display); // let go of before the display closes
        for (int r = 0; r < reps; ++r) {
            const Run run = runOnce(display, pixels, home, command, minSide, idleSeconds, 30);
            if (run.paintedMs < 0) {
                std::fprintf(stderr, "startup_probe: run %d of %s failed\n", r + 1, command[0].c_str());
                status = 1;
                break;
            }
            std::printf("run mapped_ms=%.1f painted_ms=%.1f hwm_kb=%ld cpu_ms=%.1f", run.mappedMs, run.paintedMs,
                        run.hwmKb, run.cpuMs);
            if (run.idleCpuMs >= 0) std::printf(" idle_cpu_ms=%.0f", run.idleCpuMs);
            std::printf("\n");
            std::fflush(stdout);
        }
    }
    XCloseDisplay(display);
    if (ownHome) std::filesystem::remove_all(home);
    return status;
}

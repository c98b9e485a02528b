// Start-up probe: starts a windowed program on the X display of $DISPLAY, several times, and measures
// for each run the time from the start to the window shown and painted, and the peak memory.
//
//   startup_probe --time TIME --reps N [--warmup W] [--idle SECONDS] [--min-side PIXELS] -- PROGRAM [ARGS...]
//
// TIME is GNU time; each run starts `TIME -v -o FILE PROGRAM ARGS` with a new runtime and data folder
// of its own (XDG_RUNTIME_DIR, XDG_DATA_HOME), so that a single-instance program never meets the run
// before it; the configuration and cache folders (XDG_CONFIG_HOME, XDG_CACHE_HOME) are new for each
// probe and kept across its runs, as a user's are from one start to the next. W first runs warm the
// caches of the system and of the program and are not counted.
//
// Method, the same for every program: the clock starts just before fork(). Every millisecond the
// probe lists the top-level windows of the display (the display runs no window manager, so these are
// the children of the root window); the first window that was not there before the start, is viewable
// and at least MIN-SIDE pixels each way is the program's window: that time is "mapped". From then on
// it reads the window's pixels (XGetImage) every millisecond; the first read in which the pixels are
// not all one colour is "painted", and stops the clock. The display's root is black, so a window that
// has not painted yet reads as one colour. The program is then sent SIGTERM; GNU time reports its
// maximum resident set size (peak memory up to that point).
//
// With --idle, after the window is painted the probe waits one second more, then reads the program's
// processor time (utime + stime of /proc/PID/stat) over SECONDS of idleness.
//
// Prints one line per run, then a line "RESULT key=value ..." with the mean and spread, for scripts.
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <numeric>
#include <optional>
#include <set>
#include <sstream>
#include <string>
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

// Whether the window's pixels are not all one colour.
bool painted(Display *display, Window w)
{
    XWindowAttributes a;
    if (!XGetWindowAttributes(display, w, &a) || a.map_state != IsViewable) return false;
    XImage *image = XGetImage(display, w, 0, 0, a.width, a.height, AllPlanes, ZPixmap);
    if (!image) return false;
    const unsigned long first = XGetPixel(image, 0, 0);
    bool varied = false;
    for (int y = 0; y < a.height && !varied; ++y)
        for (int x = 0; x < a.width; ++x)
            if (XGetPixel(image, x, y) != first) {
                varied = true;
                break;
            }
    XDestroyImage(image);
    return varied;
}

std::vector<pid_t> childrenOf(pid_t parent)
{
    std::vector<pid_t> found;
    DIR *proc = opendir("/proc");
    if (!proc) return found;
    while (dirent *entry = readdir(proc)) {
        const pid_t pid = static_cast<pid_t>(std::atoi(entry->d_name));
        if (pid <= 0) continue;
        std::ifstream stat("/proc/" + std::string(entry->d_name) + "/stat");
        std::string line;
        if (!std::getline(stat, line)) continue;
        const auto close = line.rfind(')');
        if (close == std::string::npos) continue;
        std::istringstream rest(line.substr(close + 2));
        char state = 0;
        pid_t ppid = 0;
        rest >> state >> ppid;
        if (ppid == parent) found.push_back(pid);
    }
    closedir(proc);
    return found;
}

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

long maxRssKb(const std::string &report)
{
    std::ifstream in(report);
    std::string line;
    const std::string key = "Maximum resident set size (kbytes):";
    while (std::getline(in, line)) {
        const auto at = line.find(key);
        if (at != std::string::npos) return std::atol(line.c_str() + at + key.size());
    }
    return -1;
}

struct Run {
    double mappedMs = -1;
    double paintedMs = -1;
    long rssKb = -1;
    double idleCpuMs = -1;
};

struct Stats {
    double mean = 0;
    double sd = 0;
    double min = 0;
    double max = 0;
    double median = 0;
};

Stats statsOf(const std::vector<double> &v)
{
    Stats s;
    if (v.empty()) return s;
    s.mean = std::accumulate(v.begin(), v.end(), 0.0) / static_cast<double>(v.size());
    double sq = 0;
    for (double x : v) sq += (x - s.mean) * (x - s.mean);
    s.sd = v.size() > 1 ? std::sqrt(sq / static_cast<double>(v.size() - 1)) : 0;
    s.min = *std::min_element(v.begin(), v.end());
    s.max = *std::max_element(v.begin(), v.end());
    std::vector<double> sorted = v;
    std::sort(sorted.begin(), sorted.end());
    const size_t n = sorted.size();
    s.median = n % 2 ? sorted[n / 2] : (sorted[n / 2 - 1] + sorted[n / 2]) / 2;
    return s;
}

std::string makeFolder(const std::string &base, const char *name)
{
    const std::string path = base + "/" + name;
    mkdir(path.c_str(), 0700);
    return path;
}

// A new folder under $TMPDIR or /tmp; empty on failure.
std::string newTempFolder()
{
    const char *tmp = std::getenv("TMPDIR");
    std::string pattern = std::string(tmp && *tmp ? tmp : "/tmp") + "/startup-probe-XXXXXX";
    std::vector<char> buffer(pattern.begin(), pattern.end());
    buffer.push_back('\0');
    if (!mkdtemp(buffer.data())) {
        std::perror("mkdtemp");
        return {};
    }
    return buffer.data();
}

Run runOnce(Display *display, const std::string &home, const std::string &timeTool, const std::vector<std::string> &command, int minSide,
            double idleSeconds, double limitSeconds)
{
    Run run;
    const std::string base = newTempFolder();
    if (base.empty()) return run;
    const std::string runtime = makeFolder(base, "run");
    const std::string data = makeFolder(base, "data");
    const std::string config = home + "/config";
    const std::string cache = home + "/cache";
    const std::string report = base + "/time.txt";

    std::vector<std::string> argv = {timeTool, "-v", "-o", report};
    argv.insert(argv.end(), command.begin(), command.end());

    const std::set<Window> before = topLevels(display);
    const auto start = Clock::now();
    const pid_t timePid = fork();
    if (timePid == 0) {
        setenv("XDG_RUNTIME_DIR", runtime.c_str(), 1);
        setenv("XDG_DATA_HOME", data.c_str(), 1);
        setenv("XDG_CONFIG_HOME", config.c_str(), 1);
        setenv("XDG_CACHE_HOME", cache.c_str(), 1);
        const int devNull = open("/dev/null", O_RDWR);
        dup2(devNull, STDIN_FILENO);
        dup2(devNull, STDOUT_FILENO);
        dup2(devNull, STDERR_FILENO);
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
        if (window && painted(display, *window)) {
            run.paintedMs = msSince(start);
            break;
        }
        int status = 0;
        if (waitpid(timePid, &status, WNOHANG) == timePid) {
            std::fprintf(stderr, "startup_probe: %s ended before its window was painted\n", command[0].c_str());
            std::filesystem::remove_all(base);
            return run;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }

    std::vector<pid_t> programs = childrenOf(timePid);
    if (run.paintedMs >= 0 && idleSeconds > 0 && !programs.empty()) {
        std::this_thread::sleep_for(std::chrono::seconds(1));
        const long long t0 = cpuTicks(programs.front());
        std::this_thread::sleep_for(std::chrono::duration<double>(idleSeconds));
        const long long t1 = cpuTicks(programs.front());
        if (t0 >= 0 && t1 >= 0)
            run.idleCpuMs = static_cast<double>(t1 - t0) * 1000.0 / static_cast<double>(sysconf(_SC_CLK_TCK));
    }
    for (pid_t p : programs) kill(p, SIGTERM);
    if (programs.empty()) kill(timePid, SIGTERM);
    // A program that ignores SIGTERM is killed after two seconds.
    const auto stopping = Clock::now();
    int status = 0;
    while (waitpid(timePid, &status, WNOHANG) != timePid) {
        if (msSince(stopping) > 2000)
            for (pid_t p : childrenOf(timePid)) kill(p, SIGKILL);
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    run.rssKb = maxRssKb(report);
    // Let the display forget the window before the next run lists the windows.
    while (window && topLevels(display).count(*window)) std::this_thread::sleep_for(std::chrono::milliseconds(2));
    std::filesystem::remove_all(base);
    return run;
}

void usage()
{
    std::fputs("usage: startup_probe --time TIME --reps N [--warmup W] [--idle SECONDS] [--min-side PIXELS] -- PROGRAM "
               "[ARGS...]\n",
               stderr);
}

} // namespace

int main(int argc, char *argv[])
{
    std::string timeTool;
    int reps = 5;
    int warmup = 0;
    int minSide = 64;
    double idleSeconds = 0;
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
        if (a == "--time")
            timeTool = argv[++i];
        else if (a == "--reps")
            reps = std::max(1, std::atoi(argv[++i]));
        else if (a == "--warmup")
            warmup = std::max(0, std::atoi(argv[++i]));
        else if (a == "--idle")
            idleSeconds = std::atof(argv[++i]);
        else if (a == "--min-side")
            minSide = std::atoi(argv[++i]);
        else {
            usage();
            return 2;
        }
    }
    if (timeTool.empty() || command.empty()) {
        usage();
        return 2;
    }
    Display *display = XOpenDisplay(nullptr);
    if (!display) {
        std::fputs("startup_probe: cannot open the display of $DISPLAY\n", stderr);
        return 1;
    }
    XSetErrorHandler(ignoreXErrors);

    const std::string home = newTempFolder();
    if (home.empty()) return 1;
    makeFolder(home, "config");
    makeFolder(home, "cache");
    for (int w = 0; w < warmup; ++w) {
        const Run run = runOnce(display, home, timeTool, command, minSide, 0, 30);
        if (run.paintedMs < 0) {
            std::fprintf(stderr, "startup_probe: warm-up run of %s failed\n", command[0].c_str());
            return 1;
        }
        std::printf("  warm-up: painted %7.1f ms, max RSS %7.1f MiB (not counted)\n", run.paintedMs,
                    static_cast<double>(run.rssKb) / 1024.0);
    }
    std::vector<double> mapped, paintedMs, rss, idle;
    for (int r = 0; r < reps; ++r) {
        const Run run = runOnce(display, home, timeTool, command, minSide, idleSeconds, 30);
        if (run.paintedMs < 0) {
            std::fprintf(stderr, "startup_probe: run %d of %s failed\n", r + 1, command[0].c_str());
            return 1;
        }
        std::printf("  run %2d: mapped %7.1f ms, painted %7.1f ms, max RSS %7.1f MiB", r + 1, run.mappedMs,
                    run.paintedMs, static_cast<double>(run.rssKb) / 1024.0);
        if (run.idleCpuMs >= 0) std::printf(", processor while idle %.0f ms in %.0f s", run.idleCpuMs, idleSeconds);
        std::printf("\n");
        std::fflush(stdout);
        mapped.push_back(run.mappedMs);
        paintedMs.push_back(run.paintedMs);
        rss.push_back(static_cast<double>(run.rssKb));
        if (run.idleCpuMs >= 0) idle.push_back(run.idleCpuMs);
    }
    XCloseDisplay(display);
    std::filesystem::remove_all(home);

    const Stats m = statsOf(mapped);
    const Stats p = statsOf(paintedMs);
    const Stats r = statsOf(rss);
    std::printf("RESULT runs=%d painted_mean_ms=%.1f painted_sd_ms=%.1f painted_median_ms=%.1f painted_min_ms=%.1f "
                "painted_max_ms=%.1f mapped_mean_ms=%.1f rss_mean_kb=%.0f rss_max_kb=%.0f",
                reps, p.mean, p.sd, p.median, p.min, p.max, m.mean, r.mean, r.max);
    if (!idle.empty()) std::printf(" idle_cpu_ms=%.0f idle_s=%.0f", statsOf(idle).mean, idleSeconds);
    std::printf("\n");
    return 0;
}

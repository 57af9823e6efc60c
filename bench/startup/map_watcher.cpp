// Starts a program and waits, as an X client, for a top-level window of a given title to be
// mapped; prints the time from just before the start to the map, in microseconds, and the
// program's peak resident memory in KiB, then ends the program.
//
//   startup-watch TITLE PROGRAM [ARGUMENTS...]
#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <string>

namespace {
// The window's _NET_WM_NAME, which Qt sets in UTF-8 before it maps the window.
std::string titleOf(Display* display, Window window) {
    const Atom name = XInternAtom(display, "_NET_WM_NAME", False);
    const Atom utf8 = XInternAtom(display, "UTF8_STRING", False);
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long after = 0;
    unsigned char* data = nullptr;
    if (XGetWindowProperty(display, window, name, 0, 256, False, utf8, &type, &format, &count,
                           &after, &data) != Success ||
        !data)
        return {};
    std::string title(reinterpret_cast<const char*>(data), count);
    XFree(data);
    return title;
}
}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: startup-watch TITLE PROGRAM [ARGUMENTS...]\n");
        return 2;
    }
    Display* display = XOpenDisplay(nullptr);
    if (!display) {
        std::fprintf(stderr, "startup-watch: no X display\n");
        return 1;
    }
    // Without a window manager a top-level window's map is told to the root's listeners.
    XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
    XSync(display, False);

    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) {
        execvp(argv[2], argv + 2);
        _exit(127);
    }
    for (;;) {
        if (!XPending(display)) {
            // A program that ends, or hangs for a minute, without the window is a failed run.
            int status = 0;
            if (waitpid(child, &status, WNOHANG) == child) {
                std::fprintf(stderr, "startup-watch: %s ended without the window\n", argv[2]);
                return 1;
            }
            if (std::chrono::steady_clock::now() - start > std::chrono::minutes(1)) {
                kill(child, SIGKILL);
                std::fprintf(stderr, "startup-watch: no window after a minute\n");
                return 1;
            }
            pollfd x{ConnectionNumber(display), POLLIN, 0};
            poll(&x, 1, 50);
            continue;
        }
        XEvent event;
        XNextEvent(display, &event);
        if (event.type != MapNotify || titleOf(display, event.xmap.window) != argv[1]) continue;
        const auto mapped = std::chrono::steady_clock::now();
        kill(child, SIGTERM);
        int status = 0;
        rusage usage{};
        wait4(child, &status, 0, &usage);
        const auto micros =
            std::chrono::duration_cast<std::chrono::microseconds>(mapped - start).count();
        std::printf("%lld %ld\n", static_cast<long long>(micros), usage.ru_maxrss);
        return 0;
    }
}

// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Launches a command and prints the microseconds from its exec to the first XDamage event on
// its first top-level window, that is, to the first pixels it puts on the screen. The command
// is then sent SIGTERM. Meant for a bare X server without a window manager (Xvfb), where a
// client's top-level windows are children of the root window.
//
// Usage: first_frame [--timeout SECONDS] COMMAND [ARGS...]
// Exit status: 0 with the figure on stdout; 1 on timeout or failure; 2 on bad usage.
#include <X11/Xlib.h>
#include <X11/extensions/Xdamage.h>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

namespace {

std::int64_t now_us() {
    timespec ts{};
    clock_gettime(CLOCK_MONOTONIC, &ts);
    return static_cast<std::int64_t>(ts.tv_sec) * 1000000 + ts.tv_nsec / 1000;
}

// A window can vanish between its CreateNotify and our request on it; that is not an error.
int ignore_x_errors(Display*, XErrorEvent*) { return 0; }

bool write_all(int fd, const void* data, std::size_t size) {
    const auto* bytes = static_cast<const char*>(data);
    while (size > 0) {
        const ssize_t n = write(fd, bytes, size);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        bytes += n;
        size -= static_cast<std::size_t>(n);
    }
    return true;
}

// Starts argv; returns the child's pid and the time just before its exec, or -1 if the exec
// failed. A close-on-exec pipe tells the exec's success (end of file) from its failure.
pid_t launch(char** argv, std::int64_t& exec_us) {
    int fds[2];
    if (pipe2(fds, O_CLOEXEC) != 0) return -1;
    const pid_t pid = fork();
    if (pid < 0) return -1;
    if (pid == 0) {
        close(fds[0]);
        const std::int64_t t = now_us();
        write_all(fds[1], &t, sizeof t);
        execvp(argv[0], argv);
        const int error = errno;
        write_all(fds[1], &error, sizeof error);
        _exit(127);
    }
    close(fds[1]);
    std::int64_t t = 0;
    int error = 0;
    const bool got_time = read(fds[0], &t, sizeof t) == static_cast<ssize_t>(sizeof t);
    const bool exec_failed =
        read(fds[0], &error, sizeof error) == static_cast<ssize_t>(sizeof error);
    close(fds[0]);
    if (!got_time || exec_failed) {
        std::fprintf(stderr, "first_frame: cannot run %s: %s\n", argv[0], std::strerror(error));
        waitpid(pid, nullptr, 0);
        return -1;
    }
    exec_us = t;
    return pid;
}

void stop(pid_t pid) {
    kill(pid, SIGTERM);
    waitpid(pid, nullptr, 0);
}

}  // namespace

int main(int argc, char** argv) {
    double timeout_s = 30;
    int first = 1;
    if (argc > 2 && std::strcmp(argv[1], "--timeout") == 0) {
        timeout_s = std::atof(argv[2]);
        first = 3;
    }
    if (first >= argc || timeout_s <= 0) {
        std::fprintf(stderr, "usage: %s [--timeout SECONDS] COMMAND [ARGS...]\n", argv[0]);
        return 2;
    }

    Display* display = XOpenDisplay(nullptr);
    if (display == nullptr) {
        std::fprintf(stderr, "first_frame: cannot open display\n");
        return 1;
    }
    int damage_event = 0;
    int damage_error = 0;
    if (!XDamageQueryExtension(display, &damage_event, &damage_error)) {
        std::fprintf(stderr, "first_frame: the X server has no DAMAGE extension\n");
        return 1;
    }
    XSetErrorHandler(ignore_x_errors);
    const Window root = DefaultRootWindow(display);
    // Listen before the child starts, so that none of its windows can be missed.
    XSelectInput(display, root, SubstructureNotifyMask);
    XSync(display, False);

    std::int64_t exec_us = 0;
    const pid_t child = launch(argv + first, exec_us);
    if (child < 0) return 1;

    const std::int64_t deadline = exec_us + static_cast<std::int64_t>(timeout_s * 1e6);
    Window window = None;  // the first top-level window mapped
    const int fd = ConnectionNumber(display);
    for (;;) {
        while (XPending(display) > 0) {
            XEvent event;
            XNextEvent(display, &event);
            if (event.type == CreateNotify && event.xcreatewindow.parent == root &&
                !event.xcreatewindow.override_redirect) {
                // Tracked from creation: the client may draw as soon as the window is mapped.
                XDamageCreate(display, event.xcreatewindow.window, XDamageReportNonEmpty);
            } else if (event.type == MapNotify && event.xmap.event == root && window == None &&
                       !event.xmap.override_redirect) {
                window = event.xmap.window;
            } else if (event.type == damage_event + XDamageNotify) {
                const auto& damage = reinterpret_cast<const XDamageNotifyEvent&>(event);
                if (window != None && damage.drawable == window) {
                    const std::int64_t elapsed = now_us() - exec_us;
                    stop(child);
                    std::printf("%lld\n", static_cast<long long>(elapsed));
                    return 0;
                }
            }
        }
        const std::int64_t left_us = deadline - now_us();
        int status = 0;
        if (waitpid(child, &status, WNOHANG) == child) {
            std::fprintf(stderr, "first_frame: %s ended before its first frame\n", argv[first]);
            return 1;
        }
        if (left_us <= 0) {
            std::fprintf(stderr, "first_frame: no frame from %s within %g s\n", argv[first],
                         timeout_s);
            stop(child);
            return 1;
        }
        // Wake at least every 100 ms to notice a child that died without a window.
        pollfd pfd{fd, POLLIN, 0};
        poll(&pfd, 1, static_cast<int>(left_us / 1000 < 100 ? left_us / 1000 + 1 : 100));
    }
}

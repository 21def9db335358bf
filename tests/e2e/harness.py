# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The built game in an X session of its own: Xvfb, a D-Bus session with the accessibility
bus, xdotool for the mouse, AT-SPI to read the controls, ImageMagick for screenshots.

A test calls run(main): the first call starts Xvfb and runs the script again inside
dbus-run-session, where main() is called. SANLIAN_TIMEOUT_SCALE stretches every time limit
(sanitizer builds run slower).
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import time

TITLE = "三连棋局"
SCALE = float(os.environ.get("SANLIAN_TIMEOUT_SCALE", "1"))

# Rectangles of the 656x450 client area in pixels: x, y, width, height.
CLIENT = (0, 0, 656, 450)
START = (296, 24, 97, 41)
EXIT = (296, 104, 97, 41)
BANNER = (400, 8, 242, 108)
CELL_SIZE = 73
CELL_BORDER = 2


def cell_rect(i):
    return (32 + 80 * (i % 3), 32 + 80 * (i // 3), CELL_SIZE, CELL_SIZE)


def centre(rect):
    return (rect[0] + rect[2] // 2, rect[1] + rect[3] // 2)


def inside(rect, point):
    return rect[0] <= point[0] < rect[0] + rect[2] and rect[1] <= point[1] < rect[1] + rect[3]


def wait_for(condition, what, timeout=5.0, pump=None):
    """Polls condition() until it is true, running pump() between polls; fails after timeout
    seconds (scaled)."""
    deadline = time.monotonic() + timeout * SCALE
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise AssertionError(f"timed out waiting for {what}")
        if pump:
            pump()
        time.sleep(0.005)


def xdotool(*args):
    return subprocess.run(["xdotool", *map(str, args)], check=True, capture_output=True,
                          text=True, timeout=60 * SCALE).stdout


class Shot:
    """A screenshot of the client area, from ImageMagick's binary PPM."""

    def __init__(self, ppm):
        # The header ends in exactly one whitespace byte; a pixel may look like space.
        header = re.match(rb"P6\s+(\d+)\s+(\d+)\s+255\s", ppm)
        assert header, ppm[:20]
        self.width, self.height = map(int, header.groups())
        self.pixels = ppm[header.end():]
        assert len(self.pixels) == 3 * self.width * self.height

    def at(self, x, y):
        offset = 3 * (int(y) * self.width + int(x))
        return tuple(self.pixels[offset:offset + 3])

    def region(self, rect):
        x, y, w, h = rect
        return b"".join(self.pixels[3 * (row * self.width + x):3 * (row * self.width + x + w)]
                        for row in range(y, y + h))


_started = []  # every program run, to end those a failed check leaves behind


class Game:
    """One run of the program, with its window found and its origin on the screen."""

    def __init__(self, program):
        env = dict(os.environ, QT_QPA_PLATFORM="xcb", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        self.process = subprocess.Popen([program], env=env)
        _started.append(self.process)
        self.pid = self.process.pid
        # --all: xdotool otherwise takes a window that meets either condition.
        self.window = xdotool("search", "--sync", "--all", "--onlyvisible", "--pid", self.pid,
                              "--name", f"^{TITLE}$").split()[0]
        geometry = dict(line.split("=") for line in
                        xdotool("getwindowgeometry", "--shell", self.window).split())
        self.origin = (int(geometry["X"]), int(geometry["Y"]))

    def screen(self, point):
        return (self.origin[0] + point[0], self.origin[1] + point[1])

    def mouse(self, actions):
        """Runs many mouse actions in one xdotool call. Each is ("click", point),
        ("double", point), ("drag", start, end) or ("sleep", seconds); points are client
        pixels."""
        args = []
        for action in actions:
            kind = action[0]
            if kind == "sleep":
                args += ["sleep", f"{action[1]:.3f}"]
                continue
            args += ["mousemove", *self.screen(action[1])]
            if kind == "click":
                args += ["mousedown", 1, "mouseup", 1]
            elif kind == "double":
                args += ["click", "--repeat", 2, "--delay", 40, 1]
            elif kind == "drag":
                args += ["mousedown", 1, "mousemove", *self.screen(action[2]), "mouseup", 1]
        if args:
            xdotool(*args)

    def click(self, rect):
        self.mouse([("click", centre(rect))])

    def close_box(self):
        """Asks the window to close as a window manager's close box does: WM_DELETE_WINDOW."""
        from Xlib import X, display, protocol
        connection = display.Display()
        window = connection.create_resource_object("window", int(self.window))
        protocols = connection.intern_atom("WM_PROTOCOLS")
        delete = connection.intern_atom("WM_DELETE_WINDOW")
        window.send_event(protocol.event.ClientMessage(
            window=window, client_type=protocols, data=(32, [delete, X.CurrentTime, 0, 0, 0])))
        # A round trip before hanging up: the server may drop what a closed connection sent.
        connection.sync()
        connection.close()

    def screenshot(self):
        ppm = subprocess.run(["import", "-window", self.window, "-depth", "8", "ppm:-"], check=True,
                             capture_output=True, timeout=30 * SCALE).stdout
        return Shot(ppm)

    def rss_kb(self):
        with open(f"/proc/{self.pid}/status", encoding="ascii") as status:
            for line in status:
                if line.startswith("VmRSS:"):
                    return int(line.split()[1])
        raise AssertionError("no VmRSS")

    def alive(self):
        return self.process.poll() is None

    def wait_exit(self, timeout=10.0):
        """The exit status, or None after killing a program that did not end in time."""
        try:
            return self.process.wait(timeout=timeout * SCALE)
        except subprocess.TimeoutExpired:
            if shutil.which("gdb"):  # where it hangs, for whoever reads the log
                subprocess.run(["gdb", "-q", "-batch", "-p", str(self.pid), "-ex",
                                "thread apply all bt 30"], timeout=120, stdin=subprocess.DEVNULL)
            self.process.kill()
            self.process.wait()
            return None


class Accessibility:
    """The game's controls as assistive tools see them over AT-SPI, and the name changes they
    are told of. Make it before starting the game, so the game knows someone listens."""

    def __init__(self):
        import pyatspi
        from gi.repository import GLib
        self.atspi = pyatspi
        self.context = GLib.MainContext.default()
        self.heard = []  # the source of each accessible-name event, oldest first
        pyatspi.Registry.registerEventListener(lambda event: self.heard.append(event.source),
            "object:property-change:accessible-name")

    def pump(self):
        while self.context.iteration(False):
            pass

    def attach(self, pid):
        """Finds the game's window and its controls: cells, start, exit, label1..label3."""
        def window():
            desktop = self.atspi.Registry.getDesktop(0)
            for app in (desktop[i] for i in range(desktop.childCount)):
                if app is not None and app.get_process_id() == pid and app.childCount:
                    return app[0]
            return None
        window = wait_for(window, "the game's window over AT-SPI", pump=self.pump)
        children = [window[i] for i in range(window.childCount)]
        by_role = {}
        for child in children:
            by_role.setdefault(child.getRoleName(), []).append(child)
        self.cells = by_role["table cell"]
        self.start, self.exit = by_role["push button"]
        self.label1, self.label2, self.label3 = by_role["label"]
        assert len(self.cells) == 9, [self.name(c) for c in self.cells]

    def name(self, accessible):
        accessible.clear_cache()  # a poll must see the game now, not what was read before
        return accessible.name

    def enabled(self, accessible):
        accessible.clear_cache()
        return accessible.getState().contains(self.atspi.STATE_SENSITIVE)

    def showing(self, accessible):
        accessible.clear_cache()
        return accessible.getState().contains(self.atspi.STATE_SHOWING)

    def wait(self, condition, what, timeout=5.0):
        return wait_for(condition, what, timeout, pump=self.pump)


def run(main):
    """Runs main() inside a fresh Xvfb and D-Bus session and exits with its outcome."""
    if os.environ.get("SANLIAN_E2E_SESSION"):
        # The accessibility bus starts on demand; ask for it before anyone needs it.
        subprocess.run(["dbus-send", "--session", "--print-reply", "--dest=org.a11y.Bus",
                        "/org/a11y/bus", "org.a11y.Bus.GetAddress"], check=True,
                       capture_output=True, timeout=30 * SCALE)
        try:
            main()
        finally:
            for process in _started:
                if process.poll() is None:
                    process.kill()
        return
    scratch = tempfile.mkdtemp(prefix="sanlian-e2e-")
    read_end, write_end = os.pipe()
    xvfb = subprocess.Popen(["Xvfb", "-displayfd", str(write_end), "-screen", "0",
                             "1024x768x24", "-nolisten", "tcp"], pass_fds=[write_end],
                            stderr=subprocess.DEVNULL)
    os.close(write_end)
    try:
        with os.fdopen(read_end) as display_number:
            display = display_number.readline().strip()
        if not display:
            sys.exit("Xvfb did not start")
        runtime = os.path.join(scratch, "runtime")
        os.mkdir(runtime, 0o700)
        env = dict(os.environ, DISPLAY=f":{display}", HOME=scratch, XDG_RUNTIME_DIR=runtime,
                   SANLIAN_E2E_SESSION="1")
        env.pop("DBUS_SESSION_BUS_ADDRESS", None)
        command = ["dbus-run-session", "--", sys.executable, *sys.argv]
        code = subprocess.run(command, env=env, stderr=None).returncode
    finally:
        xvfb.terminate()
        xvfb.wait()
        shutil.rmtree(scratch, ignore_errors=True)
    sys.exit(code)

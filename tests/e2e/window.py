#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
# The built game in a real window on an Xvfb and a D-Bus session (with the accessibility bus) of
# its own: clicks by xdotool, controls read over AT-SPI, screenshots by ImageMagick.
#   window.py GAME game       win, lose and draw a game on purpose, then Exit and the close box
#   window.py GAME trace SRC BUILD   the same game under strace: no file written, nothing read
#                             from the source or build tree
#   window.py GAME soak [START]      20 launches of 200-300 random mouse events, and one of
#                             5,000 whose resident memory must stay within 1 MB
import os, random, re, shutil, subprocess, sys, tempfile, time

SCALE = float(os.environ.get("SANLIAN_TIMEOUT_SCALE", "1"))
START, EXIT, CELL = (344, 44), (344, 124), [(68 + 80 * (i % 3), 68 + 80 * (i // 3)) for i in range(9)]
# Clicks of the human for each ending, by who is first, from the computer's rule.
PLAYS = {"您先": {"你赢了": [1, 3, 0, 2], "你输了": [0, 1, 3], "和局！": [0, 1, 6, 5, 7]},
         "计算机先": {"你赢了": [8, 1, 2, 0], "你输了": [0, 1, 3], "和局！": [0, 2, 7, 3]}}
TRACED = "open,openat,openat2,creat,truncate,rename,renameat,renameat2,unlink,unlinkat,mkdir,mkdirat,rmdir,link,linkat,symlink,symlinkat"


def wait(condition, what, timeout=5):
    deadline = time.monotonic() + timeout * SCALE
    while not (value := condition()):
        assert time.monotonic() < deadline, f"timed out waiting for {what}"
        time.sleep(0.01)
    return value


def xdotool(*args):
    return subprocess.run(["xdotool", *map(str, args)], check=True, capture_output=True, text=True).stdout


class Game:
    def __init__(self, program, trace=None):
        env = dict(os.environ, QT_QPA_PLATFORM="xcb", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        strace = ["strace", "-f", "-qq", "-y", "-x", "-s", "4096", "-o", trace, "-e", "trace=" + TRACED, "--"]
        self.process = subprocess.Popen((strace if trace else []) + [program], env=env)
        self.window = xdotool("search", "--sync", "--onlyvisible", "--name", "^三连棋局$").split()[0]
        self.pid = int(xdotool("getwindowpid", self.window))
        import pyatspi
        self.atspi = pyatspi
        desktop = pyatspi.Registry.getDesktop(0)
        app = wait(lambda: next((a for a in desktop if a and a.get_process_id() == self.pid and a.childCount), None), "AT-SPI")
        controls = {}
        for child in app[0]:
            controls.setdefault(child.getRoleName(), []).append(child)
        self.cells, (self.start, self.exit), (self.label1, self.label2, _) = \
            controls["table cell"], controls["push button"], controls["label"]

    def name(self, accessible):
        accessible.clear_cache()
        return accessible.name

    def enabled(self, accessible):
        accessible.clear_cache()
        return accessible.getState().contains(self.atspi.STATE_SENSITIVE)

    def mouse(self, *actions):  # ("click", x, y), ("double", x, y), ("drag", x, y, x2, y2), ("sleep", s)
        args = []
        for kind, *a in actions:
            if kind == "sleep":
                args += ["sleep", a[0]]
                continue
            args += ["mousemove", "--window", self.window, a[0], a[1]]
            args += {"click": ["click", 1], "double": ["click", "--repeat", 2, 1],
                     "drag": ["mousedown", 1, "mousemove", "--window", self.window, *a[2:], "mouseup", 1]}[kind]
        xdotool(*args)

    def close_box(self):
        from Xlib import X, display, protocol
        connection = display.Display()
        window = connection.create_resource_object("window", int(self.window))
        window.send_event(protocol.event.ClientMessage(window=window, client_type=connection.intern_atom("WM_PROTOCOLS"),
                          data=(32, [connection.intern_atom("WM_DELETE_WINDOW"), X.CurrentTime, 0, 0, 0])))
        connection.sync()  # a round trip: the server may drop what a closed connection sent
        connection.close()

    def ends(self, how):
        self.close_box() if how == "close box" else self.mouse(("click", *EXIT))
        assert self.process.wait(timeout=10 * SCALE) == 0, f"{how}: status {self.process.returncode}"

    def shot(self):  # the window's pixels: at(x, y) is (r, g, b)
        ppm = subprocess.run(["import", "-window", self.window, "-depth", "8", "ppm:-"], check=True, capture_output=True).stdout
        header = re.match(rb"P6\s+(\d+)\s+\d+\s+255\s", ppm)
        return lambda x, y: tuple(ppm[header.end() + 3 * (y * int(header.group(1)) + x):][:3])


def play_each_ending(game):
    assert [game.name(c) for c in game.cells] == [f"第{r}行第{c}列，空" for r in (1, 2, 3) for c in (1, 2, 3)]
    assert [game.name(game.start), game.name(game.exit), game.name(game.label2)] == ["开始", "退出", ""]
    for ending in ("你赢了", "你输了", "和局！"):
        game.mouse(("click", *START))
        first = wait(lambda: not game.enabled(game.start) and game.name(game.label1) in PLAYS and game.name(game.label1), "the toss")
        human = "圆" if first == "您先" else "叉"
        for cell in PLAYS[first][ending]:
            game.mouse(("click", *CELL[cell]))
            wait(lambda: game.name(game.cells[cell]).endswith(human), f"{human} in cell {cell}")
        assert wait(lambda: game.name(game.label2), "a result") == ending and game.enabled(game.start)
    # The draw's last board: circles white on their ring, crosses black on their diagonal; the
    # banner alone moves.
    at = game.shot()
    for cell, (x, y) in enumerate(CELL):
        mark = game.name(game.cells[cell])[-1]
        assert at(x, y - 27) == ((255, 255, 255) if mark == "圆" else at(x - 20, y)), cell
        assert (at(x - 20, y - 20) == (0, 0, 0)) == (mark == "叉"), cell
    wait(lambda: [game.shot()(x, y) for x in range(400, 642, 3) for y in range(8, 116, 3)] !=
         [at(x, y) for x in range(400, 642, 3) for y in range(8, 116, 3)], "the banner to move", 2)


def soak(program, start):
    rng = random.Random(start)
    print(f"random start {start}")
    point = lambda: (rng.randrange(656), rng.randrange(450))
    cell = lambda: (lambda c: (c[0] + rng.randrange(-36, 37), c[1] + rng.randrange(-36, 37)))(rng.choice(CELL))
    for launch in range(21):
        game = Game(program)
        events = [rng.choice([("click", *cell()), ("click", *START), ("click", *point()), ("double", *cell()),
                              ("drag", *cell(), *point()), ("sleep", rng.choice([0.005, 0.05, 0.3]))])
                  for _ in range(5000 if launch == 20 else rng.randrange(200, 300))]
        events = [e for e in events if e[0] == "sleep" or abs(e[1] - EXIT[0]) > 50 or abs(e[2] - EXIT[1]) > 22]
        sizes = []
        for begin in range(0, len(events), 50):
            game.mouse(*events[begin:begin + 50])
            assert game.process.poll() is None, f"launch {launch} ended by itself"
            with open(f"/proc/{game.pid}/status") as status:
                sizes.append(int(re.search(r"VmRSS:\s+(\d+)", status.read()).group(1)))
        if launch == 20 and "SANLIAN_TIMEOUT_SCALE" not in os.environ:
            assert max(sizes[2:]) - min(sizes[2:]) <= 1024, f"resident memory moved: {sizes}"
        game.ends(rng.choice(["Exit", "close box"]))


def trace(program, source, build):
    scratch = os.environ["HOME"]
    copy = shutil.copy2(program, os.path.join(scratch, "sanlian"))  # run from outside both trees
    log = os.path.join(scratch, "trace")
    game = Game(copy, log)
    play_each_ending(game)
    game.ends("Exit")
    call = re.compile(r'^\d+\s+(\w+)\((?:(?:AT_FDCWD|\d+)<([^>]*)>,\s*)?"([^"]*)"(.*)')
    for line in open(log, encoding="latin-1"):
        if match := call.match(line):
            name, base, path, rest = match.groups()
            path = os.path.normpath(os.path.join(base or "", path.encode().decode("unicode_escape")))
            writes = re.search(r"O_(WRONLY|RDWR|CREAT|TRUNC|APPEND|TMPFILE)", rest) or not name.startswith("open")
            assert not writes or (name.startswith("mkdir") and "EEXIST" in rest), line
            assert not any(path.startswith(os.path.realpath(root) + "/") for root in (source, build)), line


def main(program, mode, *args):
    if mode == "game":
        game = Game(program)
        play_each_ending(game)
        game.ends("Exit")
        Game(program).ends("close box")
    elif mode == "soak":
        soak(program, int(args[0]) if args else time.time_ns() % 2**32)
    else:
        trace(program, *args)


if __name__ == "__main__":
    if os.environ.get("SANLIAN_SESSION"):
        subprocess.run(["dbus-send", "--session", "--print-reply", "--dest=org.a11y.Bus", "/org/a11y/bus",
                        "org.a11y.Bus.GetAddress"], check=True, capture_output=True)
        main(*sys.argv[1:])
        sys.exit(0)
    with tempfile.TemporaryDirectory(prefix="sanlian-") as home:
        # Fontconfig caches into the first directory it may write; fill a scratch one first,
        # so that a write in the trace is the game's own.
        with open(os.path.join(home, "fonts.conf"), "w") as conf:
            conf.write(f"<fontconfig><cachedir>{home}/fc</cachedir><include>/etc/fonts/fonts.conf</include></fontconfig>")
        os.mkdir(os.path.join(home, "run"), 0o700)
        env = {k: v for k, v in os.environ.items() if not k.startswith(("XDG_", "DBUS_"))}
        env.update(HOME=home, XDG_RUNTIME_DIR=home + "/run", FONTCONFIG_FILE=home + "/fonts.conf", SANLIAN_SESSION="1")
        subprocess.run(["fc-cache"], env=env, check=True)
        sys.exit(subprocess.run(["xvfb-run", "-a", "-s", "-screen 0 1024x768x24 -nolisten tcp",
                                 "dbus-run-session", "--", sys.executable, os.path.abspath(__file__), *sys.argv[1:]], env=env, cwd=home).returncode)

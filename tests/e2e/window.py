#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
# The built game in a real window, on an Xvfb and a D-Bus session with the accessibility bus of
# its own: clicks by xdotool, controls read and pressed over AT-SPI, window properties by
# python3-xlib. Reports itself skipped (status 77) when a tool it needs is missing.
#   window.py GAME game APP_ID        win by mouse, then lose and draw by the controls' press action
#                                     alone; end with Exit, then the close box
#   window.py GAME trace SRC BUILD    the same games under strace: no file written, and nothing
#                                     opened in the source or build tree
#   window.py GAME soak [START]       20 launches of 200-300 random mouse events ending in Exit or
#                                     the close box, and one of 5,000 whose VmRSS stays within 1 MB
import importlib.util, os, random, re, shutil, subprocess, sys, tempfile, time

SCALE = float(os.environ.get("SANLIAN_TIMEOUT_SCALE", "1"))
START, EXIT, CELL = (344, 44), (344, 124), [(68 + 80 * (i % 3), 68 + 80 * (i // 3)) for i in range(9)]
# The human's clicks for each ending, by who the toss makes first, under the computer's rule.
PLAYS = {"您先": {"你赢了": [1, 3, 0, 2], "你输了": [0, 1, 3], "和局！": [0, 1, 6, 5, 7]},
         "计算机先": {"你赢了": [8, 1, 2, 0], "你输了": [0, 1, 3], "和局！": [0, 2, 7, 3]}}


def wait(condition, what, timeout=5):
    deadline = time.monotonic() + timeout * SCALE
    while not (value := condition()):
        assert time.monotonic() < deadline, f"timed out waiting for {what}"
        time.sleep(0.01)
    return value


def xdotool(*args):
    return subprocess.run(["xdotool", *map(str, args)], check=True, capture_output=True, text=True).stdout


class Game:
    def __init__(self, program, strace=()):
        env = dict(os.environ, QT_QPA_PLATFORM="xcb", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        self.process = subprocess.Popen([*strace, program], env=env)
        self.window = xdotool("search", "--sync", "--onlyvisible", "--name", "^三连棋局$").split()[0]
        self.pid = int(xdotool("getwindowpid", self.window))
        self.origin = [int(v.split("=")[1]) for v in xdotool("getwindowgeometry", "--shell", self.window).split()[1:3]]

    def attach(self):  # the controls over AT-SPI: cells, buttons, captions
        import pyatspi
        self.sensitive, self.showing = pyatspi.STATE_SENSITIVE, pyatspi.STATE_SHOWING
        apps = pyatspi.Registry.getDesktop(0)
        self.app = app = wait(lambda: next((a for a in apps if a and a.get_process_id() == self.pid and a.childCount), 0), "AT-SPI")
        roles = {}
        for child in app[0]:
            roles.setdefault(child.getRoleName(), []).append(child)
        self.cells, (self.start, self.exit), (self.label1, self.label2, _) = roles["table cell"], roles["push button"], roles["label"]

    def name(self, accessible):  # never from the cache
        accessible.clear_cache()
        return accessible.name

    def enabled(self, accessible):
        accessible.clear_cache()
        return accessible.getState().contains(self.sensitive)

    def press(self, accessible):  # its action named "Press", as a screen reader offers it
        action = accessible.queryAction()
        action.doAction([action.getName(i) for i in range(action.nActions)].index("Press"))

    def mouse(self, *actions):  # ("click", x, y), ("double", x, y), ("drag", x, y, x2, y2), ("sleep", s)
        args = []
        for kind, *a in actions:  # on screen; "click" with --window waits about 0.1 s each
            at = ["mousemove", *(c + o for c, o in zip(a, self.origin * 2))][:3]
            args += {"sleep": ["sleep", *a], "click": [*at, "mousedown", 1, "mouseup", 1],
                     "double": [*at, "mousedown", 1, "mouseup", 1, "sleep", 0.04, "mousedown", 1, "mouseup", 1],
                     "drag": [*at, "mousedown", 1, "mousemove", *(c + o for c, o in zip(a[2:], self.origin)), "mouseup", 1]}[kind]
        xdotool(*args)

    def ends(self, how):
        if how == "Exit":
            self.mouse(("click", *EXIT))
        else:
            from Xlib import X, display, protocol
            connection = display.Display()
            window, atom = connection.create_resource_object("window", int(self.window)), connection.intern_atom
            window.send_event(protocol.event.ClientMessage(window=window, client_type=atom("WM_PROTOCOLS"),
                              data=(32, [atom("WM_DELETE_WINDOW"), X.CurrentTime, 0, 0, 0])))
            connection.sync()  # a round trip: the server may drop what a closing connection sent
            connection.close()
        assert self.process.wait(timeout=10 * SCALE) == 0, f"{how}: status {self.process.returncode}"


def play_each_ending(game):  # a cell reads as enabled only while a click would play it
    game.attach()
    assert [game.name(c) for c in game.cells] == [f"第{r}行第{c}列，空" for r in (1, 2, 3) for c in (1, 2, 3)]
    assert [game.name(game.start), game.name(game.exit), game.name(game.label2)] == ["开始", "退出", ""]
    for n, ending in enumerate(PLAYS["您先"]):
        press = (lambda control, at: game.mouse(("click", *at))) if n == 0 else (lambda control, at: game.press(control))
        press(game.start, START)
        first = wait(lambda: not game.enabled(game.start) and game.name(game.label1) in PLAYS and game.name(game.label1), "the toss")
        for cell in PLAYS[first][ending]:
            wait(lambda: game.enabled(game.cells[cell]), f"cell {cell} to open")
            press(game.cells[cell], CELL[cell])
            wait(lambda: game.name(game.cells[cell]).endswith("圆" if first == "您先" else "叉"), f"a mark in cell {cell}")
        assert wait(lambda: game.name(game.label2), "a result") == ending and game.enabled(game.start) and not any(map(game.enabled, game.cells))


def soak(program, start=time.time_ns() % 2**32):
    rng = random.Random(int(start))
    print(f"random start {start}")
    point, cell = lambda: (rng.randrange(656), rng.randrange(450)), lambda: [c + rng.randrange(-36, 37) for c in rng.choice(CELL)]
    for launch in range(21):
        game, sizes = Game(program), []
        events = [rng.choice([("click", *cell()), ("click", *START), ("click", *point()), ("double", *cell()), ("drag", *cell(), *point()),
                              ("click", *START)] + [("sleep", rng.choice([0.005, 0.02, 0.05, 0.15, 0.3]))] * (rng.random() < 0.1))
                  for _ in range(5000 if launch == 20 else rng.randrange(200, 300))]
        events = [("sleep", 10)] * (launch == 20) + [e for e in events if e[0] == "sleep" or not (296 <= e[1] < 393 and 104 <= e[2] < 145)]
        for begin in range(0, len(events), 50):
            game.mouse(*events[begin:begin + 50])
            assert game.process.poll() is None, f"launch {launch} ended by itself"
            sizes.append(int(re.search(r"VmRSS:\s+(\d+)", open(f"/proc/{game.pid}/status").read()).group(1)))
        assert launch < 20 or SCALE > 1 or max(sizes) - min(sizes) <= 1024, f"resident memory moved: {sizes}"
        game.ends(rng.choice(["Exit", "close box"]))


def trace(program, source, build):
    copy, log = shutil.copy2(program, os.environ["HOME"]), os.environ["HOME"] + "/trace"  # run from outside both trees
    os.environ["ASAN_OPTIONS"] = os.environ.get("ASAN_OPTIONS", "") + ":detect_leaks=0"  # LeakSanitizer cannot run under ptrace
    game = Game(copy, ["strace", "-f", "-qq", "-y", "-x", "-s", "4096", "-o", log, "-e", "trace=%file"])
    play_each_ending(game)
    game.ends("Exit")
    for line in open(log, encoding="latin-1"):
        if match := re.match(r'\d+\s+(\w+)\((?:(?:AT_FDCWD|\d+)<([^>]*)>,\s*)?"([^"]*)"(.*)', line):
            name, base, path, rest = match.groups()
            path = os.path.normpath(os.path.join(base or "", path.encode().decode("unicode_escape")))
            changes = re.match(r"(creat|truncate|rename|unlink|mkdir|rmdir|link|symlink)", name) and "EEXIST" not in rest
            assert not changes and not re.search(r"O_(WRONLY|RDWR|CREAT|TRUNC|APPEND|TMPFILE)", rest), line
            assert not any(path.startswith(os.path.realpath(root) + "/") for root in (source, build)), line


def game(program, app_id):
    play_each_ending(first := Game(program))
    # The application reads as its window's title, and whatever shows something has a name.
    unnamed = [c.getRoleName() for c in [first.app[0], *first.app[0]] if c.getState().contains(first.showing) and not c.name]
    assert first.app.name == "三连棋局" and not unnamed, (first.app.name, unnamed)
    from Xlib import display  # WM_CLASS names the desktop entry, and _NET_WM_ICON holds its icon
    window = display.Display().create_resource_object("window", int(first.window))
    assert window.get_wm_class()[1] == app_id, window.get_wm_class()
    icon = window.get_full_property(window.display.get_atom("_NET_WM_ICON"), 0)
    assert icon and icon.value[:2].tolist() == [48, 48], icon  # the first of its sizes
    first.ends("Exit")
    Game(program).ends("close box")


if __name__ == "__main__":
    if os.environ.get("SANLIAN_SESSION"):  # inside: the accessibility bus starts on demand, so ask for it first
        subprocess.run(["dbus-send", "--session", "--dest=org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus.GetAddress"], check=True)
        sys.exit({"game": game, "soak": soak, "trace": trace}[sys.argv[2]](sys.argv[1], *sys.argv[3:]))
    needs = ["xvfb-run", "dbus-run-session", "xdotool", "fc-cache"] + ["strace"] * (sys.argv[2] == "trace")
    if missing := [t for t in needs if not shutil.which(t)] + [m for m in ("pyatspi", "Xlib") if not importlib.util.find_spec(m)]:
        print("skipped: missing", *missing)
        sys.exit(77)
    with tempfile.TemporaryDirectory(prefix="sanlian-") as home:
        # Fontconfig writes its cache to the first directory it may; a scratch one filled before
        # the game starts keeps that bookkeeping out of the trace.
        with open(home + "/fonts.conf", "w") as conf:
            conf.write(f"<fontconfig><cachedir>{home}/fc</cachedir><include>/etc/fonts/fonts.conf</include></fontconfig>")
        os.mkdir(home + "/run", 0o700)
        env = {k: v for k, v in os.environ.items() if not k.startswith(("XDG_", "DBUS_"))}
        env.update(HOME=home, XDG_RUNTIME_DIR=home + "/run", FONTCONFIG_FILE=home + "/fonts.conf", SANLIAN_SESSION="1")
        subprocess.run(["fc-cache"], env=env, check=True)
        sys.exit(subprocess.run(["xvfb-run", "-a", "-s", "-screen 0 1024x768x24 -nolisten tcp", "dbus-run-session", "--",
                                 sys.executable, os.path.abspath(__file__), *sys.argv[1:]], env=env, cwd=home).returncode)

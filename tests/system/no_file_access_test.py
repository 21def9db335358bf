#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Plays a little under strace and fails if the game writes, creates, renames or removes any
file, or opens anything in the source tree or the build tree.

The game keeps everything in memory; its banner frames and fonts are compiled in. Run:
    no_file_access_test.py GAME SOURCE_DIR BUILD_DIR
It starts its own Xvfb (xvfb-run) and D-Bus session (dbus-run-session).
"""

import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time

TITLE = "^三连棋局$"
# Centres of the controls in the 656x450 client area, in pixels.
START = (344, 44)
EXIT = (344, 124)
CELLS = [(32 + 80 * (i % 3) + 36, 32 + 80 * (i // 3) + 36) for i in range(9)]

# Every call that writes a name into a directory, and the opens, to see their flags and paths.
TRACED = ("open,openat,openat2,creat,truncate,rename,renameat,renameat2,unlink,unlinkat,"
          "mkdir,mkdirat,rmdir,link,linkat,symlink,symlinkat")
CHANGES_NAMES = {"creat", "truncate", "rename", "renameat", "renameat2", "unlink", "unlinkat",
                 "mkdir", "mkdirat", "rmdir", "link", "linkat", "symlink", "symlinkat"}
WRITE_FLAGS = re.compile(r"\bO_(WRONLY|RDWR|CREAT|TRUNC|APPEND|TMPFILE)\b")
# "1234 openat(AT_FDCWD</cwd>, "/path", O_RDONLY|O_CLOEXEC) = 3</path>", as strace -f -y
# writes it; a call split by another thread keeps its name and arguments on its first line.
CALL = re.compile(r'^\d+\s+(\w+)\((.*)')
DIR_FD = re.compile(r'^(?:AT_FDCWD|\d+)<([^>]*)>,\s*')
STRING = re.compile(r'"((?:[^"\\]|\\.)*)"')


def decode(s):
    # strace -x writes every byte outside printable ASCII as \xhh; paths are UTF-8.
    return s.encode("ascii").decode("unicode_escape").encode("latin-1").decode("utf-8", "replace")


def within(path, root):
    return path == root or path.startswith(root.rstrip("/") + "/")


def violations(trace_lines, forbidden_roots):
    found = []
    for line in trace_lines:
        match = CALL.match(line)
        if not match:
            continue
        name, args = match.groups()
        if name not in CHANGES_NAMES and not name.startswith("open"):
            continue
        # mkdir of a directory that is there already changes nothing; Qt makes sure of the
        # runtime directory that way.
        if name.startswith("mkdir") and "= -1 EEXIST" in line:
            continue
        base = ""
        fd = DIR_FD.match(args)
        if fd:
            base = fd.group(1)
            args = args[fd.end():]
        strings = STRING.findall(args)
        paths = [os.path.normpath(os.path.join(base, decode(s))) for s in strings]
        if name in CHANGES_NAMES:
            found.append(f"{name} {' '.join(paths)}: {line.strip()}")
            continue
        if name == "creat" or WRITE_FLAGS.search(args):
            found.append(f"opened for writing: {line.strip()}")
            continue
        for path in paths[:1]:
            if any(within(path, root) for root in forbidden_roots):
                found.append(f"opened inside the source or build tree: {line.strip()}")
    return found


def xdotool(*args, timeout=30):
    return subprocess.run(["xdotool", *args], check=True, timeout=timeout,
                          capture_output=True, text=True).stdout


def click(window, point, pause):
    xdotool("mousemove", "--window", window, str(point[0]), str(point[1]), "click", "1")
    time.sleep(pause)


def children(pid):
    found = []
    for entry in os.listdir("/proc"):
        if entry.isdigit():
            try:
                with open(f"/proc/{entry}/stat", encoding="latin-1") as stat:
                    fields = stat.read().rsplit(")", 1)[1].split()
            except OSError:
                continue
            if int(fields[1]) == pid:
                found.append(int(entry))
    return found


def play(game, trace_path):
    """Starts the game under strace, plays two games by clicking, then presses Exit."""
    process = subprocess.Popen(
        ["strace", "-f", "-qq", "-y", "-x", "-s", "4096", "-o", trace_path, "-e", "trace=" + TRACED,
         "--", game])
    try:
        window = xdotool("search", "--sync", "--onlyvisible", "--name", TITLE).split()[0]
        for _ in range(2):
            click(window, START, 1.5)  # long enough for the toss to settle
            for cell in CELLS:
                click(window, cell, 0.2)
            time.sleep(1.2)  # the winning line blinks
        click(window, EXIT, 0)
        try:
            process.wait(timeout=10)
        except subprocess.TimeoutExpired:
            print("the game did not end on Exit; the trace is checked all the same")
    finally:
        # strace leaves its program running when it is itself ended, so end the program.
        if process.poll() is None:
            for pid in children(process.pid):
                os.kill(pid, signal.SIGTERM)
            process.wait(timeout=10)


def main():
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    game, source_dir, build_dir = (os.path.realpath(p) for p in sys.argv[1:])

    if "SANLIAN_NO_FILE_ACCESS_INSIDE" not in os.environ:
        scratch = tempfile.mkdtemp(prefix="sanlian-files-")
        try:
            home = os.path.join(scratch, "home")
            runtime = os.path.join(scratch, "runtime")
            os.mkdir(home, 0o700)
            os.mkdir(runtime, 0o700)
            env = dict(os.environ, SANLIAN_NO_FILE_ACCESS_INSIDE=scratch, HOME=home,
                       XDG_RUNTIME_DIR=runtime, QT_QPA_PLATFORM="xcb")
            for name in ("XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME",
                         "DBUS_SESSION_BUS_ADDRESS"):
                env.pop(name, None)
            # Fontconfig writes a cache for any font directory whose cache is missing or stale,
            # into the first cache directory it may write to: /var/cache/fontconfig for root.
            # That is the library's bookkeeping, done on a desktop long before the game runs.
            # So a configuration that includes the system's but puts a scratch cache first,
            # filled by fc-cache before the trace; a write seen under strace is then the game's.
            font_cache = os.path.join(scratch, "fontconfig-cache")
            fonts_conf = os.path.join(scratch, "fonts.conf")
            with open(fonts_conf, "w", encoding="utf-8") as conf:
                conf.write(f"<?xml version='1.0'?>\n<fontconfig>\n"
                           f"  <cachedir>{font_cache}</cachedir>\n"
                           f"  <include ignore_missing='no'>/etc/fonts/fonts.conf</include>\n"
                           f"</fontconfig>\n")
            env["FONTCONFIG_FILE"] = fonts_conf
            subprocess.run(["fc-cache"], env=env, check=True)
            # A session bus of its own, as a desktop has; without one Qt would autolaunch a
            # bus daemon, which writes its address under the home directory.
            command = ["xvfb-run", "-a", "-s", "-screen 0 1280x1024x24 -nolisten tcp",
                       "dbus-run-session", "--", sys.executable, *sys.argv]
            sys.exit(subprocess.run(command, env=env, cwd=home).returncode)
        finally:
            shutil.rmtree(scratch)

    scratch = os.environ["SANLIAN_NO_FILE_ACCESS_INSIDE"]
    # Run a copy from outside both trees, as an installed program runs: Qt also looks for
    # plugins next to the executable, which is no reading of ours.
    copy = os.path.join(scratch, "bin", "sanlian")
    os.mkdir(os.path.dirname(copy))
    shutil.copy2(game, copy)
    trace_path = os.path.join(scratch, "trace")
    play(copy, trace_path)

    with open(trace_path, encoding="latin-1") as trace:
        lines = trace.readlines()
    opens = sum(1 for line in lines if CALL.match(line))
    found = violations(lines, [source_dir, build_dir])
    if found:
        print(f"{len(found)} file accesses the game must not make:")
        print("\n".join(found))
        sys.exit(1)
    print(f"{opens} traced calls, none writes a file or reads the source or build tree")


if __name__ == "__main__":
    main()

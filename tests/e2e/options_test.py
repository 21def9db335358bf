#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
# The program's arguments, without a display: --help and --version answer on standard output
# with status 0; Qt's own arguments open the game (on the offscreen platform), as does the
# minimal platform, which takes no application fonts; a missing display or a mistyped platform,
# and an argument neither Qt's nor the program's, each get one line on standard error naming
# the platform plugin or the argument as typed, and status 1. Usage: options_test.py GAME
import os, re, signal, subprocess, sys, time

OPEN = -signal.SIGKILL  # still running when every answer has come, so the game is open
CASES = [  # arguments, QT_QPA_PLATFORM, status, standard output, standard error
    (["--help"], "", 0, r"Usage: \S*sanlian \[options\]\n(.*\n)*  -h, --help .*\n  --help-all .*\n  -v, --version .*\n", ""),
    (["--version"], "", 0, r"sanlian 1\.0\n", ""),
    (["-platform", "offscreen", "-style", "Fusion", "-reverse", "-session", "x"], "", OPEN, "", ""),
    ([], "minimal", OPEN, "", r"(.*\n)*"),
    (["--help-all"], "offscreen", 0, r"(.*\n)*  --platform <platformName\[:options\]> .*\n(.*\n)*", ""),
    (["-xyz"], "offscreen", 1, "", r"sanlian: .*'-xyz'.*\n"),
    (["stray"], "offscreen", 1, "", r"sanlian: .*'stray'.*\n"),
    ([], "", 1, "", r'sanlian: .*"xcb".*\n'),
    ([], "waylnd", 1, "", r'sanlian: .*"waylnd".*\n')]
env = {k: v for k, v in os.environ.items() if k not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_SESSION_TYPE")}
runs = [subprocess.Popen([sys.argv[1], *c[0]], env=dict(env, QT_QPA_PLATFORM=c[1]), text=True, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        for c in CASES]
time.sleep(3 * float(os.environ.get("SANLIAN_TIMEOUT_SCALE", "1")))
for (args, _, status, out, err), run in zip(CASES, runs):
    run.kill()
    stdout, stderr = run.communicate()
    assert run.returncode == status and re.fullmatch(out, stdout) and re.fullmatch(err, stderr), (args, run.returncode, stdout, stderr)

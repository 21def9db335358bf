#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
# The program on a terminal without a display: --help and --version answer on standard output
# with status 0; a wrong option, a stray argument and the missing display each get one line on
# standard error and status 1, and no core. Usage: options_test.py GAME
import os, re, subprocess, sys

env = {k: v for k, v in os.environ.items() if k not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_SESSION_TYPE")}
CASES = [(["--help"], 0, r"Usage: \S*sanlian \[options\]\n(.*\n)*  -h, --help .*\n  -v, --version .*\n", ""),
         (["--version"], 0, r"sanlian 1\.0\n", ""),
         (["--bogus"], 1, "", r"sanlian: .*'bogus'.*\n"),
         (["stray"], 1, "", r"sanlian: .*'stray'.*\n"),
         ([], 1, "", r"sanlian: .*display.*\n")]
for args, status, out, err in CASES:
    run = subprocess.run([sys.argv[1], *args], env=env, capture_output=True, text=True, timeout=30)
    assert run.returncode == status and re.fullmatch(out, run.stdout) and re.fullmatch(err, run.stderr), f"sanlian {args}: {run}"

#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what is missing, builds the game and starts it.
# Usage: scripts/run.sh
set -euo pipefail
cd "$(dirname "$0")/.."

if [[ -z "${DISPLAY:-}" && -z "${WAYLAND_DISPLAY:-}" ]]; then
    echo "run.sh: no display (neither DISPLAY nor WAYLAND_DISPLAY is set); the game needs a desktop." >&2
    exit 1
fi

scripts/install-deps.sh run
# Only the game: the tests and benchmarks would need packages that playing does not.
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo -DSANLIAN_GUI=ON -DSANLIAN_TESTS=OFF \
    -DSANLIAN_BENCH=OFF >/dev/null
cmake --build build --parallel "$(nproc)" --target sanlian
exec build/sanlian

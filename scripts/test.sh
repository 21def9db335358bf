#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what is missing, builds everything and runs every test, then builds the core as
# WebAssembly and runs its tests too (scripts/test-web.sh, with the same extra options), unless
# SANLIAN_WEB=OFF.
# Usage: scripts/test.sh [build-dir] [extra cmake options...]
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh test
build_dir=${1:-build}
shift || true
# Everything on, whatever an earlier run.sh left in the same build directory.
cmake -S . -B "$build_dir" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DSANLIAN_GUI=ON -DSANLIAN_TESTS=ON \
    -DSANLIAN_BENCH=ON "$@" >/dev/null
cmake --build "$build_dir" --parallel "$(nproc)"
ctest --test-dir "$build_dir" --output-on-failure --parallel "$(nproc)"
[[ ${SANLIAN_WEB:-ON} == OFF ]] || scripts/test-web.sh "$@"

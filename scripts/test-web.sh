#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what is missing, builds the game's core and its page as WebAssembly into build-web and
# runs the core's tests under Node and the page's in Chromium.
# Usage: scripts/test-web.sh [extra cmake options...]
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh web
# em++ runs Debian's acorn under Node, and a Node from outside Debian does not look for it there.
export NODE_PATH=${NODE_PATH:+$NODE_PATH:}/usr/share/nodejs
# The core and the page, whatever the options: neither Qt nor Google Benchmark is built for
# WebAssembly, and the sanitizers are the native build's (here they would need a growable memory).
emcmake cmake -S . -B build-web -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@" -DSANLIAN_GUI=OFF \
    -DSANLIAN_TESTS=ON -DSANLIAN_BENCH=OFF -DSANLIAN_SANITIZE=OFF >/dev/null
cmake --build build-web --parallel "$(nproc)"
# The page tests drive Debian's Chromium with puppeteer-core as locked, which downloads no browser.
mkdir -p build-web/npm
cp -p testing/web/package.json testing/web/package-lock.json build-web/npm/
if command -v npm >/dev/null &&
    ! [[ build-web/npm/node_modules/.package-lock.json -nt build-web/npm/package-lock.json ]]; then
    npm ci --prefix build-web/npm --ignore-scripts --no-audit --no-fund
fi
ctest --test-dir build-web --output-on-failure --parallel "$(nproc)"

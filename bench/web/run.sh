#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the site and measures the page against its floors in headless Chromium (about four
# minutes). Usage: bench/web/run.sh [ROUNDS]
set -euo pipefail
cd "$(dirname "$0")/../.."

scripts/web.sh --build-only >/dev/null
mkdir -p build-web/npm
cp -p testing/web/package.json testing/web/package-lock.json build-web/npm/
[[ build-web/npm/node_modules/.package-lock.json -nt build-web/npm/package-lock.json ]] ||
    npm ci --prefix build-web/npm --ignore-scripts --no-audit --no-fund
node bench/web/bench.mjs build-web/site build-web/npm/node_modules "${1:-10}"

#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what is missing, builds the game as a static site into build-web/site and serves it on
# this machine.
# Usage: scripts/web.sh [--build-only] [--bind ADDRESS] [--port PORT]
#   --build-only   build the site and stop, for a packager or a static host to take it from there
#   --bind, --port where to serve it; 127.0.0.1 and 8000 unless given
set -euo pipefail
cd "$(dirname "$0")/.."

serve=yes
address=127.0.0.1
port=8000
while [[ $# -gt 0 ]]; do
    case "$1" in
        --build-only) serve=no ;;
        --bind) address=${2:?--bind needs an address}; shift ;;
        --port) port=${2:?--port needs a number}; shift ;;
        *) sed -n 's/^# Usage: /usage: /p' "$0" >&2; exit 2 ;;
    esac
    shift
done

scripts/install-deps.sh web
# em++ runs Debian's acorn under Node, and a Node from outside Debian does not look for it there.
export NODE_PATH=${NODE_PATH:+$NODE_PATH:}/usr/share/nodejs
# The build type and the tests stay as scripts/test-web.sh may have left them in the same
# directory; a first configure builds the site alone.
first=()
[[ -f build-web/CMakeCache.txt ]] || first=(-DCMAKE_BUILD_TYPE=Release -DSANLIAN_TESTS=OFF)
emcmake cmake -S . -B build-web "${first[@]}" -DSANLIAN_GUI=OFF -DSANLIAN_BENCH=OFF \
    -DSANLIAN_SANITIZE=OFF >/dev/null
cmake --build build-web --parallel "$(nproc)" --target site
[[ $serve == yes ]] || { echo "The site is in build-web/site/."; exit 0; }

host=$address
[[ $host == *:* ]] && host="[$host]"
echo "Serving the game at http://$host:$port/ (Ctrl+C stops)"
exec /usr/bin/python3 -m http.server "$port" --bind "$address" --directory build-web/site

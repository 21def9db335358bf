#!/bin/sh
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
# The game on Wayland under a headless weston of the test's own: passes once the window has
# taken the desktop entry's id as its app id and then drawn itself, as the client's protocol
# log tells; skipped (status 77) without weston. Usage: wayland_test.sh GAME APP_ID
command -v weston >/dev/null || { echo "skipped: missing weston"; exit 77; }
export XDG_RUNTIME_DIR="$(mktemp -d)"
weston --backend=headless-backend.so --socket=wayland-sanlian --no-config --idle-time=0 2>/dev/null &
trap 'kill $!; rm -rf "$XDG_RUNTIME_DIR"' EXIT
timeout 10 sh -c 'until [ -S "$XDG_RUNTIME_DIR/wayland-sanlian" ]; do sleep 0.05; done'
WAYLAND_DISPLAY=wayland-sanlian QT_QPA_PLATFORM=wayland WAYLAND_DEBUG=1 timeout 30 "$1" 2>&1 >/dev/null |
    awk -v id="set_app_id(\"$2\")" '/xdg_toplevel@[0-9]+\.set_app_id\(/ && index($0, id) { named = 1 }
        named && /wl_surface@[0-9]+\.attach\(/ { drawn = 1; exit } END { exit !drawn }'

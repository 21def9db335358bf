#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs the build into a scratch root and checks that the program, desktop entry, icons and
# metainfo fit together as a desktop and a software centre read them.
# Usage: check-installed-tree.sh BUILD_DIR APP_ID
set -euo pipefail
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
DESTDIR=$root cmake --install "$1" --prefix /usr >/dev/null
share=$root/usr/share
failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }

# The metainfo's launchable, the desktop entry and its icon, as a software centre finds them.
appstreamcli validate-tree --no-net --strict "$root" || fail "appstreamcli validate-tree"
desktop=$share/applications/$2.desktop
program=$(sed -n 's/^Exec=\([^ ]*\).*/\1/p' "$desktop")
[[ -x "$root/usr/games/$program" ]] || fail "Exec=$program is not a program in /usr/games"
icon=$(sed -n 's/^Icon=//p' "$desktop")
[[ -f "$share/icons/hicolor/scalable/apps/$icon.svg" ]] || fail "no scalable icon $icon.svg"
# An icon theme trusts the directory name; a PNG of another size is drawn blurred or cut.
for size in 48 256; do
    png=$share/icons/hicolor/${size}x${size}/apps/$icon.png
    file -b "$png" | grep -q "PNG image data, $size x $size," || fail "$png is not ${size}x$size"
done
((failures == 0)) && echo "installed tree is consistent"
exit $((failures > 0))

#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs the build into a scratch root and checks that the program, desktop entry, icons and
# metainfo fit together as a desktop and a software centre read them.
# Usage: check-installed-tree.sh BUILD_DIR APP_ID
set -euo pipefail
build_dir=$1
app_id=$2

root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
DESTDIR=$root cmake --install "$build_dir" --prefix /usr >/dev/null

failures=0
fail() {
    echo "FAIL: $*"
    failures=$((failures + 1))
}

# The metainfo's launchable, the desktop entry and its icon, as a software centre finds them.
appstreamcli validate-tree --no-net --strict "$root" || fail "appstreamcli validate-tree"

desktop=$root/usr/share/applications/$app_id.desktop
[[ -f "$desktop" ]] || { fail "no $app_id.desktop in share/applications"; exit 1; }
program=$(sed -n 's/^Exec=\([^ ]*\).*/\1/p' "$desktop")
[[ -x "$root/usr/bin/$program" ]] || fail "Exec=$program is not a program in /usr/bin"

icon=$(sed -n 's/^Icon=//p' "$desktop")
[[ -f "$root/usr/share/icons/hicolor/scalable/apps/$icon.svg" ]] ||
    fail "no scalable icon $icon.svg"
# An icon theme trusts the directory name; a PNG of another size is drawn blurred or cut.
for size in 48 256; do
    png=$root/usr/share/icons/hicolor/${size}x${size}/apps/$icon.png
    if [[ ! -f "$png" ]]; then
        fail "no ${size}x${size} icon $icon.png"
        continue
    fi
    # Width and height are big-endian 32-bit words at offset 16 of the PNG header.
    read -r -a b < <(od -An -tu1 -j16 -N8 "$png")
    width=$(((b[0] << 24) | (b[1] << 16) | (b[2] << 8) | b[3]))
    height=$(((b[4] << 24) | (b[5] << 16) | (b[6] << 8) | b[7]))
    [[ $width -eq $size && $height -eq $size ]] ||
        fail "${size}x${size}/apps/$icon.png is ${width}x${height}"
done

((failures == 0)) && echo "installed tree is consistent"
exit $((failures > 0))

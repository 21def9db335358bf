#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the Debian package from BUILD_DIR and again from a second build directory under another
# umask, and fails unless both hold the same bytes. Checks the package with lintian and
# hardening-check, its files and its dependencies, installs it with apt, plays the installed
# game in a real window, and removes the package and whatever apt pulled in. It changes the
# machine, so it runs only as root and only when asked: SANLIAN_DEB_TEST=1 or CI=true.
# Usage: deb-install-test.sh BUILD_DIR APP_ID
set -euo pipefail

build_dir=$(realpath "$1") app_id=$2 package=sanlian
(($(id -u) == 0)) || { echo "skipped: installing a package needs root"; exit 77; }
[[ ${SANLIAN_DEB_TEST:-} == 1 || ${CI:-} == true ]] ||
    { echo "skipped: it installs and removes a package; set SANLIAN_DEB_TEST=1 to run it"; exit 77; }
[[ $(dpkg-query -W -f='${db:Status-Status}' $package 2>/dev/null) != installed ]] ||
    { echo "skipped: $package is installed already; leaving it alone"; exit 77; }

work=$(mktemp -d)
chmod 755 "$work" # apt reads the local .deb as its unprivileged _apt user
apt_options=(-y -qq -o DPkg::Lock::Timeout=300 --no-install-recommends)
pulled_in=() ours=false failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }
cleanup() {
    local status=$?
    if $ours; then
        DEBIAN_FRONTEND=noninteractive apt-get purge "${apt_options[@]}" $package "${pulled_in[@]}" \
            >"$work/log" 2>&1 || { cat "$work/log"; status=1; }
    fi
    rm -rf "$work"
    exit $status
}
trap cleanup EXIT
run() { "$@" >"$work/log" 2>&1 || { cat "$work/log"; exit 1; }; }

run cpack --config "$build_dir/CPackConfig.cmake" -B "$work/out"
deb=$(echo "$work"/out/${package}_*.deb)
echo "built $(basename "$deb"), $(sha256sum <"$deb")"
# The second build: the first one's compiler, build type and flags, the game alone.
options=(-DSANLIAN_TESTS=OFF -DSANLIAN_BENCH=OFF)
for name in CMAKE_CXX_COMPILER CMAKE_BUILD_TYPE CMAKE_CXX_FLAGS CMAKE_EXE_LINKER_FLAGS SANLIAN_HARDEN
do options+=("-D$name=$(sed -n "s/^$name:[A-Z]*=//p" "$build_dir/CMakeCache.txt")"); done
umask 077
run cmake -S "$(dirname "$0")/.." -B "$work/build" "${options[@]}"
run cmake --build "$work/build" --parallel "$(nproc)" --target sanlian compressed_docs
run cpack --config "$work/build/CPackConfig.cmake" -B "$work/second"
# Byte for byte, each member of the two packages. CMake 3.25's cpack gives the members' own ar
# headers the modes of its scratch files, which follow its umask; nothing else may differ.
for member in debian-binary control.tar.gz data.tar.gz; do
    cmp <(ar p "$deb" $member) <(ar p "$work"/second/${package}_*.deb $member) ||
        fail "a second build directory made another $member"
done

# As an unprivileged user, which lintian prefers.
runuser -u nobody -- lintian --pedantic --fail-on error,warning "$deb" || fail "lintian"
# The files as a desktop and a software centre read them: the metainfo's launchable, the
# entry's program, and its icon, the PNGs at the sizes their directories name.
dpkg-deb -x "$deb" "$work/root"
appstreamcli validate-tree --no-net --strict "$work/root" || fail "appstreamcli validate-tree"
entry=$work/root/usr/share/applications/$app_id.desktop icons=$work/root/usr/share/icons/hicolor
program=$(sed -n 's/^Exec=\([^ ]*\).*/\1/p' "$entry") icon=$(sed -n 's/^Icon=//p' "$entry")
[[ -x $work/root/usr/games/$program ]] || fail "Exec=$program is not a program in /usr/games"
[[ -f $icons/scalable/apps/$icon.svg ]] || fail "no scalable icon $icon.svg"
for size in 48 256; do
    file -b "$icons/${size}x$size/apps/$icon.png" | grep -q "PNG image data, $size x $size," ||
        fail "no $size px icon $icon.png"
done
hardening-check --nofortify --nocfprotection "$work/root/usr/games/sanlian" || fail "hardening"
# Libraries from dpkg-shlibdeps, and the platform plugin, which only the code names.
depends=$(dpkg-deb -f "$deb" Depends | tr ',' '\n' | awk '{ print $1 }')
for needed in libc6 libstdc++6 libqt6core6 libqt6gui6 libqt6widgets6 qt6-qpa-plugins
do grep -qxF $needed <<<"$depends" || fail "Depends lacks $needed"; done
((failures == 0)) || exit 1

# What apt installs besides the package is ours to remove afterwards.
mapfile -t pulled_in < <(apt-get install -s "${apt_options[@]}" "$deb" |
    awk -v p=$package '$1 == "Inst" && $2 != p { print $2 }')
ours=true
DEBIAN_FRONTEND=noninteractive run apt-get install "${apt_options[@]}" "$deb"
# The installed game plays a game of each ending and ends, in the real-window tests' harness.
/usr/bin/python3 "$(dirname "$0")/../tests/e2e/window.py" /usr/games/sanlian game "$app_id" ||
    fail "the installed game did not play and close"
((failures == 0)) && echo "package is reproducible, lintian-clean, hardened; installs, runs, closes"
exit $((failures > 0))

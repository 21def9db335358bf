#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the Debian package from BUILD_DIR and again from a second build directory under another
# umask, and fails unless both hold the same bytes. Checks the package with lintian and
# hardening-check and its files and dependencies, installs it with apt, starts the installed
# game under Xvfb until its window shows, closes it with its Exit button, and removes the
# package and whatever apt pulled in. It changes the machine, so it runs only as root and only
# when asked: SANLIAN_DEB_TEST=1 or CI=true.
# Usage: deb-install-test.sh BUILD_DIR APP_ID
set -euo pipefail

# Second stage, under Xvfb and a session bus: the installed game opens, and closes on a click on
# Exit, whose centre is at (344, 124) in the 656x450 client area.
if [[ $1 == --window ]]; then
    /usr/games/sanlian & pid=$!
    windows=$(timeout 30 xdotool search --sync --onlyvisible --name '^三连棋局$') ||
        { echo "FAIL: no window named 三连棋局 within 30 s"; kill $pid; exit 1; }
    xdotool mousemove --window "${windows%%$'\n'*}" 344 124 click 1
    timeout 10 tail --pid=$pid -f /dev/null || { echo "FAIL: running 10 s after Exit"; kill $pid; exit 1; }
    wait $pid || { echo "FAIL: the game ended with status $?"; exit 1; }
    exit 0
fi

build_dir=$(realpath "$1") app_id=$2 package=sanlian
installed() { [[ $(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null) == installed ]]; }
(($(id -u) == 0)) || { echo "skipped: installing a package needs root"; exit 77; }
[[ ${SANLIAN_DEB_TEST:-} == 1 || ${CI:-} == true ]] ||
    { echo "skipped: it installs and removes a package; set SANLIAN_DEB_TEST=1 to run it"; exit 77; }
! installed $package || { echo "skipped: $package is installed already; leaving it alone"; exit 77; }

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
        for p in $package "${pulled_in[@]}"; do
            ! installed "$p" || { echo "FAIL: $p is still installed after the test"; status=1; }
        done
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
dpkg-deb -x "$deb" "$work/root"
hardening-check --nofortify --nocfprotection "$work/root/usr/games/sanlian" || fail "hardening"
# Exactly these files; a new installed file belongs on this list.
diff <(dpkg-deb -c "$deb" | awk '!/\/$/ { print $6 }' | sort) <(sort <<EOF_FILES
./usr/games/sanlian
./usr/share/applications/$app_id.desktop
./usr/share/doc/sanlian/changelog.gz
./usr/share/doc/sanlian/copyright
./usr/share/icons/hicolor/256x256/apps/$app_id.png
./usr/share/icons/hicolor/48x48/apps/$app_id.png
./usr/share/icons/hicolor/scalable/apps/$app_id.svg
./usr/share/man/man6/sanlian.6.gz
./usr/share/metainfo/$app_id.metainfo.xml
EOF_FILES
) || fail "the package's files differ from the list"
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
# A scratch home and runtime directory, so the run leaves nothing behind, and a session bus of
# its own, as a desktop has; without one Qt would start a lasting bus daemon. A UTF-8 locale: in
# the C locale Qt writes the title into WM_NAME as raw bytes typed STRING, which xdotool misses.
mkdir -m 700 "$work/home" "$work/runtime"
HOME=$work/home XDG_RUNTIME_DIR=$work/runtime QT_QPA_PLATFORM=xcb LC_ALL=C.UTF-8 \
    xvfb-run -a -s "-screen 0 1280x1024x24 -nolisten tcp" dbus-run-session -- "$0" --window ||
    fail "the installed game did not open and close"
((failures == 0)) && echo "package is reproducible, lintian-clean, hardened; installs, runs, closes"
exit $((failures > 0))

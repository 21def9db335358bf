#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the Debian package, checks its contents and dependencies, installs it with apt, starts
# the installed game under Xvfb until its window shows, closes it with its Exit button, and
# removes the package and whatever apt pulled in with it. Because it changes the machine it
# runs only as root and only when asked: SANLIAN_DEB_TEST=1 or CI=true.
# Usage: deb-install-test.sh BUILD_DIR APP_ID
set -euo pipefail

readonly skip=77 # the test's SKIP_RETURN_CODE
readonly title='^三连棋局$'
# The Exit button's centre in the 656x450 client area.
readonly exit_x=344 exit_y=124

# Second stage, under Xvfb and a session bus: the installed program opens and closes.
if [[ "${1:-}" == --window ]]; then
    /usr/bin/sanlian &
    pid=$!
    if ! windows=$(timeout 30 xdotool search --sync --onlyvisible --name "$title"); then
        echo "FAIL: /usr/bin/sanlian showed no window named 三连棋局 within 30 s"
        kill "$pid" 2>/dev/null || true
        exit 1
    fi
    window=${windows%%$'\n'*}
    echo "window $window is up"
    xdotool mousemove --window "$window" "$exit_x" "$exit_y" click 1
    for _ in $(seq 100); do
        kill -0 "$pid" 2>/dev/null || break
        sleep 0.1
    done
    if kill -0 "$pid" 2>/dev/null; then
        echo "FAIL: the game did not end within 10 s of a click on Exit"
        kill "$pid"
        exit 1
    fi
    status=0
    wait "$pid" || status=$?
    ((status == 0)) || { echo "FAIL: the game ended with status $status"; exit 1; }
    echo "closed by its Exit button"
    exit 0
fi

build_dir=$(realpath "$1")
app_id=$2
package=sanlian

if (($(id -u) != 0)); then
    echo "skipped: installing a package needs root"
    exit $skip
fi
if [[ "${SANLIAN_DEB_TEST:-}" != 1 && "${CI:-}" != true ]]; then
    echo "skipped: this test installs and removes a package; set SANLIAN_DEB_TEST=1 to run it"
    exit $skip
fi
if [[ $(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true) == installed ]]
then
    echo "skipped: $package is installed on this machine already; leaving it alone"
    exit $skip
fi

work=$(mktemp -d)
# apt reads the local .deb as its unprivileged _apt user.
chmod 755 "$work"
apt_options=(-y -qq -o DPkg::Lock::Timeout=300 --no-install-recommends)
pulled_in=()
installed_by_us=false

cleanup() {
    local status=$?
    export DEBIAN_FRONTEND=noninteractive
    if $installed_by_us; then
        apt-get remove "${apt_options[@]}" "$package" >"$work/remove.log" 2>&1 ||
            { cat "$work/remove.log"; status=1; }
        if ((${#pulled_in[@]} > 0)); then
            apt-get purge "${apt_options[@]}" "${pulled_in[@]}" >>"$work/remove.log" 2>&1 ||
                { cat "$work/remove.log"; status=1; }
        fi
        for p in "$package" "${pulled_in[@]}"; do
            if [[ $(dpkg-query -W -f='${db:Status-Status}' "$p" 2>/dev/null || true) == installed ]]
            then
                echo "FAIL: $p is still installed after the test"
                status=1
            fi
        done
    fi
    rm -rf "$work"
    exit "$status"
}
trap cleanup EXIT

failures=0
fail() {
    echo "FAIL: $*"
    failures=$((failures + 1))
}

cpack --config "$build_dir/CPackConfig.cmake" -G DEB -B "$work/out" >"$work/cpack.log" 2>&1 ||
    { cat "$work/cpack.log"; exit 1; }
debs=("$work"/out/"$package"_*.deb)
[[ -f "${debs[0]}" && ${#debs[@]} -eq 1 ]] || { echo "FAIL: cpack made no single .deb"; exit 1; }
deb=${debs[0]}
echo "built $(basename "$deb")"

# What the package holds: exactly these files. A new installed file belongs on this list.
expected_files=(
    ./usr/bin/sanlian
    "./usr/share/applications/$app_id.desktop"
    "./usr/share/icons/hicolor/256x256/apps/$app_id.png"
    "./usr/share/icons/hicolor/48x48/apps/$app_id.png"
    "./usr/share/icons/hicolor/scalable/apps/$app_id.svg"
    "./usr/share/metainfo/$app_id.metainfo.xml"
    ./usr/share/doc/sanlian/fonts/OFL.txt
)
actual=$(dpkg-deb --fsys-tarfile "$deb" | tar -t | grep -v '/$' | sort)
expected=$(printf '%s\n' "${expected_files[@]}" | sort)
[[ "$actual" == "$expected" ]] ||
    fail "package files differ from the expected list:"$'\n'"$(diff <(echo "$expected") <(echo "$actual"))"

# dpkg-shlibdeps must have found the libraries, and the platform plugin be listed by hand.
depends=$(dpkg-deb -f "$deb" Depends)
echo "Depends: $depends"
depended=$(tr ',' '\n' <<<"$depends" | awk '{ print $1 }')
for needed in libc6 libstdc++6 libqt6core6 libqt6gui6 libqt6widgets6 qt6-qpa-plugins; do
    grep -qxF "$needed" <<<"$depended" || fail "Depends lacks $needed"
done
[[ $(dpkg-deb -f "$deb" Section) == games ]] || fail "Section is not games"
((failures == 0)) || exit 1

# What apt will install besides the package itself is ours to remove afterwards.
mapfile -t pulled_in < <(apt-get install -s "${apt_options[@]}" "$deb" |
    awk '$1 == "Inst" && $2 != "'"$package"'" { print $2 }')
((${#pulled_in[@]} == 0)) || echo "apt will also install: ${pulled_in[*]}"

installed_by_us=true
DEBIAN_FRONTEND=noninteractive apt-get install "${apt_options[@]}" "$deb" >"$work/install.log" 2>&1 ||
    { cat "$work/install.log"; exit 1; }
[[ $(dpkg-query -S /usr/bin/sanlian) == "$package: /usr/bin/sanlian" ]] ||
    fail "/usr/bin/sanlian does not belong to the package"

# A scratch home and runtime directory, so that the run leaves nothing behind, and a session
# bus of its own, as a desktop has; without one Qt would start a lasting bus daemon. A UTF-8
# locale, as a desktop has: in the C locale Qt writes the title into WM_NAME as raw UTF-8 bytes
# typed STRING, and xdotool, which matches WM_NAME, never finds 三连棋局.
mkdir -m 700 "$work/home" "$work/runtime"
HOME=$work/home XDG_RUNTIME_DIR=$work/runtime QT_QPA_PLATFORM=xcb LC_ALL=C.UTF-8 \
    xvfb-run -a -s "-screen 0 1280x1024x24 -nolisten tcp" \
    dbus-run-session -- "$0" --window || fail "the installed game did not open and close"

((failures == 0)) && echo "package installs, runs and closes"
exit $((failures > 0))

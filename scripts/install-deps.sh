#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs the Debian packages that building, running or testing needs, if any are missing.
# Usage: scripts/install-deps.sh run|test|web
# Safe to run again: it asks apt only when a package is not installed yet.
set -euo pipefail

build_packages=(cmake g++ make pkg-config qt6-base-dev libgl-dev)
# run.sh configures the game alone, without tests and benchmarks.
run_packages=("${build_packages[@]}")
# The core as WebAssembly and its tests: GoogleTest is built from its sources for the target. The
# page: its fonts as WOFF2 and its source archive.
web_packages=(cmake make emscripten googletest python3-fonttools python3-brotli git)
test_packages=("${build_packages[@]}" "${web_packages[@]}" chromium clang libgtest-dev libgmock-dev libbenchmark-dev xvfb xauth xdotool
    # packaging checks, the .deb test (lintian, hardening-check) and the file-access trace
    desktop-file-utils appstream dpkg-dev file lintian devscripts dbus-daemon strace python3
    # the startup benchmarks: first_frame's libraries, /usr/bin/time and callgrind
    libx11-dev libxdamage-dev time valgrind
    # the real-window tests: AT-SPI, and the close box and window properties through Xlib
    python3-pyatspi at-spi2-core dbus-bin python3-xlib
    # the window on Wayland, under a headless compositor
    weston qt6-wayland)

case "${1:-}" in
    run) wanted=("${run_packages[@]}") ;;
    test) wanted=("${test_packages[@]}") ;;
    web) wanted=("${web_packages[@]}") ;;
    *) echo "usage: $0 run|test|web" >&2; exit 2 ;;
esac
# The WebAssembly tests run under Node. Any node will do: one from outside Debian may carry an
# npm that conflicts with Debian's, so Debian's is asked for only when there is no node at all.
if [[ $1 != run ]] && ! command -v node >/dev/null; then
    wanted+=(nodejs)
fi
# The page tests install puppeteer-core with npm, which a Node from outside Debian carries.
if [[ $1 == test ]] && ! command -v npm >/dev/null; then
    wanted+=(npm)
fi

missing=()
for package in "${wanted[@]}"; do
    status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
    [[ "$status" == "install ok installed" ]] || missing+=("$package")
done
[[ ${#missing[@]} -eq 0 ]] && exit 0

echo "Installing: ${missing[*]}"
sudo_cmd=()
if [[ $(id -u) -ne 0 ]]; then
    if ! command -v sudo >/dev/null; then
        echo "install-deps.sh: missing ${missing[*]}; run as root or install sudo" >&2
        exit 1
    fi
    sudo_cmd=(sudo)
fi
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -qq
"${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"

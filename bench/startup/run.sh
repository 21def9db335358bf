#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Startup time, peak memory and idle CPU of the game against a bare Qt window, all under one
# Xvfb. The two programs alternate, ROUNDS times each; medians and min-max are reported with
# the ratio game/baseline and the aims:
#   first frame   exec to the first XDamage event on the window (first_frame), <= 1.25x bare
#   peak memory   maximum resident set size (/usr/bin/time -v),  <= bare + 4 MiB
#   idle CPU      CPU time over 10 s with only the banner running, after a whole banner
#                 cycle,                                          <= the label banner's
# The CPU floor is bare_window --banner, a QLabel handed the banner's frames prepared as
# pixmaps. Instruction counts, which the machine's load does not move: callgrind.sh.
#
# Usage: bench/startup/run.sh [BUILD_DIR] [ROUNDS]   (defaults: build, 10; about 50 s a round)
# Needs xvfb, xdotool, dbus-daemon and time; BUILD_DIR must be a build with SANLIAN_GUI and
# SANLIAN_BENCH on.
set -euo pipefail

if [[ -z "${SANLIAN_STARTUP_XVFB:-}" ]]; then
    # The default 640x480x8 screen is smaller than the window and has another depth. A session
    # bus, as a desktop has: without one Qt autolaunches a bus at every start, which costs time
    # and writes its address under the home directory.
    SANLIAN_STARTUP_XVFB=1 exec xvfb-run -a -s "-screen 0 1280x1024x24 -nolisten tcp" \
        dbus-run-session -- "$0" "$@"
fi

build_dir=$(realpath "${1:-build}")
rounds=${2:-10}
game=$build_dir/sanlian
bare=$build_dir/bench/startup/bare_window
first_frame=$build_dir/bench/startup/first_frame
for program in "$game" "$bare" "$first_frame"; do
    [[ -x "$program" ]] || { echo "missing $program: build $build_dir first" >&2; exit 1; }
done
command -v xdotool >/dev/null || { echo "needs xdotool" >&2; exit 1; }
[[ -x /usr/bin/time ]] || { echo "needs /usr/bin/time (Debian package time)" >&2; exit 1; }

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# A runtime directory as a desktop session has one; Qt warns and creates one otherwise. A
# scratch home, so that nothing either program might write stays behind.
export XDG_RUNTIME_DIR=$work/runtime HOME=$work/home
mkdir -m 700 "$XDG_RUNTIME_DIR" "$HOME"
export QT_QPA_PLATFORM=xcb
# A UTF-8 locale, as a desktop has: in the C locale Qt writes the title into WM_NAME as raw UTF-8
# typed STRING, and xdotool, which matches WM_NAME, never finds 三连棋局.
export LC_ALL=C.UTF-8

title='^三连棋局$'
# Longer than one banner cycle (9.25 s), so that the game has prepared every frame before
# its idle CPU is measured.
settle_s=10
idle_s=10
# CPU time of a process in nanoseconds, summed over its threads: utime+stime count in clock
# ticks of 10 ms, too coarse for half a percent of a core over 10 s.
cpu_ns() {
    local total=0 run _
    for f in /proc/"$1"/task/*/schedstat; do
        read -r run _ <"$f" || continue
        total=$((total + run))
    done
    echo "$total"
}

# Runs a program under /usr/bin/time until its window has settled, optionally measures its CPU
# over idle_s, then ends it. Appends the peak RSS (KiB) to $work/<name>.rss and, when measured,
# the CPU as % of one core to $work/<name>.cpu.
footprint() {
    local name=$1 measure_cpu=$2
    shift 2
    /usr/bin/time -v -o "$work/time.txt" "$@" &
    local time_pid=$! pid=
    for _ in $(seq 100); do
        pid=$(pgrep -P "$time_pid" || true)
        [[ -n "$pid" ]] && break
        sleep 0.05
    done
    [[ -n "$pid" ]] || { echo "$name did not start" >&2; exit 1; }
    timeout 20 xdotool search --sync --onlyvisible --name "$title" >/dev/null ||
        { echo "$name showed no window" >&2; exit 1; }
    sleep "$settle_s"
    if [[ "$measure_cpu" == cpu ]]; then
        local cpu0 cpu1 t0 t1
        cpu0=$(cpu_ns "$pid")
        t0=$(date +%s%N)
        sleep "$idle_s"
        cpu1=$(cpu_ns "$pid")
        t1=$(date +%s%N)
        awk -v d=$((cpu1 - cpu0)) -v ns=$((t1 - t0)) \
            'BEGIN { printf "%.3f\n", 100 * d / ns }' >>"$work/$name.cpu"
    fi
    kill -TERM "$pid"
    wait "$time_pid" || true
    awk -F': ' '/Maximum resident set size/ { print $2 }' "$work/time.txt" >>"$work/$name.rss"
}

frame() {
    local name=$1
    shift
    "$first_frame" --timeout 20 "$@" >>"$work/$name.frame"
}

# median min max of a file of numbers
summary() {
    sort -g "$1" | awk '{ v[NR] = $1 }
        END { m = NR % 2 ? v[(NR + 1) / 2] : (v[NR / 2] + v[NR / 2 + 1]) / 2
              print m, v[1], v[NR] }'
}

round_game() {
    frame game "$game"
    footprint game cpu "$game"
}
round_bare() {
    frame bare "$bare"
    footprint bare none "$bare"
    footprint bare_banner cpu "$bare" --banner
}

echo "warming up (not counted)" >&2
"$first_frame" --timeout 20 "$game" >/dev/null
"$first_frame" --timeout 20 "$bare" >/dev/null
for round in $(seq "$rounds"); do
    echo "round $round of $rounds" >&2
    # Alternate which goes first, so that a drift in the machine's load falls on both.
    if ((round % 2)); then round_game; round_bare; else round_bare; round_game; fi
done

read -r gf gf_min gf_max < <(summary "$work/game.frame")
read -r bf bf_min bf_max < <(summary "$work/bare.frame")
read -r gm gm_min gm_max < <(summary "$work/game.rss")
read -r bm bm_min bm_max < <(summary "$work/bare.rss")
read -r gc gc_min gc_max < <(summary "$work/game.cpu")
read -r bc bc_min bc_max < <(summary "$work/bare_banner.cpu")
read -r bbm bbm_min bbm_max < <(summary "$work/bare_banner.rss")

awk -v rounds="$rounds" -v idle="$idle_s" \
    -v gf="$gf" -v gf_min="$gf_min" -v gf_max="$gf_max" \
    -v bf="$bf" -v bf_min="$bf_min" -v bf_max="$bf_max" \
    -v gm="$gm" -v gm_min="$gm_min" -v gm_max="$gm_max" \
    -v bm="$bm" -v bm_min="$bm_min" -v bm_max="$bm_max" \
    -v bbm="$bbm" -v bbm_min="$bbm_min" -v bbm_max="$bbm_max" \
    -v gc="$gc" -v gc_min="$gc_min" -v gc_max="$gc_max" \
    -v bc="$bc" -v bc_min="$bc_min" -v bc_max="$bc_max" '
function verdict(ok) { return ok ? "met" : "MISSED" }
BEGIN {
    printf "%d rounds each; median (min-max)\n\n", rounds
    printf "%-28s %-26s %-26s %s\n", "", "game", "bare window", "game/bare"
    printf "%-28s %-26s %-26s %.2fx\n", "exec to first frame, ms",
        sprintf("%.1f (%.1f-%.1f)", gf / 1000, gf_min / 1000, gf_max / 1000),
        sprintf("%.1f (%.1f-%.1f)", bf / 1000, bf_min / 1000, bf_max / 1000), gf / bf
    printf "%-28s %-26s %-26s %.2fx\n", "peak RSS, MiB",
        sprintf("%.1f (%.1f-%.1f)", gm / 1024, gm_min / 1024, gm_max / 1024),
        sprintf("%.1f (%.1f-%.1f)", bm / 1024, bm_min / 1024, bm_max / 1024), gm / bm
    printf "%-28s %-26s %-26s %.2fx\n", "idle CPU over " idle " s, % core",
        sprintf("%.2f (%.2f-%.2f)", gc, gc_min, gc_max),
        sprintf("%.2f (%.2f-%.2f)", bc, bc_min, bc_max) " *", (bc > 0 ? gc / bc : 0)
    printf "\n* bare_window --banner (peak RSS %.1f MiB, %.1f-%.1f)\n\n",
        bbm / 1024, bbm_min / 1024, bbm_max / 1024
    printf "aim: first frame <= 1.25x bare:  %.2fx  %s\n", gf / bf, verdict(gf <= 1.25 * bf)
    printf "aim: peak RSS <= bare + 4 MiB:   %+.1f MiB  %s\n", (gm - bm) / 1024,
        verdict(gm - bm <= 4 * 1024)
    printf "aim: idle CPU <= label banner:   %.2fx  %s\n", (bc > 0 ? gc / bc : 0), verdict(gc <= bc)
}'

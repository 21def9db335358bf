#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Instruction counts of the game against two floors, under callgrind, which the load of a
# shared machine cannot move the way it moves timings:
#   start-up      instructions from exec to the window's first backing-store flush, against
#                 bare_window (an empty QWidget of the same size)               aim <= 1.15x
#                 and, for what the texts cost, bare_window --texts (the rules and the two
#                 buttons' captions in the compiled-in faces, as plain widgets)  no aim
#   banner tick   instructions per Timer3 tick with the game idle, after one whole banner
#                 cycle, against bare_window --banner (the 93 frames prepared once as pixmaps
#                 at the sizes the ticks give them, handed to a QLabel that is resized to
#                 each)                                                         aim <= 1x
#                 and the same at QT_SCALE_FACTOR=2, where both draw at device pixels twice
#                 as fine                                                       aim <= 1x
# Both programs run under one Xvfb, without a session bus, so no accessibility bus either.
#
# Usage: bench/startup/callgrind.sh [BUILD_DIR]   (default build; about 3 minutes)
# BUILD_DIR: a Release or RelWithDebInfo build with SANLIAN_GUI and SANLIAN_BENCH on.
set -euo pipefail

if [[ -z "${SANLIAN_CALLGRIND_XVFB:-}" ]]; then
    SANLIAN_CALLGRIND_XVFB=1 exec xvfb-run -a -s "-screen 0 2048x1536x24 -nolisten tcp" "$0" "$@"
fi

build_dir=$(realpath "${1:-build}")
game=$build_dir/sanlian
bare=$build_dir/bench/startup/bare_window
for program in "$game" "$bare"; do
    [[ -x "$program" ]] || { echo "missing $program: build $build_dir first" >&2; exit 1; }
done
command -v callgrind_control >/dev/null || { echo "needs valgrind" >&2; exit 1; }

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_RUNTIME_DIR=$work/runtime HOME=$work/home
mkdir -m 700 "$XDG_RUNTIME_DIR" "$HOME"
export QT_QPA_PLATFORM=xcb LC_ALL=C.UTF-8
# A bus that is not there: Qt gives up at once instead of starting one, so the counts hold
# only the program's own work.
export DBUS_SESSION_BUS_ADDRESS=unix:path=$work/no-bus

# Ticks are counted after the first cycle of 185 ticks (9.25 s), so that frames prepared on
# first use are prepared; valgrind is slow to start, hence the margin.
warm_s=${SANLIAN_CALLGRIND_WARM_S:-25}
measure_s=${SANLIAN_CALLGRIND_MEASURE_S:-15}
min_ticks=200

# The total of a callgrind dump: its "summary:" line, Ir only.
instructions() { awk '/^summary:/ { print $2; exit }' "$1"; }

# Calls to a function in a dump, whatever called it. Names are compressed: "(id) name" the
# first time, "(id)" afterwards.
calls_to() {
    awk -v name="$2" '
        match($0, /^c?fn=\([0-9]+\)/) {
            id = substr($0, RSTART, RLENGTH); sub(/^c?fn=/, "", id)
            rest = substr($0, RLENGTH + 2)
            if (rest != "") names[id] = rest
            callee = /^cfn=/ ? names[id] : ""
            next
        }
        /^calls=/ && callee == name { split($0, f, /[= ]/); total += f[2] }
        /^calls=/ { callee = "" }
        END { print total + 0 }' "$1"
}

# Instructions from exec to the first flush of the window's backing store.
first_flush() {
    local name=$1
    shift
    valgrind --tool=callgrind --callgrind-out-file="$work/$name.start" \
        --dump-before='QBackingStore::flush*' "$@" 2>"$work/$name.log" &
    local pid=$!
    for _ in $(seq 600); do
        [[ -s "$work/$name.start.1" ]] && break
        sleep 0.1
    done
    kill -TERM "$pid" 2>/dev/null || true
    wait "$pid" 2>/dev/null || true
    [[ -s "$work/$name.start.1" ]] || { echo "$name: no flush" >&2; cat "$work/$name.log" >&2; exit 1; }
    instructions "$work/$name.start.1"
}

# Instructions per QTimer tick over measure_s, counted after warm_s, at a scale factor.
per_tick() {
    local name=$1 scale=$2
    shift 2
    QT_SCALE_FACTOR=$scale valgrind --tool=callgrind --instr-atstart=no --callgrind-out-file="$work/$name.tick" \
        "$@" 2>"$work/$name.log" &
    local pid=$!
    sleep "$warm_s"
    callgrind_control -i on "$pid" >/dev/null 2>&1
    sleep "$measure_s"
    callgrind_control -d "$pid" >/dev/null 2>&1
    kill -TERM "$pid" 2>/dev/null || true
    wait "$pid" 2>/dev/null || true
    local dump
    dump=$(ls "$work/$name.tick".* | grep -v '\.log$' | sort -V | head -1)
    local ir ticks
    ir=$(instructions "$dump")
    ticks=$(calls_to "$dump" 'QTimer::timerEvent(QTimerEvent*)')
    ((ticks >= min_ticks)) || { echo "$name: only $ticks ticks in $measure_s s" >&2; exit 1; }
    echo "$ir $ticks"
}

# SANLIAN_CALLGRIND_ONLY=start or tick runs one half, for a quick look while working.
only=${SANLIAN_CALLGRIND_ONLY:-}
game_start=0 bare_start=0 texts_start=0
game_ir=0 game_ticks=1 label_ir=0 label_ticks=1 game2_ir=0 game2_ticks=1 label2_ir=0 label2_ticks=1
if [[ "$only" != tick ]]; then
    echo "start-up: game" >&2
    game_start=$(first_flush game "$game")
    echo "start-up: empty window" >&2
    bare_start=$(first_flush bare "$bare")
    echo "start-up: the texts alone" >&2
    texts_start=$(first_flush texts "$bare" --texts)
fi
if [[ "$only" != start ]]; then
    echo "banner ticks: game" >&2
    read -r game_ir game_ticks < <(per_tick game 1 "$game")
    echo "banner ticks: label" >&2
    read -r label_ir label_ticks < <(per_tick label 1 "$bare" --banner)
    echo "banner ticks at scale 2: game" >&2
    read -r game2_ir game2_ticks < <(per_tick game2 2 "$game")
    echo "banner ticks at scale 2: label" >&2
    read -r label2_ir label2_ticks < <(per_tick label2 2 "$bare" --banner)
fi

awk -v gs="$game_start" -v bs="$bare_start" -v ts="$texts_start" \
    -v gi="$game_ir" -v gt="$game_ticks" \
    -v li="$label_ir" -v lt="$label_ticks" -v g2i="$game2_ir" -v g2t="$game2_ticks" \
    -v l2i="$label2_ir" -v l2t="$label2_ticks" '
function verdict(ok) { return ok ? "met" : "MISSED" }
BEGIN {
    printf "%-34s %16s %16s %8s\n", "instructions (callgrind Ir)", "game", "floor", "ratio"
    if (bs > 0)
        printf "%-34s %16.0f %16.0f %7.2fx  aim <= 1.15x  %s\n", "exec to first flush", gs, bs,
            gs / bs, verdict(gs <= 1.15 * bs)
    if (ts > 0)
        printf "%-34s %16.0f %16.0f %7.2fx\n", "exec to first flush, texts floor", gs, ts, gs / ts
    if (li > 0)
        printf "%-34s %16.0f %16.0f %7.2fx  aim <= 1x     %s\n", "per banner tick", gi / gt,
            li / lt, (gi / gt) / (li / lt), verdict(gi / gt <= li / lt)
    if (l2i > 0)
        printf "%-34s %16.0f %16.0f %7.2fx  aim <= 1x     %s\n", "per banner tick at scale 2",
            g2i / g2t, l2i / l2t, (g2i / g2t) / (l2i / l2t), verdict(g2i / g2t <= l2i / l2t)
    if (li > 0) printf "(ticks counted: game %d, label %d; at scale 2 game %d, label %d)\n",
        gt, lt, g2t, l2t
}'

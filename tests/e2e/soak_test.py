#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Launches the built game many times and throws random mouse input at its window: clicks
anywhere, on taken cells and on a disabled Start, double clicks, drags, bursts faster than
the toss. Each launch ends with Exit or the close box at a random moment and must end with
status 0 in time. One long run checks that resident memory stays where it settled.

Run: soak_test.py GAME [--start N] [--launches N] [--events N] [--long-events N]
Under a sanitizer build pass --no-rss-bound: its allocator keeps freed memory aside.
"""

import argparse
import random
import sys
import time

import harness

CHUNK = 50  # events per xdotool call
RSS_BOUND_KB = 1024


def random_point(rng, rect):
    return (rng.randrange(rect[0], rect[0] + rect[2]), rng.randrange(rect[1], rect[1] + rect[3]))


def random_events(rng, count):
    """count mouse events, none of them on Exit, with short pauses between some."""
    def anywhere():
        while True:
            point = random_point(rng, harness.CLIENT)
            if not harness.inside(harness.EXIT, point):
                return point

    def cell():
        return random_point(rng, harness.cell_rect(rng.randrange(9)))

    events = []
    while sum(1 for e in events if e[0] != "sleep") < count:
        roll = rng.random()
        if roll < 0.4:
            events.append(("click", cell()))
        elif roll < 0.55:
            events.append(("click", random_point(rng, harness.START)))
        elif roll < 0.7:
            events.append(("click", anywhere()))
        elif roll < 0.8:
            events.append(("double", rng.choice([cell, anywhere])()))
        elif roll < 0.85:
            events.append(("drag", rng.choice([cell, anywhere])(), anywhere()))
        else:  # Start, then clicks on cells before the toss can end
            events += [("click", random_point(rng, harness.START))] + \
                [("click", cell()) for _ in range(rng.randrange(3, 10))]
        if rng.random() < 0.1:
            events.append(("sleep", rng.choice([0.005, 0.02, 0.05, 0.15, 0.3])))
    return events


def count(events):
    return sum(1 for event in events if event[0] != "sleep")


def drive(game, events, after_chunk=None):
    """Sends the events in chunks; fails if the game ends on its own."""
    for begin in range(0, len(events), CHUNK):
        game.mouse(events[begin:begin + CHUNK])
        if not game.alive():
            raise AssertionError(f"ended by itself with status {game.process.returncode}")
        if after_chunk:
            after_chunk(begin + CHUNK)


def finish(game, rng):
    """Exit or the close box; returns how it ended and the exit status."""
    how = rng.choice(["Exit", "close box"])
    if how == "Exit":
        game.click(harness.EXIT)
    else:
        game.close_box()
    return how, game.wait_exit()


def launch(program, rng, events):
    game = harness.Game(program)
    sequence = random_events(rng, events + rng.randrange(0, 100))
    try:
        drive(game, sequence)
        how, status = finish(game, rng)
    except AssertionError as failure:
        return count(sequence), str(failure)
    if status != 0:
        return count(sequence), f"{how}: " + ("no exit in time" if status is None
                                              else f"status {status}")
    return count(sequence), None


def long_run(program, rng, events, rss_bound):
    """The first hundred events are spread over a banner cycle, so every frame has been shown
    and cached before the resident size is taken as settled."""
    game = harness.Game(program)
    warm_up = [event for e in random_events(rng, 100) for event in (e, ("sleep", 0.1))]
    drive(game, warm_up)
    settled = game.rss_kb()
    sizes = []
    drive(game, random_events(rng, events - 100),
          after_chunk=lambda _: sizes.append(game.rss_kb()))
    how, status = finish(game, rng)
    drift = max(abs(size - settled) for size in sizes)
    print(f"long run: {events} events; VmRSS settled at {settled} kB, "
          f"{min(sizes)}..{max(sizes)} kB after, drift at most {drift} kB; {how}: status {status}")
    failures = []
    if status != 0:
        failures.append(f"long run: {how}: status {status}")
    if rss_bound and drift > RSS_BOUND_KB:
        failures.append(f"long run: resident memory moved {drift} kB from {settled} kB")
    return failures


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("--start", type=int, default=time.time_ns() % 2**32)
    parser.add_argument("--launches", type=int, default=20)
    parser.add_argument("--events", type=int, default=200)
    parser.add_argument("--long-events", type=int, default=5000)
    parser.add_argument("--no-rss-bound", action="store_true")
    args = parser.parse_args()
    print(f"random start {args.start}", flush=True)
    rng = random.Random(args.start)
    began = time.monotonic()

    failures, total = [], 0
    for number in range(1, args.launches + 1):
        events, failure = launch(args.program, rng, args.events)
        total += events
        if failure:
            failures.append(f"launch {number}: {failure}")
    print(f"{args.launches} launches, {total} events, {len(failures)} failures", flush=True)
    if args.long_events:
        failures += long_run(args.program, rng, args.long_events, not args.no_rss_bound)
    print(f"{time.monotonic() - began:.0f} s")
    if failures:
        sys.exit("\n".join(failures))


if __name__ == "__main__":
    harness.run(main)

#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Plays the built game in a real window: clicks through xdotool, reads the controls over
AT-SPI, checks the marks and the banner in screenshots, and ends it with Exit and with the
close box. Run: e2e_test.py GAME [START]
"""

import math
import random
import sys
import time

import harness

TOSS_OUTCOMES = ("您先", "计算机先")
MARKS = ("空", "圆", "叉")
WHITE, BLACK = (255, 255, 255), (0, 0, 0)
INNER = harness.CELL_SIZE - 2 * harness.CELL_BORDER  # 1035 twips
RADIUS = (INNER * 15 / 2 - 100) / 15                 # 27.8 px
CROSS = (100 / 15, INNER - 100 / 15)                 # 6.7 .. 62.3 px


def mark_of(name):
    mark = name.rsplit("，", 1)[-1]
    assert mark in MARKS, name
    return mark


def check_mark(shot, cell, mark):
    """White on a circle's ring, black on a cross's diagonals, cell ground elsewhere."""
    x0, y0, _, _ = harness.cell_rect(cell)
    x0 += harness.CELL_BORDER
    y0 += harness.CELL_BORDER

    def at(x, y):
        return shot.at(x0 + x, y0 + y)

    ground = at(1, 1)
    assert ground not in (WHITE, BLACK), f"cell {cell}: ground {ground}"
    c = INNER / 2
    # On the ring, a little off the diagonals; on the diagonals, off the ring; between them.
    ring = [at(c + RADIUS * math.cos(a), c + RADIUS * math.sin(a))
            for a in (k * math.pi / 4 + 0.3 for k in range(8))]
    diagonals = [at(t, t) for t in (8, 24, c, 45, 61)] + [at(t, INNER - t) for t in (8, 24, 45, 61)]
    between = [at(c, c - 12), at(c - 12, c), at(c + 12, c), at(c, c + 12)]
    for points, expected in ((ring, WHITE if mark == "圆" else ground),
                             (diagonals, BLACK if mark == "叉" else ground), (between, ground)):
        assert all(p == expected for p in points), f"cell {cell} {mark}: {points} not {expected}"


def board(a11y):
    return [mark_of(a11y.name(cell)) for cell in a11y.cells]


def check_banner_runs(game):
    """The banner region changes by itself while no game runs."""
    first = game.screenshot().region(harness.BANNER)
    harness.wait_for(lambda: game.screenshot().region(harness.BANNER) != first,
                     "the banner to move", timeout=2)


def play_to_the_end(game, a11y, rng):
    """Start, the toss, then a random empty cell each turn until a result shows."""
    assert a11y.enabled(a11y.start) and a11y.enabled(a11y.exit)
    assert a11y.name(a11y.label1) == "" and a11y.name(a11y.label2) == ""
    heard_before = len(a11y.heard)
    game.click(harness.START)
    a11y.wait(lambda: not a11y.enabled(a11y.start), "Start to be disabled")
    first = a11y.wait(lambda: a11y.name(a11y.label1) in TOSS_OUTCOMES and
                      a11y.name(a11y.label1), "the toss to end")
    # The toss ticks 20 to 29 times; its captions must not each be announced.
    told = a11y.heard[heard_before:].count(a11y.label1)
    assert 1 <= told <= 2, f"Label1 announced {told} times during the toss"
    human = "圆" if first == "您先" else "叉"
    marks = board(a11y)
    assert marks.count("圆") == (first == "计算机先") and marks.count("叉") == 0, marks

    clicked = []
    while a11y.name(a11y.label2) == "":
        assert not a11y.enabled(a11y.start), "Start is enabled during a game"
        cell = rng.choice([i for i, mark in enumerate(marks) if mark == "空"])
        clicked.append(cell)
        heard_before = len(a11y.heard)
        game.click(harness.cell_rect(cell))
        a11y.wait(lambda: mark_of(a11y.name(a11y.cells[cell])) != "空", f"a mark in cell {cell}")
        marks = board(a11y)
        assert marks[cell] == human, (cell, marks)
    result = a11y.name(a11y.label2)
    assert result in ("你赢了", "你输了", "和局！"), result
    a11y.wait(lambda: a11y.label2 in a11y.heard[heard_before:],
              "the result to be announced")
    assert a11y.enabled(a11y.start), "Start stays disabled after the game"
    assert marks.count("圆") - marks.count("叉") in (0, 1), marks
    print(f"toss: {first}; human played {clicked}; board {''.join(marks)}; {result}")
    return marks


def check_marks_on_screen(game, a11y, marks):
    # A won line blinks; take a picture in which every cell shows before and after.
    def steady_shot():
        if not all(a11y.showing(cell) for cell in a11y.cells):
            return None
        shot = game.screenshot()
        return shot if all(a11y.showing(cell) for cell in a11y.cells) else None
    shot = a11y.wait(steady_shot, "every cell to show", timeout=3)
    for cell, mark in enumerate(marks):
        check_mark(shot, cell, mark)


def main():
    program = sys.argv[1]
    start = int(sys.argv[2]) if len(sys.argv) > 2 else time.time_ns() % 2**32
    print(f"random start {start}", flush=True)
    began = time.monotonic()
    a11y = harness.Accessibility()

    game = harness.Game(program)
    a11y.attach(game.pid)
    assert [a11y.name(c) for c in (a11y.start, a11y.exit)] == ["开始", "退出"]
    assert a11y.name(a11y.label3).startswith("游戏规则："), a11y.name(a11y.label3)
    assert [a11y.name(c) for c in a11y.cells] == \
        [f"第{r}行第{c}列，空" for r in (1, 2, 3) for c in (1, 2, 3)]
    check_banner_runs(game)

    # ---- Desktop identity: WM_CLASS names the desktop entry; _NET_WM_ICON holds its icon.
    from Xlib import display
    window = display.Display().create_resource_object("window", int(game.window))
    assert window.get_wm_class()[1] == "io.github.sanlian.Sanlian", window.get_wm_class()
    icon = window.get_full_property(window.display.get_atom("_NET_WM_ICON"), 0)
    assert icon and icon.value[:2].tolist() == [48, 48], icon  # the first of its sizes
    # ---- end of desktop identity

    marks = play_to_the_end(game, a11y, random.Random(start))
    check_marks_on_screen(game, a11y, marks)
    game.click(harness.EXIT)
    status = game.wait_exit()
    assert status == 0, f"Exit: status {status}"

    # The close box during a toss: the window closes and the program ends as with Exit.
    game = harness.Game(program)
    a11y.attach(game.pid)
    game.click(harness.START)
    a11y.wait(lambda: not a11y.enabled(a11y.start), "Start to be disabled")
    game.close_box()
    status = game.wait_exit()
    assert status == 0, f"close box: status {status}"
    print(f"passed in {time.monotonic() - began:.1f} s")


if __name__ == "__main__":
    harness.run(main)

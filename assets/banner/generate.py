#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 Sanlian developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Letters the banner inscription and writes the pen order of its ink pixels as C++ source.

The banner is a flip-book of 93 cumulative frames. This script decides which pixels are ink
and in which order the pen lays them down, then writes assets/banner/banner_data.cpp; the
program builds its frames from that file, so nothing is read at run time. For screens with
more pixels than a frame has, it also writes the same lettering FINE times finer each way, as
runs of fine ink, each owned by the frame pixel with which it is written.

    /usr/bin/python3 assets/banner/generate.py   # needs python3-pil, python3-numpy, fonts-lxgw-wenkai

The output depends only on the font file and the constants below.
"""

import pathlib
import random

import numpy as np
from PIL import Image, ImageDraw, ImageFont

FONT = "/usr/share/fonts/truetype/lxgw-wenkai/LXGWWenKai-Bold.ttf"  # LXGW WenKai Bold, a Kai face
TEXT = "三连棋局"
WIDTH, HEIGHT = 225, 97
FRAMES = 93
INK_PIXELS = 2685
# The lettering stays inside these columns and rows, inclusive.
BOX_LEFT, BOX_RIGHT, BOX_TOP, BOX_BOTTOM = 14, 216, 33, 84
MIN_STEP, MAX_STEP = 6, 58

SUPERSAMPLE = 8
FINE = 4  # fine pixels per frame pixel, each way; SUPERSAMPLE is a multiple of 2 * FINE
FONT_PIXELS = 50
BOLDEN = 0  # outline width in supersampled pixels; the Bold is full enough without one
PEN_RHYTHM = 1931  # starts the generator of the pen's wavering speed

OUTPUT = pathlib.Path(__file__).with_name("banner_data.cpp")


def coverage_per_character():
    """For each character, the fraction of every pixel its glyph covers; and the lettering
    drawn SUPERSAMPLE times finer, each sample's coverage."""
    font = ImageFont.truetype(FONT, FONT_PIXELS * SUPERSAMPLE, index=0)
    pitch = (BOX_RIGHT + 1 - BOX_LEFT) / len(TEXT)
    middle_row = (BOX_TOP + BOX_BOTTOM + 1) / 2
    layers = []
    samples = np.zeros((HEIGHT * SUPERSAMPLE, WIDTH * SUPERSAMPLE))
    for i, char in enumerate(TEXT):
        image = Image.new("L", (WIDTH * SUPERSAMPLE, HEIGHT * SUPERSAMPLE), 0)
        centre = ((BOX_LEFT + pitch * (i + 0.5)) * SUPERSAMPLE, middle_row * SUPERSAMPLE)
        ImageDraw.Draw(image).text(centre, char, font=font, fill=255, anchor="mm",
                                   stroke_width=BOLDEN, stroke_fill=255)
        big = np.asarray(image, dtype=np.float64) / 255.0
        samples += big
        small = big.reshape(HEIGHT, SUPERSAMPLE, WIDTH, SUPERSAMPLE).mean(axis=(1, 3))
        clipped = np.zeros_like(small)
        clipped[BOX_TOP:BOX_BOTTOM + 1, BOX_LEFT:BOX_RIGHT + 1] = \
            small[BOX_TOP:BOX_BOTTOM + 1, BOX_LEFT:BOX_RIGHT + 1]
        layers.append(clipped)
    return layers, samples


def ink_per_character(layers):
    """The INK_PIXELS best covered pixels, each given to the character covering it most, and
    the coverage of the least covered of them.

    Taking a fixed number of pixels instead of a fixed threshold hits the count exactly; ties
    fall to the upper, then the left pixel."""
    stack = np.stack(layers)
    total = np.clip(stack.sum(axis=0), 0.0, 1.0)
    owner = stack.argmax(axis=0)
    pixels = sorted(((-total[y, x], y, x) for y in range(HEIGHT) for x in range(WIDTH)))
    chosen = [(y, x) for _, y, x in pixels[:INK_PIXELS]]
    assert total[chosen[-1]] > 0.2, "too little ink: raise FONT_PIXELS or BOLDEN"
    per_char = [set() for _ in TEXT]
    for y, x in chosen:
        per_char[owner[y, x]].add((y, x))
    return per_char, total[chosen[-1]]


def fine_ink(samples, threshold):
    """The lettering FINE times finer: the fine pixels whose frame-pixel-sized square, centred
    on them, is covered at least as well as the least covered ink pixel of the frames. It is
    the frames' own rule sampled more densely, so it keeps their weight and place."""
    step, half = SUPERSAMPLE // FINE, SUPERSAMPLE // 2
    sums = np.pad(np.pad(samples, half).cumsum(0).cumsum(1), ((1, 0), (1, 0)))
    rows = np.arange(HEIGHT * FINE) * step + step // 2
    cols = np.arange(WIDTH * FINE) * step + step // 2
    covered = (sums[np.ix_(rows + SUPERSAMPLE, cols + SUPERSAMPLE)] - sums[np.ix_(rows, cols + SUPERSAMPLE)]
               - sums[np.ix_(rows + SUPERSAMPLE, cols)] + sums[np.ix_(rows, cols)]) / SUPERSAMPLE ** 2
    fine_y, fine_x = np.mgrid[0:HEIGHT * FINE, 0:WIDTH * FINE]
    inside = ((fine_x // FINE >= BOX_LEFT) & (fine_x // FINE <= BOX_RIGHT)
              & (fine_y // FINE >= BOX_TOP) & (fine_y // FINE <= BOX_BOTTOM))
    return (covered >= threshold) & inside


def owner_offset(ink, y, x):
    """The frame pixel that writes fine pixel (y, x), as an offset from the frame pixel under
    it: that pixel if it is ink, else the nearest ink pixel; ties fall to the upper, then the
    left one."""
    cell_y, cell_x = y // FINE, x // FINE
    if (cell_y, cell_x) in ink:
        return 0, 0
    centre_y, centre_x = (y + 0.5) / FINE, (x + 0.5) / FINE
    near = min(((cy + 0.5 - centre_y) ** 2 + (cx + 0.5 - centre_x) ** 2, cy, cx)
               for cy in range(cell_y - 2, cell_y + 3) for cx in range(cell_x - 2, cell_x + 3)
               if (cy, cx) in ink)
    return near[1] - cell_y, near[2] - cell_x


def fine_runs(fine, ink):
    """Per fine row, the runs of fine ink whose pixels share an owner offset: (begin, end, dx, dy)."""
    rows = []
    for y in range(fine.shape[0]):
        runs = []
        for x in np.flatnonzero(fine[y]):
            dy, dx = owner_offset(ink, y, x)
            if runs and runs[-1][1] == x and tuple(runs[-1][2:]) == (dx, dy):
                runs[-1][1] += 1
            else:
                runs.append([x, x + 1, dx, dy])
        rows.append(runs)
    return rows


def neighbours(y, x):
    for dy in (-1, 0, 1):
        for dx in (-1, 0, 1):
            if dy or dx:
                yield y + dy, x + dx


def components(pixels):
    """The 8-connected pieces of a character, each listed breadth first from its top left
    pixel, so a piece fills along its strokes as a brush would."""
    left = set(pixels)
    pieces = []
    while left:
        start = min(left, key=lambda p: (p[0] + p[1], p[0]))
        order, frontier = [start], [start]
        left.discard(start)
        while frontier:
            following = []
            for y, x in frontier:
                for n in neighbours(y, x):
                    if n in left:
                        left.discard(n)
                        following.append(n)
            following.sort()
            order.extend(following)
            frontier = following
        pieces.append(order)
    return pieces


def pen_order(per_char):
    """Character by character, left to right; within one, the pieces from the top left."""
    order = []
    for pixels in per_char:
        pieces = components(pixels)
        pieces.sort(key=lambda piece: (piece[0][0] + piece[0][1], piece[0][0]))
        for piece in pieces:
            order.extend(piece)
    return order


def frame_steps():
    """Ink pixels added by each of frames 1 to 92: a pen that speeds up and slows down."""
    rng = random.Random(PEN_RHYTHM)
    speeds = []
    for i in range(FRAMES - 1):
        wave = 0.45 * np.sin(2 * np.pi * i / 19.0) + 0.2 * np.sin(2 * np.pi * i / 7.3 + 1.0)
        speeds.append(max(0.25, 1.0 + wave + rng.uniform(-0.3, 0.3)))
    scale = INK_PIXELS / sum(speeds)
    exact = [s * scale for s in speeds]
    steps = [int(v) for v in exact]
    # Hand the rounding remainder to the steps that lost the most.
    by_loss = sorted(range(len(exact)), key=lambda i: (steps[i] - exact[i], i))
    for i in by_loss[:INK_PIXELS - sum(steps)]:
        steps[i] += 1
    assert sum(steps) == INK_PIXELS
    assert all(MIN_STEP <= s <= MAX_STEP for s in steps), steps
    return steps


def write_source(order, steps, runs_per_row):
    packed = [y * 256 + x for y, x in order]
    counts = [0]
    for step in steps:
        counts.append(counts[-1] + step)
    row_starts = [0]
    for runs in runs_per_row:
        row_starts.append(row_starts[-1] + len(runs))
    runs = ["{" + ", ".join(map(str, run)) + "}" for row in runs_per_row for run in row]

    def rows(values, per_row):
        return "\n".join("    " + ", ".join(str(v) for v in values[i:i + per_row]) + ","
                         for i in range(0, len(values), per_row))

    OUTPUT.write_text(f"""\
// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Generated by assets/banner/generate.py from the Kai face LXGW WenKai Bold: the inscription
// "{TEXT}". Regenerate rather than edit.
#include "assets/banner/banner_data.h"

namespace assets::banner {{

namespace {{

// clang-format off
constexpr std::array<std::uint16_t, kInkPixels> kPenOrder{{
{rows(packed, 14)}
}};

constexpr std::array<std::uint16_t, kFrameCount> kInkCounts{{
{rows(counts, 14)}
}};

constexpr std::array<std::uint16_t, kHeight * kFineScale + 1> kFineRowStarts{{
{rows(row_starts, 14)}
}};

constexpr std::array<form::FinerInk::Run, {len(runs)}> kFineRuns{{{{
{rows(runs, 6)}
}}}};
// clang-format on

}}  // namespace

std::span<const std::uint16_t, kInkPixels> pen_order() {{ return kPenOrder; }}

std::span<const std::uint16_t, kFrameCount> ink_counts() {{ return kInkCounts; }}

form::FinerInk finer_ink() {{ return {{kFineScale, kFineRowStarts, kFineRuns}}; }}

}}  // namespace assets::banner
""", encoding="utf-8")


def main():
    layers, samples = coverage_per_character()
    per_char, threshold = ink_per_character(layers)
    order = pen_order(per_char)
    ink = set(order)
    assert len(order) == len(ink) == INK_PIXELS
    runs = fine_runs(fine_ink(samples, threshold), ink)
    steps = frame_steps()
    write_source(order, steps, runs)
    print(f"{OUTPUT}: {INK_PIXELS} pixels, steps {min(steps)} to {max(steps)}; "
          f"{sum(map(len, runs))} runs of fine ink")


if __name__ == "__main__":
    main()

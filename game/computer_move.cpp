// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <array>
#include <cstdint>

#include "game/form1.h"

namespace game {

namespace {

// For every cell but the centre, the two other cells of each line through it, in the order
// they are tested. The rows stand in scan order; the centre is always taken from the third
// move on, so it is never scanned.
struct LinesThrough {
    std::uint8_t cell;
    std::uint8_t pair_count;
    std::array<std::array<std::uint8_t, 2>, 3> pairs;
};

constexpr std::array<LinesThrough, 8> kScan{{
    {0, 3, {{{8, 4}, {1, 2}, {3, 6}}}},
    {1, 2, {{{7, 4}, {0, 2}, {}}}},
    {2, 3, {{{6, 4}, {0, 1}, {5, 8}}}},
    {3, 2, {{{5, 4}, {0, 6}, {}}}},
    {5, 2, {{{3, 4}, {2, 8}, {}}}},
    {6, 3, {{{2, 4}, {0, 3}, {7, 8}}}},
    {7, 2, {{{1, 4}, {6, 8}, {}}}},
    {8, 3, {{{0, 4}, {6, 7}, {2, 5}}}},
}};

constexpr int kCentre = 4;

}  // namespace

// A fixed rule, not a search: complete an own line if one is open, else block the human, else
// fall back on the empty cell with the highest index. It neither makes nor stops forks.
void Form1::compu_select() {
    int sel = 0;
    for (int i = 0; i < form::layout::kCellCount; ++i) {
        if (mark_at(i) == 0) sel = i;
    }

    if (move_no <= 2) {
        if (mark_at(kCentre) == 0) {
            sel = kCentre;
        } else {
            // The human opened on the centre: a corner, each with the same chance.
            const int corner = static_cast<int>(random_next() * 4) * 2;
            sel = corner == kCentre ? 8 : corner;
        }
    }

    const int mark = toss_limit % 2 == 1 ? 1 : -1;

    if (move_no > 2) {
        // An own line ends the scan, so the lowest such cell wins. A block does not: a later
        // block overwrites an earlier one, so the highest blocking cell is played.
        bool own_line = false;
        for (const auto& row : kScan) {
            if (own_line) break;
            if (mark_at(row.cell) != 0) continue;
            for (int p = 0; p < row.pair_count && !own_line; ++p) {
                const auto& [a, b] = row.pairs[static_cast<std::size_t>(p)];
                if (mark_at(a) == 0 || Picture1[a].Tag != Picture1[b].Tag) continue;
                sel = row.cell;
                own_line = mark_at(a) == mark;
            }
        }
    }

    draw_ox(sel);
    // Also after the computer's own winning move; the closed board ignores clicks anyway.
    player_turn = true;
}

}  // namespace game

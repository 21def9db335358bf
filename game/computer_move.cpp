// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <array>
#include <cstdint>

#include "game/form1.h"

namespace game {

namespace {

// For every cell but the centre, the two other cells of each line through it, in the order
// they are tested: the cells in scan order, and for each its line through the centre first.
// The centre is always taken from the third move on, so it is never scanned.
struct LineThrough {
    std::uint8_t cell, a, b;
};
constexpr std::array<LineThrough, 20> kScan{{
    {0, 8, 4}, {0, 1, 2}, {0, 3, 6}, {1, 7, 4}, {1, 0, 2}, {2, 6, 4}, {2, 0, 1},
    {2, 5, 8}, {3, 5, 4}, {3, 0, 6}, {5, 3, 4}, {5, 2, 8}, {6, 2, 4}, {6, 0, 3},
    {6, 7, 8}, {7, 1, 4}, {7, 6, 8}, {8, 0, 4}, {8, 6, 7}, {8, 2, 5},
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
        for (const auto& [cell, a, b] : kScan) {
            if (mark_at(cell) != 0 || mark_at(a) == 0 || Picture1[a].Tag != Picture1[b].Tag)
                continue;
            sel = cell;
            if (mark_at(a) == mark) break;
        }
    }

    draw_ox(sel);
    // Also after the computer's own winning move; the closed board ignores clicks anyway.
    player_turn = true;
}

}  // namespace game

// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include <array>

#include "lockstep.h"

// The rules on boards set up directly, written as nine marks from cell 0 to 8, a blank between
// each two: O a circle, X a cross, a dot empty. Not all of them arise in play. The computer's
// choice needs no such boards: lockstep plays it in every game and at the edges of its random
// quarters.
namespace {

game::Form1& set_up(lockstep::Pair& pair, const char* marks, int move_no, int toss_limit) {
    for (int i = 0; i < 9; ++i)
        pair.form.Picture1.at(i).Tag = marks[2 * i] == 'O' ? "1" : marks[2 * i] == 'X' ? "-1" : "0";
    pair.form.move_no = static_cast<std::uint8_t>(move_no);
    pair.form.toss_limit = static_cast<std::uint8_t>(toss_limit);  // odd: the computer is first
    return pair.form;
}

// A move that completes two lines announces both, and the later line of the table is stored:
// it alone blinks.
TEST(WinDetection, DoubleLineStoresTheLaterLine) {
    const struct {
        const char* board;
        int cell, move_no;
        std::array<int, 3> line;
    } cases[] = {{". O O O . . O . .", 0, 5, {0, 3, 6}}, {". . X X . X X . .", 4, 6, {3, 4, 5}}};
    for (const auto& c : cases) {
        lockstep::Pair pair;
        auto& form = set_up(pair, c.board, c.move_no, 20);
        form.draw_ox(c.cell);
        EXPECT_EQ((std::array<int, 3>{form.win_a, form.win_b, form.win_c}), c.line) << c.board;
    }
}

}  // namespace

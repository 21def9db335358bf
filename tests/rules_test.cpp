// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include <string_view>

#include "lockstep.h"

// The rules on boards set up directly, written as nine marks from cell 0 to 8: O a circle, X a
// cross, a dot empty. Some of them play cannot reach.
namespace {

struct Board {
    lockstep::Pair pair;
    Board(std::string_view marks, int move_no, int toss_limit) {
        int cell = 0;
        for (const char mark : marks) {
            if (mark != ' ')
                pair.form.Picture1.at(cell++).Tag = mark == 'O' ? "1" : mark == 'X' ? "-1" : "0";
        }
        pair.form.move_no = static_cast<std::uint8_t>(move_no);
        pair.form.toss_limit = static_cast<std::uint8_t>(toss_limit);
    }
    int drawn_cell() const {  // the one cell with a mark drawn
        int drawn = -1;
        for (int i = 0; i < 9; ++i) drawn = pair.form.Picture1.at(i).strokes().empty() ? drawn : i;
        return drawn;
    }
};

// Its own lowest line first, else the highest block, else the highest empty cell; on its first
// move the centre, or a corner by the random value's quarter.
TEST(ComputerMove, PlaysTheCellTheScanOrderPicks) {
    const struct {
        const char* board;
        int move_no, toss_limit;  // toss_limit odd: the computer is first and plays circles
        float random;
        int cell;
    } cases[] = {
        {". . . . . . . . .", 1, 21, 0, 4},          {". . . . . . . . O", 2, 20, 0, 4},
        {". O . . . . . . .", 2, 20, 0, 4},          {". . . . O . . . .", 2, 20, 0.2499999F, 0},
        {". . . . O . . . .", 2, 20, 0.25F, 2},      {". . . . O . . . .", 2, 20, 0.5F, 8},
        {". . . . O . . . .", 2, 20, 0.7499999F, 8}, {". . . . O . . . .", 2, 20, 0.75F, 6},
        {". . . . O . . . .", 2, 20, 0.9999999F, 6}, {". . . . O . . . X", 3, 21, 0, 7},
        {". X . . O O O X .", 6, 20, 0, 3},          {"X X . . O . O O .", 6, 20, 0, 2},
        {"O . O . O X X X .", 7, 21, 0, 1},          {"O X O O X X X O .", 9, 21, 0, 8},
        {"X . . O O . X . .", 6, 20, 0, 5},          {". . X . O . O . X", 6, 20, 0, 5},
        {"O . O X . X . . .", 5, 21, 0, 1},          {". X . X O . . . O", 6, 21, 0, 0},
        {"O . X . X . . O .", 6, 20, 0, 6},          {"O . . . X O . X O", 6, 21, 0, 2},
    };
    for (const auto& c : cases) {
        Board board(c.board, c.move_no, c.toss_limit);
        board.pair.draws.values.assign(1, c.random);
        board.pair.form.compu_select();
        EXPECT_EQ(board.drawn_cell(), c.cell) << c.board;
        EXPECT_TRUE(board.pair.form.player_turn);
    }
}

// A move that completes two lines announces both; the later line of the table is stored and
// blinks alone. A win writes "1" into every Tag and enables Start.
TEST(WinDetection, DoubleLineStoresTheLaterLine) {
    const struct {
        const char* board;
        int cell, move_no, toss_limit;
        std::array<int, 3> line;
        const char* caption;
    } cases[] = {
        {". O O O . . O . .", 0, 5, 20, {0, 3, 6}, "你赢了"},
        {". . X X . X X . .", 4, 6, 20, {3, 4, 5}, "你输了"},
        {". . . . X X X . X", 2, 8, 21, {2, 5, 8}, "你赢了"},
        {". X . . X . . . .", 7, 6, 20, {1, 4, 7}, "你输了"},
    };
    for (const auto& c : cases) {
        Board board(c.board, c.move_no, c.toss_limit);
        auto& form = board.pair.form;
        form.draw_ox(c.cell);
        form.tick(form::TimerId::Timer2);
        EXPECT_EQ(form.Label2.Caption, c.caption) << c.board;
        EXPECT_EQ((std::array<int, 3>{form.win_a, form.win_b, form.win_c}), c.line) << c.board;
        for (int i = 0; i < 9; ++i) {
            const bool in_line = i == c.line[0] || i == c.line[1] || i == c.line[2];
            EXPECT_EQ(form.Picture1.at(i).Tag, "1");
            EXPECT_EQ(form.Picture1.at(i).Visible, !in_line) << c.board << " cell " << i;
        }
        EXPECT_TRUE(form.Command1.Enabled && form.game_over);
    }
}

}  // namespace

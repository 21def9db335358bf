// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include <vector>

#include "checked_form.h"

// The whole-game tests check the computer's moves, results and the blink against a reference
// rule; these cases pin the rule itself down on boards set up directly through the Tags.
namespace {

using testing_support::ScriptedForm;
using testing_support::set_board;

// The computer completes its own lowest line, else blocks the highest threat, else takes the
// highest empty cell; on its first move it takes the centre, or a corner when the centre is
// gone. The board is set by Tags alone, so the one cell with a mark drawn is the one played.
TEST(ComputerMove, PlaysTheCellTheRulePicks) {
    struct Case {
        const char* board;
        int move_no;
        int toss_limit;  // odd: the computer is first and plays circles
        float random;    // planned only when not negative
        int expected;
    };
    const Case cases[] = {
        {". . . . . . . . .", 1, 21, -1, 4},           // empty board: centre
        {". . . . . . . . O", 2, 20, -1, 4},           // corner opening: centre
        {". O . . . . . . .", 2, 20, -1, 4},           // edge opening: centre
        {". . . . O . . . .", 2, 20, 0.1F, 0},         // centre opening: a corner a quarter
        {". . . . O . . . .", 2, 20, 0.3F, 2},         //
        {". . . . O . . . .", 2, 20, 0.6F, 8},         // the third quarter, never the centre
        {". . . . O . . . .", 2, 20, 0.99999994F, 6},  //
        {". . . . O . . . X", 3, 21, -1, 7},           // no line: highest empty cell
        {". X . . O O O X .", 6, 20, -1, 3},           // a later block overwrites an earlier
        {"X X . . O . O O .", 6, 20, -1, 2},           // own line before a block
        {"O . O . O X X X .", 7, 21, -1, 1},           // the lowest own line ends the scan
        {"O X O O X X X O .", 9, 21, -1, 8},           // the last empty cell
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.board);
        ScriptedForm game;
        set_board(game.form, c.board);
        game.form.move_no = static_cast<std::uint8_t>(c.move_no);
        game.form.toss_limit = static_cast<std::uint8_t>(c.toss_limit);
        if (c.random >= 0) game.random.push_back(c.random);

        game.form.compu_select();

        std::vector<int> drawn;
        for (int cell = 0; cell < 9; ++cell) {
            if (!game.form.Picture1[static_cast<std::size_t>(cell)].strokes().empty()) {
                drawn.push_back(cell);
            }
        }
        EXPECT_EQ(drawn, std::vector<int>{c.expected});
        EXPECT_TRUE(game.form.player_turn);
        EXPECT_TRUE(game.random.empty()) << "the planned random value was not drawn";
    }
}

// The search does not stop at a hit: with two lines completed at once, the later line of the
// table is stored, and only its cells blink.
TEST(WinDetection, DoubleLineStoresTheLaterLine) {
    ScriptedForm game;
    set_board(game.form, ". O O  O . .  O . .");
    game.form.move_no = 5;
    game.form.toss_limit = 20;
    game.form.draw_ox(0);
    EXPECT_EQ(game.form.Label2.Caption, game::kHumanWins);
    EXPECT_EQ((std::array{game.form.win_a, game.form.win_b, game.form.win_c}),
              (std::array<std::uint8_t, 3>{0, 3, 6}));

    game.form.tick(form::TimerId::Timer2);
    for (std::size_t cell = 0; cell < 9; ++cell) {
        EXPECT_EQ(game.form.Picture1[cell].Visible, cell % 3 != 0) << cell;
    }
}

}  // namespace

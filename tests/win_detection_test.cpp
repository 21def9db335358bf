#include <gtest/gtest.h>

#include "scripted_form.h"

namespace {

// Every reachable game and long random event runs check results, the toss and the blink
// against a reference rule. What play can never reach is tested here on boards set up directly.

// The search does not stop at a hit: with two lines completed at once, the later line of the
// table is stored, and only its cells blink.
TEST(WinDetection, DoubleLineStoresTheLaterLine) {
    testing_support::ScriptedForm game;
    testing_support::set_board(game.form, ". O O  O . .  O . .");
    game.form.move_no = 5;
    game.form.toss_limit = 20;
    game.form.draw_ox(0);
    EXPECT_EQ(game.form.Label2.Caption, game::kHumanWins);
    EXPECT_EQ((std::array{game.form.win_a, game.form.win_b, game.form.win_c}),
              (std::array<std::uint8_t, 3>{0, 3, 6}));

    game.form.tick(form::TimerId::Timer2);
    for (int cell = 0; cell < 9; ++cell) {
        const bool in_line = cell == 0 || cell == 3 || cell == 6;
        EXPECT_EQ(game.form.Picture1[static_cast<std::size_t>(cell)].Visible, !in_line) << cell;
    }
}

// A line is equal text in three cells with a marked anchor: blank Tags, as before the first
// Start, are equal text too but never a line.
TEST(WinDetection, BlankOrEmptyCellsAreNoLine) {
    testing_support::ScriptedForm game;
    game.form.check_win();
    EXPECT_FALSE(game.form.game_over);
    testing_support::set_board(game.form, ". . . . . . . . .");
    game.form.check_win();
    EXPECT_FALSE(game.form.game_over);
    EXPECT_FALSE(game.form.Timer2.Enabled);
}

}  // namespace

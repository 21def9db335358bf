#include <gtest/gtest.h>

#include <initializer_list>

#include "scripted_form.h"

namespace {

using form::ButtonId;
using form::TimerId;
using testing_support::board_of;
using testing_support::ScriptedForm;

void click_cells(game::Form1& form, std::initializer_list<int> cells) {
    for (const int cell : cells) form.click_cell(cell);
}

// Nothing can be played before the first Start: player_turn is false and the blank Tags
// must not be taken for marks.
TEST(TurnFlow, ClicksBeforeTheFirstStartDoNothing) {
    ScriptedForm game;
    for (int cell = -1; cell <= 9; ++cell) game.form.click_cell(cell);
    for (const auto& cell : game.form.Picture1) {
        EXPECT_EQ(cell.Tag, "");
        EXPECT_TRUE(cell.strokes().empty());
    }
    EXPECT_EQ(game.form.move_no, 0);
}

// A click on a taken cell or outside the board is ignored and leaves the human to move.
TEST(TurnFlow, ClickOnTakenCellIsIgnored) {
    ScriptedForm game;
    game.start_and_toss(21);  // the computer opens on the centre
    ASSERT_EQ(board_of(game.form), "....O....");
    click_cells(game.form, {4, -1, 9});
    EXPECT_EQ(board_of(game.form), "....O....");
    EXPECT_TRUE(game.form.player_turn);
    EXPECT_EQ(game.form.move_no, 2);
}

// With the computer first, a click during the toss is not the human's turn.
TEST(TurnFlow, ClickDuringTossIgnoredWhenComputerFirst) {
    ScriptedForm game;
    game.random.push_back(testing_support::draw_for_toss(23));
    game.form.click(ButtonId::Command1);
    game.form.tick(TimerId::Timer1);
    game.form.click_cell(0);
    EXPECT_EQ(board_of(game.form), ".........");
    EXPECT_FALSE(game.form.player_turn);
}

// With the human first, a click during the toss counts and the computer answers at once,
// while the toss flickers on; the toss's last tick then touches no cell.
TEST(TurnFlow, ClickDuringTossServedWhenHumanFirst) {
    ScriptedForm game;
    game.random.push_back(testing_support::draw_for_toss(24));
    game.form.click(ButtonId::Command1);
    for (int i = 0; i < 3; ++i) game.form.tick(TimerId::Timer1);
    game.form.click_cell(0);
    EXPECT_EQ(board_of(game.form), "O...X....");
    EXPECT_TRUE(game.form.player_turn);
    EXPECT_TRUE(game.form.Timer1.Enabled);

    for (int i = 3; i < 24; ++i) game.form.tick(TimerId::Timer1);
    EXPECT_EQ(board_of(game.form), "O...X....");
    EXPECT_EQ(game.form.Label1.Caption, effects::kHumanFirst);
    EXPECT_FALSE(game.form.Timer1.Enabled);
    EXPECT_EQ(game.form.move_no, 3);
}

// The computer opens on the centre, then falls back, blocks twice, and the human completes
// the top row: a win for the human with the line stored for the blink and the board closed.
TEST(TurnFlow, HumanCompletesTheTopRow) {
    ScriptedForm game;
    game.start_and_toss(21);
    click_cells(game.form, {8, 1, 2});
    ASSERT_EQ(board_of(game.form), ".XX.OOOOX");
    game.form.click_cell(0);

    EXPECT_TRUE(game.form.game_over);
    EXPECT_EQ(game.form.Label2.Caption, game::kHumanWins);
    EXPECT_EQ((std::array{game.form.win_a, game.form.win_b, game.form.win_c}),
              (std::array<std::uint8_t, 3>{0, 1, 2}));
    EXPECT_EQ(board_of(game.form), "OOOOOOOOO") << "a won board is closed";
    EXPECT_TRUE(game.form.Command1.Enabled);
    EXPECT_TRUE(game.form.Timer2.Enabled);
    EXPECT_FALSE(game.form.Label2.ForeColor.has_value());

    game.form.click_cell(3);  // nothing is empty any more
    EXPECT_EQ(game.form.move_no, 9);
}

// The computer completes the middle column after the human lets it.
TEST(TurnFlow, ComputerCompletesTheMiddleColumn) {
    ScriptedForm game;
    game.start_and_toss(20);
    click_cells(game.form, {0, 8, 6});
    EXPECT_TRUE(game.form.game_over);
    EXPECT_EQ(game.form.Label2.Caption, game::kHumanLoses);
    EXPECT_EQ((std::array{game.form.win_a, game.form.win_b, game.form.win_c}),
              (std::array<std::uint8_t, 3>{1, 4, 7}));
    EXPECT_TRUE(game.form.player_turn) << "set again after the computer's own winning move";
}

// A ninth move without a line is a draw in blue; the computer is not asked to move on a
// full board. The blue stays through later games, and Start clears only the text.
TEST(TurnFlow, DrawOnTheNinthMoveAndItsColourStays) {
    ScriptedForm game;
    game.start_and_toss(20);
    click_cells(game.form, {0, 8, 1, 6});
    ASSERT_EQ(board_of(game.form), "OOXXX.OXO");
    ASSERT_FALSE(game.form.Command1.Enabled);
    game.form.click_cell(5);

    EXPECT_EQ(game.form.move_no, 10);
    EXPECT_FALSE(game.form.game_over);
    EXPECT_FALSE(game.form.Timer2.Enabled);
    EXPECT_EQ(game.form.Label2.Caption, game::kDraw);
    EXPECT_EQ(game.form.Label2.ForeColor, form::kBlue);
    EXPECT_TRUE(game.form.Command1.Enabled);

    game.random.push_back(testing_support::draw_for_toss(22));
    game.form.click(ButtonId::Command1);
    EXPECT_EQ(game.form.Label2.Caption, "");
    EXPECT_EQ(game.form.Label2.ForeColor, form::kBlue);
}

// A win on the ninth move is a win, not a draw, and Label2 keeps its colour.
TEST(TurnFlow, WinOnTheNinthMoveIsNoDraw) {
    ScriptedForm game;
    game.start_and_toss(20);
    testing_support::set_board(game.form, "XOX XOO O.X");
    game.form.move_no = 9;
    game.form.click_cell(7);
    EXPECT_TRUE(game.form.game_over);
    EXPECT_EQ(game.form.Label2.Caption, game::kHumanWins);
    EXPECT_FALSE(game.form.Label2.ForeColor.has_value());
}

// Start is disabled for the whole game and delivers nothing then; Exit works at any time.
TEST(TurnFlow, StartOnlyBetweenGamesExitAnyTime) {
    ScriptedForm game;
    game.start_and_toss(21);
    game.form.click(ButtonId::Command1);  // no random value planned: a draw would throw
    EXPECT_EQ(game.form.move_no, 2);

    game.form.click(ButtonId::Command2);
    EXPECT_TRUE(game.form.unloaded());
    game.form.click_cell(0);
    game.form.tick(TimerId::Timer3);
    EXPECT_EQ(board_of(game.form), "....O....");
    EXPECT_EQ(game.form.banner.frame_no, 0);
}

// The toss_limit product is taken in double precision: the largest float below 1 must draw
// 29, not 30.
TEST(TurnFlow, LargestRandomValueDrawsTossLimit29) {
    ScriptedForm game;
    game.random.push_back(0.99999994F);
    game.form.click(ButtonId::Command1);
    EXPECT_EQ(game.form.toss_limit, 29);
    EXPECT_FALSE(game.form.player_turn);
}

}  // namespace

#include <gtest/gtest.h>

#include "scripted_form.h"

namespace {

using form::ButtonId;
using form::TimerId;
using testing_support::board_of;
using testing_support::ScriptedForm;
using testing_support::set_board;

std::array<std::uint8_t, 3> stored_line(const game::Form1& form) {
    return {form.win_a, form.win_b, form.win_c};
}

struct ResultCase {
    const char* name;
    int toss_limit;
    int move_no;
    std::string_view caption;
};

class ResultCaption : public testing::TestWithParam<ResultCase> {};

// Whoever made the last move completed the line: the parities of toss_limit and move_no say
// who that was. Circles and crosses win alike.
TEST_P(ResultCaption, NamesWhoCompletedTheLine) {
    const auto& c = GetParam();
    ScriptedForm game;
    set_board(game.form, c.move_no % 2 == 1 ? "OO. ... ..." : "XX. ... ...");
    game.form.toss_limit = static_cast<std::uint8_t>(c.toss_limit);
    game.form.move_no = static_cast<std::uint8_t>(c.move_no);
    game.form.draw_ox(2);
    EXPECT_EQ(game.form.Label2.Caption, c.caption);
    EXPECT_EQ(stored_line(game.form), (std::array<std::uint8_t, 3>{0, 1, 2}));
}

INSTANTIATE_TEST_SUITE_P(
    Parity, ResultCaption,
    testing::Values(ResultCase{"HumanFirstHumanMoved", 20, 5, game::kHumanWins},
                    ResultCase{"HumanFirstComputerMoved", 20, 6, game::kHumanLoses},
                    ResultCase{"ComputerFirstHumanMoved", 21, 6, game::kHumanWins},
                    ResultCase{"ComputerFirstComputerMoved", 21, 5, game::kHumanLoses}),
    [](const auto& info) { return std::string(info.param.name); });

// The search does not stop at a hit: with two lines completed at once, the later line of the
// table is stored, and only its cells blink.
TEST(WinDetection, DoubleLineStoresTheLaterLine) {
    ScriptedForm game;
    set_board(game.form, ". O O  O . .  O . .");
    game.form.move_no = 5;
    game.form.draw_ox(0);
    EXPECT_EQ(stored_line(game.form), (std::array<std::uint8_t, 3>{0, 3, 6}));

    game.form.tick(TimerId::Timer2);
    for (int cell = 0; cell < 9; ++cell) {
        const bool in_line = cell == 0 || cell == 3 || cell == 6;
        EXPECT_EQ(game.form.Picture1[static_cast<std::size_t>(cell)].Visible, !in_line) << cell;
    }
}

// A board without a complete line leaves the result alone; a blank or empty anchor never
// counts as a line of equal texts.
TEST(WinDetection, NoLineChangesNothing) {
    for (const char* board : {"OXO XXO OOX", ". . . . . . . . .", "X O X O X O O X O"}) {
        ScriptedForm game;
        set_board(game.form, board);
        game.form.check_win();
        EXPECT_FALSE(game.form.game_over) << board;
        EXPECT_FALSE(game.form.Timer2.Enabled) << board;
        EXPECT_EQ(game.form.Label2.Caption, "") << board;
    }
    ScriptedForm blank;  // Tags still blank, as before the first Start
    blank.form.check_win();
    EXPECT_FALSE(blank.form.game_over);
}

// Every toss opens on "计算机先", sets both colours, and ends on the caption of the true first
// player; an odd toss_limit makes the computer open on the centre in the last tick.
TEST(Toss, EndsOnTheTrueFirstPlayer) {
    for (const int limit : {20, 29}) {
        ScriptedForm game;
        game.random.push_back(testing_support::draw_for_toss(limit));
        game.form.click(ButtonId::Command1);
        game.form.tick(TimerId::Timer1);
        EXPECT_EQ(game.form.Label1.Caption, effects::kComputerFirst);
        EXPECT_EQ(game.form.Label1.ForeColor, form::kRed);
        EXPECT_EQ(game.form.Shape1.BorderColor, form::kBlue);

        for (int tick = 2; tick < limit; ++tick) game.form.tick(TimerId::Timer1);
        EXPECT_TRUE(game.form.Timer1.Enabled) << "one tick before the end";
        EXPECT_EQ(board_of(game.form), ".........");
        game.form.tick(TimerId::Timer1);

        EXPECT_FALSE(game.form.Timer1.Enabled);
        EXPECT_TRUE(game.form.player_turn);
        const bool computer_first = limit % 2 == 1;
        EXPECT_EQ(game.form.Label1.Caption,
                  computer_first ? effects::kComputerFirst : effects::kHumanFirst);
        EXPECT_EQ(board_of(game.form), computer_first ? "....O...." : ".........");
    }
}

// A game finished during the toss frees Start while Timer1 still runs; Start then restarts
// the count with a new toss_limit.
TEST(Toss, StartDuringARunningTossRestartsIt) {
    ScriptedForm game;
    game.random.push_back(testing_support::draw_for_toss(28));
    game.form.click(ButtonId::Command1);
    game.form.tick(TimerId::Timer1);
    for (const int cell : {0, 8, 6}) game.form.click_cell(cell);
    ASSERT_TRUE(game.form.game_over);
    ASSERT_TRUE(game.form.Command1.Enabled);
    ASSERT_TRUE(game.form.Timer1.Enabled);

    game.random.push_back(testing_support::draw_for_toss(25));
    game.form.click(ButtonId::Command1);
    EXPECT_EQ(game.form.toss.toss_tick, 0);
    EXPECT_EQ(game.form.toss_limit, 25);
    EXPECT_TRUE(game.form.Timer1.Enabled);
    EXPECT_FALSE(game.form.player_turn);
    for (int tick = 0; tick < 25; ++tick) game.form.tick(TimerId::Timer1);
    EXPECT_EQ(board_of(game.form), "....O....");
}

// The line flashes once a second until Start, which shows every cell and stops the blink
// whatever phase it was in.
TEST(Blink, FlashesUntilStart) {
    ScriptedForm game;
    game.start_and_toss(20);
    for (const int cell : {0, 8, 6}) game.form.click_cell(cell);
    ASSERT_EQ(stored_line(game.form), (std::array<std::uint8_t, 3>{1, 4, 7}));

    auto visible = [&](int cell) {
        return game.form.Picture1[static_cast<std::size_t>(cell)].Visible;
    };
    game.form.tick(TimerId::Timer2);
    EXPECT_FALSE(visible(1) || visible(4) || visible(7));
    EXPECT_TRUE(visible(0) && visible(8));
    EXPECT_FALSE(game.form.Picture1[4].strokes().empty()) << "hiding keeps the mark";
    game.form.tick(TimerId::Timer2);
    EXPECT_TRUE(visible(1) && visible(4) && visible(7));
    game.form.tick(TimerId::Timer2);

    game.random.push_back(testing_support::draw_for_toss(20));
    game.form.click(ButtonId::Command1);
    for (int cell = 0; cell < 9; ++cell) EXPECT_TRUE(visible(cell)) << cell;
    EXPECT_FALSE(game.form.Timer2.Enabled);
    EXPECT_TRUE(game.form.Picture1[4].strokes().empty()) << "Start clears the surfaces";
}

}  // namespace

#include <gtest/gtest.h>

#include <optional>

#include "scripted_form.h"

namespace {

using testing_support::ScriptedForm;
using testing_support::set_board;

struct ComputerMoveCase {
    const char* name;
    const char* board;
    int move_no;
    int toss_limit;  // odd: the computer is first and plays circles
    std::optional<float> random;
    int expected;
};

class ComputerMove : public testing::TestWithParam<ComputerMoveCase> {};

// The computer completes its own lowest line, else blocks the highest threat, else takes the
// highest empty cell; on its first move it takes the centre, or a corner when the centre is
// gone.
TEST_P(ComputerMove, PlaysTheCellTheRulePicks) {
    const auto& c = GetParam();
    ScriptedForm game;
    set_board(game.form, c.board);
    game.form.move_no = static_cast<std::uint8_t>(c.move_no);
    game.form.toss_limit = static_cast<std::uint8_t>(c.toss_limit);
    if (c.random) game.random.push_back(*c.random);

    game.form.compu_select();

    // The board is set up by Tags alone, so the one cell with a mark drawn is the one played;
    // the Tags themselves are all "1" after a winning move.
    int played = -1;
    for (int cell = 0; cell < 9; ++cell) {
        if (!game.form.Picture1[static_cast<std::size_t>(cell)].strokes().empty()) {
            EXPECT_EQ(played, -1) << "more than one cell drawn";
            played = cell;
        }
    }
    EXPECT_EQ(played, c.expected);
    EXPECT_TRUE(game.form.player_turn);
    EXPECT_TRUE(game.random.empty()) << "the planned random value was not drawn";
}

INSTANTIATE_TEST_SUITE_P(
    Rule, ComputerMove,
    testing::Values(
        ComputerMoveCase{"EmptyBoardTakesCentre", ". . . . . . . . .", 1, 21, {}, 4},
        ComputerMoveCase{"CornerOpeningGetsCentre", ". . . . . . . . O", 2, 20, {}, 4},
        ComputerMoveCase{"EdgeOpeningGetsCentre", ". O . . . . . . .", 2, 20, {}, 4},
        ComputerMoveCase{"CentreOpeningFirstQuarter", ". . . . O . . . .", 2, 20, 0.1F, 0},
        ComputerMoveCase{"CentreOpeningSecondQuarter", ". . . . O . . . .", 2, 20, 0.3F, 2},
        ComputerMoveCase{"CentreOpeningThirdQuarterNeverCentre", ". . . . O . . . .", 2, 20, 0.6F,
                         8},
        ComputerMoveCase{"CentreOpeningLastQuarter", ". . . . O . . . .", 2, 20, 0.99999994F, 6},
        ComputerMoveCase{"NoMatchFallsBackOnHighestEmpty", ". . . . O . . . X", 3, 21, {}, 7},
        ComputerMoveCase{"LaterBlockOverwritesEarlier", ". X . . O O O X .", 6, 20, {}, 3},
        ComputerMoveCase{"OwnLineBeatsBlock", "X X . . O . O O .", 6, 20, {}, 2},
        ComputerMoveCase{"LowestOwnLineEndsScan", "O . O . O X X X .", 7, 21, {}, 1},
        ComputerMoveCase{"LastEmptyCell", "O X O O X X X O .", 9, 21, {}, 8}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace

// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <random>
#include <vector>

#include "lockstep.h"

namespace {

using lockstep::Event;
using lockstep::Kind;
using Tally = std::array<int, 3>;  // won, lost, drawn by the human

int ending(const std::string& caption) {
    return caption == "你赢了" ? 0 : caption == "你输了" ? 1 : 2;
}

// Every game on the model: every human choice, every corner of the answer to a centre
// opening, clicks after varying numbers of toss ticks; each is played on Form1 in lockstep.
void walk(lockstep::Pair& pair, Tally& tally, model::Game game, std::vector<Event> path) {
    for (int ticks = game.move_no % 3; game.timer1 && (ticks-- > 0 || !game.player_turn);) {
        game.tick1();
        path.push_back({Kind::Tick1});
    }
    for (int cell = 0; cell < 9 && !game.command1; ++cell) {
        for (const float random : {0.1F, 0.3F, 0.6F, 0.9F}) {
            if (game.tag.at(cell) != "0" || (random > 0.1F && (cell != 4 || game.move_no > 1)))
                continue;
            auto next = game;
            next.click(cell, random);
            path.push_back({Kind::Click, cell, random});
            walk(pair, tally, next, path);
            path.pop_back();
        }
    }
    if (!game.command1 || testing::Test::HasFailure()) return;
    path.push_back({Kind::Tick2});  // a won line hides; the next Start must show it
    for (const auto& e : path)
        if (const auto fault = pair.step(e); !fault.empty()) return ADD_FAILURE() << fault;
    ++tally[static_cast<std::size_t>(ending(pair.form.Label2.Caption))];
}

// 802 games: 708 with the human first, 94 with the computer first, for every toss_limit.
TEST(EveryGame, FormPlaysEveryGameOfEveryTossByTheRules) {
    lockstep::Pair pair;
    for (int toss_limit = 20; toss_limit <= 29; ++toss_limit) {
        const Event start{Kind::Start, 0, static_cast<float>(toss_limit - 20) / 10 + 0.05F};
        model::Game game;
        game.start(start.random);
        Tally tally{};
        walk(pair, tally, game, {start});
        EXPECT_EQ(tally, (toss_limit % 2 ? Tally{1, 82, 11} : Tally{17, 482, 209})) << toss_limit;
    }
}

// Arbitrary events, live or not, random values often at the edge of a tenth or a quarter;
// each run ends in Exit, after which everything is ignored.
TEST(RandomEvents, MillionEventsByTheRules) {
    std::mt19937 engine(20240601);
    const auto pick = [&engine](unsigned n) { return static_cast<int>(engine() % n); };
    std::discrete_distribution<int> kinds{8, 45, 30, 8, 9};  // Start, a click and the ticks
    Tally endings{};
    for (long events = 0; events < 1'000'000 && !HasFailure();) {
        lockstep::Pair pair;
        for (int i = pick(40'000); i >= -20 && !HasFailure(); --i, ++events) {
            const Kind kind = i < 0 && i % 10 == 0 ? Kind::Exit : Kind(kinds(engine));
            const float edge = static_cast<float>(pick(20) + 1) / 20;
            float random = static_cast<float>(engine() >> 8) * 0x1p-24F;
            if (pick(4) == 0) random = pick(2) && edge < 1 ? edge : std::nextafter(edge, 0.0F);
            const bool open = !pair.form.Command1.Enabled;
            const int cell = pick(10) ? pick(9) : std::array{-1, 9, 100}[pick(3)];
            if (const auto fault = pair.step({kind, cell, random}); !fault.empty())
                ADD_FAILURE() << fault;
            if (open && pair.form.Command1.Enabled) ++endings[ending(pair.form.Label2.Caption)];
        }
    }
    for (const int count : endings) EXPECT_GT(count, 100);
}

// The program's own generator: seeded from the clock, over [0, 1).
TEST(ClockRandom, DrawsBelowOneAndDiffersBetweenRuns) {
    form::ClockRandom first, second;
    first.randomize(), second.randomize();
    int same = 0;
    for (int i = 0; i < 1'000'000; ++i) {
        const float value = first.random_next();
        ASSERT_TRUE(value >= 0 && value < 1) << value;
        same += value == second.random_next();
    }
    EXPECT_LT(same, 1000);
}

// The rules on boards set up directly, written as nine marks from cell 0 to 8, a blank between
// each two: O a circle, X a cross, a dot empty. Not all of them arise in play. The computer's
// choice needs no such boards: lockstep plays it in every game and at the edges of its random
// quarters.
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

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

struct Tally {
    int games = 0, won = 0, lost = 0, drawn = 0;
    friend bool operator==(const Tally&, const Tally&) = default;
};

// Walks every game on the model, and plays each one out on Form1 in lockstep with a model of
// its own: every human choice, every corner of the answer to a centre opening, and clicks
// after varying numbers of toss ticks.
struct Walk {
    lockstep::Pair pair;
    Tally tally;

    void play(const std::vector<Event>& path) {
        for (const auto& e : path) {
            const auto fault = pair.step(e);
            if (!fault.empty()) return ADD_FAILURE() << fault;
        }
        const auto& result = pair.form.Label2.Caption;
        ++tally.games;
        (result == "你赢了" ? tally.won : result == "你输了" ? tally.lost : tally.drawn) += 1;
        pair.step({Kind::Tick2});  // a won line hides, and the next Start must show it
    }

    void walk(model::Game game, std::vector<Event> path) {
        if (testing::Test::HasFailure()) return;
        while (!game.player_turn && !game.command1) {
            game.tick1();
            path.push_back({Kind::Tick1});
        }
        if (game.command1) return play(path);
        for (int ticks = game.move_no % 3; ticks > 0 && game.timer1; --ticks) {
            game.tick1();
            path.push_back({Kind::Tick1});
        }
        for (int cell = 0; cell < 9; ++cell) {
            if (game.tag[static_cast<std::size_t>(cell)] != "0") continue;
            const bool corners = game.move_no == 1 && cell == 4;
            for (const float random :
                 corners ? std::vector{0.1F, 0.3F, 0.6F, 0.9F} : std::vector{0.0F}) {
                auto next = game;
                next.click(cell, random);
                auto longer = path;
                longer.push_back({Kind::Click, cell, random});
                walk(next, longer);
            }
        }
    }
};

// 802 games: 708 with the human first, 94 with the computer first; each toss_limit plays
// all the games of its order.
TEST(EveryGame, FormPlaysEveryGameOfEveryTossLikeTheRules) {
    Walk walk;
    for (int toss_limit = 20; toss_limit <= 29; ++toss_limit) {
        const Event start{Kind::Start, 0, static_cast<float>(toss_limit - 20) / 10 + 0.05F};
        model::Game game;
        game.start(start.random);
        walk.tally = {};
        walk.walk(game, {start});
        EXPECT_EQ(walk.tally, toss_limit % 2 ? (Tally{94, 1, 82, 11}) : (Tally{708, 17, 482, 209}))
            << "toss_limit " << toss_limit;
    }
}

// Arbitrary events, live or not, with random values now and then at the edge of a tenth or a
// quarter; each run ends in Exit, after which everything is ignored.
TEST(RandomEvents, MillionEventsLikeTheRules) {
    std::mt19937 engine(20240601);
    const auto pick = [&engine](unsigned n) { return static_cast<int>(engine() % n); };
    std::array<int, 3> endings{};  // won, lost, drawn
    for (long events = 0; events < 1'000'000 && !HasFailure();) {
        lockstep::Pair pair;
        for (int i = pick(40'000); i >= -20 && !HasFailure(); --i, ++events) {
            const int roll = pick(100);
            const Kind kind = i < 0 && i % 10 == 0 ? Kind::Exit
                              : roll < 45          ? Kind::Click
                              : roll < 75          ? Kind::Tick1
                              : roll < 83          ? Kind::Start
                              : roll < 91          ? Kind::Tick2
                                                   : Kind::Tick3;
            float random = static_cast<float>(engine() >> 8) * 0x1p-24F;
            const float edge = static_cast<float>(pick(20) + 1) / 20;
            if (pick(4) == 0) random = pick(2) && edge < 1 ? edge : std::nextafter(edge, 0.0F);
            const bool open = !pair.form.Command1.Enabled;
            const auto fault =
                pair.step({kind, pick(10) ? pick(9) : std::array{-1, 9, 100}[pick(3)], random});
            if (!fault.empty()) ADD_FAILURE() << fault;
            if (open && pair.form.Command1.Enabled) {
                const auto& result = pair.form.Label2.Caption;
                ++endings[result == "你赢了" ? 0 : result == "你输了" ? 1 : 2];
            }
        }
    }
    for (const int count : endings) EXPECT_GT(count, 100);
}

// The program's own generator: seeded from the clock, evenly spread over [0, 1).
TEST(ClockRandom, DrawsBelowOneAndDiffersBetweenRuns) {
    form::ClockRandom first, second;
    first.randomize();
    double sum = 0;
    std::vector<float> a, b;
    for (int i = 0; i < 1'000'000; ++i) {
        const float value = first.random_next();
        ASSERT_TRUE(value >= 0 && value < 1) << value;
        sum += value;
        if (i < 8) a.push_back(value);
    }
    EXPECT_NEAR(sum / 1e6, 0.5, 0.002);
    second.randomize();
    for (int i = 0; i < 8; ++i) b.push_back(second.random_next());
    EXPECT_NE(a, b);
}

}  // namespace

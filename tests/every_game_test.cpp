// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include <chrono>
#include <iostream>
#include <memory>
#include <vector>

#include "checked_form.h"
#include "reference_game.h"

// Plays every game Form1 allows: each human choice at each turn, each corner of the computer's
// random answer to a centre opening, and, while the toss runs, each click after every number
// of toss ticks. Every event is checked as it is delivered.
namespace {

using reference_game::Tally;
using testing_support::Event;
using testing_support::Kind;
using testing_support::ScriptedForm;
using Path = std::vector<Event>;

struct GameWalk {
    int toss_limit;
    Tally tally{};
    long events = 0;
    std::vector<std::unique_ptr<ScriptedForm>> spare{};  // forms that have served

    // `path` leads to a position not walked yet. Its game is walked on from the first tick
    // count after which the human can click; a click after further ticks is checked, but its
    // game not walked: since each event must change exactly what it should, clicks and toss
    // ticks commute and that game is one of those walked.
    void walk(const Path& path) {
        if (testing::Test::HasFailure()) return;  // one fault shows up in many games
        auto game = replay(path);
        std::vector<Path> next;
        for (int ticks = 0, walked = -1;; ++ticks) {
            for (int cell = 0; cell < 9; ++cell) {
                if (!testing_support::clickable(game->form, cell)) continue;
                walked = walked < 0 ? ticks : walked;
                // A centre opening leaves the computer four corners to choose from.
                const bool corners = game->form.move_no == 1 && cell == 4;
                for (std::size_t r = 0; r < (corners ? 4 : 1); ++r) {
                    Path child = path;
                    child.insert(child.end(), static_cast<std::size_t>(ticks), Event{Kind::Tick1});
                    child.push_back(Event{Kind::Click, cell, reference_game::kCornerDraws[r]});
                    if (ticks == walked) next.push_back(child);
                    if (ticks != walked) spare.push_back(replay(child));
                }
            }
            if (!game->form.Timer1.Enabled || ticks > 29 || testing::Test::HasFailure()) break;
            check(*game, Event{Kind::Tick1});
        }
        if (next.empty()) {  // the game is over
            const std::string_view result = game->form.Label2.Caption;
            tally.add(result == game::kHumanWins ? 1 : result == game::kHumanLoses ? -1 : 0);
        }
        spare.push_back(std::move(game));
        for (const auto& child : next) walk(child);
    }

    void check(ScriptedForm& game, const Event& event) {
        ++events;
        const auto fault = testing_support::step(game, event);
        if (!fault.empty()) ADD_FAILURE() << fault << "; toss_limit " << toss_limit;
    }

    // A form at the end of `path`, which checks its last event. Building a Form1 costs far
    // more than playing one, so a form that has served plays its game to the end and starts
    // afresh. A game lasts at most 29 ticks and 9 moves; a form stuck longer fails the checks.
    std::unique_ptr<ScriptedForm> replay(const Path& path) {
        auto game = spare.empty() ? std::make_unique<ScriptedForm>() : std::move(spare.back());
        if (!spare.empty()) spare.pop_back();
        for (int event = 0; event < 64 && !game->form.Command1.Enabled; ++event) {
            int cell = 0;
            while (cell < 8 && !testing_support::clickable(game->form, cell)) ++cell;
            deliver(*game, game->form.player_turn ? Event{Kind::Click, cell} : Event{Kind::Tick1});
        }
        for (std::size_t i = 0; i + 1 < path.size(); ++i) deliver(*game, path[i]);
        events += static_cast<long>(path.size()) - 1;
        check(*game, path.back());
        return game;
    }
};

// Figures of the whole game tree, one order of play at a time; the reference rule's own count
// must give them too.
constexpr Tally kHumanFirst{708, 17, 482, 209};
constexpr Tally kComputerFirst{94, 1, 82, 11};

TEST(EveryGame, ReferenceRuleCountsTheSameGames) {
    EXPECT_EQ(reference_game::all_games(true), kHumanFirst);
    EXPECT_EQ(reference_game::all_games(false), kComputerFirst);
}

// Every toss_limit: the parity picks the first player, and the value sets how many ticks a
// human who is first can click between.
TEST(EveryGame, FormPlaysEveryGameOfEveryToss) {
    const auto started = std::chrono::steady_clock::now();
    long events = 0;
    Tally by_first[2];  // [0] the human first, [1] the computer first
    for (int toss_limit = 20; toss_limit <= 29; ++toss_limit) {
        GameWalk walk{toss_limit};
        // Start with the random value that draws this toss_limit.
        walk.walk({Event{Kind::Start, 0, static_cast<float>(toss_limit - 20) / 10.0F + 0.05F}});
        events += walk.events;
        EXPECT_EQ(walk.tally, toss_limit % 2 == 0 ? kHumanFirst : kComputerFirst) << toss_limit;
        by_first[toss_limit % 2] = walk.tally;
    }
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - started;

    const Tally &h = by_first[0], &c = by_first[1];
    const Tally all{h.games + c.games, h.human_wins + c.human_wins,
                    h.computer_wins + c.computer_wins, h.draws + c.draws};
    EXPECT_EQ(all, (Tally{802, 18, 564, 220}));
    RecordProperty("games", static_cast<int>(all.games));
    RecordProperty("human_wins", static_cast<int>(all.human_wins));
    RecordProperty("computer_wins", static_cast<int>(all.computer_wins));
    RecordProperty("draws", static_cast<int>(all.draws));
    std::cout << all << "; human first " << h << "; computer first " << c << "; " << events
              << " events in " << seconds.count() << " s\n";
}

}  // namespace

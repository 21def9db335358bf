// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <climits>
#include <cmath>
#include <cstdint>
#include <iostream>
#include <random>
#include <string>

#include "checked_form.h"

// Long runs of arbitrary events: clicks on any index, Start and the three timers whether they
// are live or not, random values chosen by the test. Each run ends with Exit, after which the
// form must ignore everything.
namespace {

using testing_support::Event;
using testing_support::Kind;

// Cell indices off the board that a click may carry.
constexpr std::array<int, 5> kOffBoard{-1, 9, 100, INT_MIN, INT_MAX};

// The next event: mostly clicks and toss ticks, a tenth of the clicks off the board. Random
// values are mostly spread evenly; now and then one is on or just below the edge of a tenth or
// a quarter, where the toss and the corner change.
Event next_event(std::mt19937& engine) {
    const auto pick = [&engine](std::uint32_t n) { return engine() % n; };
    const auto roll = pick(100);
    const Kind kind = roll < 45   ? Kind::Click
                      : roll < 75 ? Kind::Tick1
                      : roll < 83 ? Kind::Start
                      : roll < 91 ? Kind::Tick2
                                  : Kind::Tick3;
    const int cell = pick(10) == 0 ? kOffBoard[pick(5)] : static_cast<int>(pick(9));
    float draw = static_cast<float>(engine() >> 8) * 0x1p-24F;
    if (pick(4) == 0) {
        const float edge = static_cast<float>(pick(21)) / 20.0F;
        draw = std::min(pick(2) == 0 ? edge : std::nextafter(edge, 0.0F), 0.99999994F);
    }
    return {kind, cell, draw};
}

TEST(RandomEvents, MillionEventsKeepEveryInvariant) {
    constexpr std::uint32_t kFirstStart = 20240601;  // run r starts its generator at this + r
    constexpr long kEvents = 1'000'000;
    const auto started = std::chrono::steady_clock::now();

    // Runs of different lengths, so that Exit lands early in a game as well as late.
    std::mt19937 lengths(kFirstStart);
    long events = 0;
    int runs = 0;
    // How far the runs reached, so that a generator that never gets anywhere shows: games
    // won, lost, drawn, and ended while the toss still ran.
    std::array<long, 4> ends{};
    while (events < kEvents && !HasFailure()) {
        const auto start = kFirstStart + static_cast<std::uint32_t>(runs++);
        const long length = 1 + static_cast<long>(lengths() % 40'000);
        std::mt19937 source(start);
        testing_support::ScriptedForm game;
        auto& form = game.form;
        // The run, then Exit, then events, Exit among them, that must all be ignored.
        for (long i = 0; i < length + 1 + 50 && !HasFailure(); ++i) {
            const bool open = !form.Command1.Enabled;
            const bool exit = i >= length && (i - length) % 10 == 0;
            const Event event = exit ? Event{Kind::Exit} : next_event(source);
            if (auto fault = testing_support::step(game, event); !fault.empty()) {
                ADD_FAILURE() << fault << "; generator start value " << start << ", event " << i;
            }
            if (open && form.Command1.Enabled) {
                const std::string_view result = form.Label2.Caption;
                ++ends[result == game::kHumanWins ? 0 : result == game::kHumanLoses ? 1 : 2];
                ends[3] += form.Timer1.Enabled;
            }
        }
        if (!form.unloaded()) ADD_FAILURE() << "Exit did not unload the form";
        events += length;
    }

    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - started;
    RecordProperty("events", static_cast<int>(events));
    std::cout << events << " events in " << runs << " runs from generator start value "
              << kFirstStart << ", " << seconds.count() << " s: " << ends[0] << " won, " << ends[1]
              << " lost, " << ends[2] << " drawn, " << ends[3] << " ended during the toss\n";
    EXPECT_GE(events, kEvents);
    // Every way a game can end must have come up, or the runs test too little.
    for (const long count : ends) EXPECT_GT(count, 0);
}

}  // namespace

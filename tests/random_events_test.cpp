#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <random>
#include <stdexcept>
#include <string>

#include "form_invariants.h"
#include "reference_game.h"
#include "scripted_form.h"

// Long runs of arbitrary events: clicks on any index, Start and the three timers whether they
// are live or not, random values chosen by the test. Each run ends with Exit, after which the
// form must ignore everything.
namespace {

using testing_support::broken_invariant;
using testing_support::drawn_board;
using testing_support::ScriptedForm;
using testing_support::Snapshot;
using testing_support::snapshot_of;
using testing_support::without_banner;

enum class Kind { Click, Start, Tick1, Tick2, Tick3 };

struct Event {
    Kind kind;
    int cell;
    float draw;  // taken only by an event that draws
};

// Cell indices a click may carry, inside and outside the board.
constexpr std::array<int, 14> kIndices{0, 1, 2, 3, 4, 5, 6, 7, 8, -1, 9, 100, INT_MIN, INT_MAX};

class EventSource {
public:
    explicit EventSource(std::uint32_t seed) : engine_(seed) {}

    Event next() {
        const auto roll = pick(100);
        const Kind kind = roll < 45   ? Kind::Click
                          : roll < 75 ? Kind::Tick1
                          : roll < 83 ? Kind::Start
                          : roll < 91 ? Kind::Tick2
                                      : Kind::Tick3;
        const int cell = pick(10) == 0 ? kIndices[9 + pick(5)] : static_cast<int>(pick(9));
        return {kind, cell, draw()};
    }

    std::uint32_t pick(std::uint32_t n) { return engine_() % n; }

private:
    // Mostly spread evenly; now and then a value on or just below the edge of a tenth or a
    // quarter, where the toss and the corner change.
    float draw() {
        if (pick(4) != 0) return static_cast<float>(engine_() >> 8) * 0x1p-24F;
        const float edge = static_cast<float>(pick(21)) / 20.0F;
        const float below = std::nextafter(edge, 0.0F);
        const float value = pick(2) == 0 ? edge : below;
        return value >= 1.0F ? 0.99999994F : value;
    }

    std::mt19937 engine_;
};

// How far the runs reached, so that a generator that never gets anywhere shows.
struct Reach {
    long moves = 0;
    long starts = 0;
    long human_wins = 0;
    long computer_wins = 0;
    long draws = 0;
    long ended_in_toss = 0;
};

// Runs one sequence and reports the first fault with the seed and event that reproduce it.
class EventRun {
public:
    EventRun(std::uint32_t seed, long length, Reach& reach)
        : seed_(seed), length_(length), source_(seed), reach_(reach) {}

    bool play() {
        for (index_ = 0; index_ < length_; ++index_) {
            if (!step(source_.next())) return false;
        }
        return exit_and_ignore();
    }

private:
    bool failed(const std::string& what) {
        SCOPED_TRACE("seed " + std::to_string(seed_) + ", event " + std::to_string(index_));
        ADD_FAILURE() << what << "; board " << testing_support::board_of(game_.form) << ", move_no "
                      << int{game_.form.move_no} << ", toss_limit " << int{game_.form.toss_limit}
                      << ", toss_tick " << int{game_.form.toss.toss_tick};
        return false;
    }

    void deliver(const Event& event) {
        switch (event.kind) {
            case Kind::Click:
                game_.form.click_cell(event.cell);
                break;
            case Kind::Start:
                game_.form.click(form::ButtonId::Command1);
                break;
            case Kind::Tick1:
                game_.form.tick(form::TimerId::Timer1);
                break;
            case Kind::Tick2:
                game_.form.tick(form::TimerId::Timer2);
                break;
            case Kind::Tick3:
                game_.form.tick(form::TimerId::Timer3);
                break;
        }
    }

    bool step(const Event& event) {
        auto& form = game_.form;
        const Snapshot before = snapshot_of(form);
        const auto board_before = drawn_board(form);
        const bool valid_cell = event.cell >= 0 && event.cell <= 8;
        const bool clickable = event.kind == Kind::Click && valid_cell && form.player_turn &&
                               form.Picture1[static_cast<std::size_t>(event.cell)].Tag == "0";
        // Start draws the toss; the human's centre opening draws the computer's corner.
        const bool draws = (event.kind == Kind::Start && form.Command1.Enabled) ||
                           (clickable && form.move_no == 1 && event.cell == 4);
        if (draws) game_.random.push_back(event.draw);

        try {
            deliver(event);
        } catch (const std::logic_error& error) {
            return failed(error.what());
        }
        if (!game_.random.empty()) return failed("the planned random value was not drawn");
        if (auto broken = broken_invariant(form); !broken.empty()) return failed(broken);

        const Snapshot after = snapshot_of(form);
        if (after.move_no > before.move_no) reach_.moves += after.move_no - before.move_no;
        if (!before.command1 && after.command1) {
            reach_.human_wins += after.label2 == game::kHumanWins;
            reach_.computer_wins += after.label2 == game::kHumanLoses;
            reach_.draws += after.label2 == game::kDraw;
            reach_.ended_in_toss += after.timers[0];
        }
        switch (event.kind) {
            case Kind::Click:
                if (!clickable) {
                    return after == before || failed("a click that is not allowed acted");
                }
                return human_move(board_before, event);
            case Kind::Start:
                if (!before.command1) return after == before || failed("a disabled Start acted");
                ++reach_.starts;
                return started(before, after, event.draw);
            case Kind::Tick1:
                if (!before.timers[0]) return after == before || failed("a stopped toss ticked");
                return tossed(before, after);
            case Kind::Tick2:
                return blinked(before, after);
            case Kind::Tick3:
                return without_banner(after) == without_banner(before) ||
                       failed("the banner moved more than the banner");
        }
        return true;
    }

    // The human's mark stands in the cell, and the computer's answer is the reference rule's.
    bool human_move(const reference_game::Board& before, const Event& event) {
        const int human_mark = game_.form.toss_limit % 2 == 0 ? 1 : -1;
        auto expected = before;
        expected[static_cast<std::size_t>(event.cell)] = human_mark;
        if (reference_game::game_goes_on(expected)) {
            const int reply = reference_game::computer_cell(expected, -human_mark, event.draw);
            expected[static_cast<std::size_t>(reply)] = -human_mark;
        }
        return drawn_board(game_.form) == expected ||
               failed("Form1 and the reference rule part ways after a click on " +
                      std::to_string(event.cell));
    }

    bool started(const Snapshot& before, const Snapshot& after, float draw) {
        Snapshot expected = before;
        expected.tags.fill("0");
        expected.visible.fill(true);
        expected.strokes.fill(0);
        expected.label2.clear();
        expected.command1 = false;
        expected.timers[0] = true;
        expected.timers[1] = false;
        expected.move_no = 1;
        expected.player_turn = reference_game::toss_limit_for(draw) % 2 == 0;
        expected.toss_tick = 0;
        expected.toss_limit = static_cast<std::uint8_t>(reference_game::toss_limit_for(draw));
        expected.game_over = false;
        return after == expected || failed("Start did not set up a new game");
    }

    // A tick moves the toss on and, on its last tick with the computer first, the computer
    // takes the centre; nothing else changes.
    bool tossed(const Snapshot& before, const Snapshot& after) {
        Snapshot expected = before;
        ++expected.toss_tick;
        expected.label1 =
            expected.toss_tick % 2 == 0 ? effects::kHumanFirst : effects::kComputerFirst;
        expected.label1_colour = form::kRed;
        expected.shape1_colour = form::kBlue;
        if (expected.toss_tick == expected.toss_limit) {
            expected.timers[0] = false;
            if (expected.toss_limit % 2 == 1) {
                expected.tags[4] = "1";
                expected.strokes[4] = 1;
                expected.move_no = 2;
                expected.player_turn = true;
            }
        }
        return after == expected || failed("a toss tick changed the wrong things");
    }

    bool blinked(const Snapshot& before, const Snapshot& after) {
        Snapshot expected = before;
        if (before.timers[1]) {
            for (const auto cell : before.win) expected.visible[cell] = !expected.visible[cell];
        }
        return after == expected || failed("a blink tick changed the wrong things");
    }

    // Exit unloads the form; from then on no event of any kind changes anything.
    bool exit_and_ignore() {
        auto& form = game_.form;
        game_.form.click(form::ButtonId::Command2);
        if (!form.unloaded()) return failed("Exit did not unload the form");
        const Snapshot gone = snapshot_of(form);
        for (int i = 0; i < 50; ++i) {
            const Event event = source_.next();
            game_.random.push_back(event.draw);  // taken by nothing, since nothing runs
            deliver(event);
            form.click(form::ButtonId::Command2);
            form.load();
            if (!(snapshot_of(form) == gone) || game_.random.size() != 1) {
                return failed("an event reached the form after Exit");
            }
            game_.random.clear();
        }
        return true;
    }

    std::uint32_t seed_;
    long length_;
    long index_ = 0;
    EventSource source_;
    Reach& reach_;
    ScriptedForm game_;
};

TEST(RandomEvents, MillionEventsKeepEveryInvariant) {
    constexpr std::uint32_t kFirstSeed = 20240601;
    constexpr long kEvents = 1'000'000;
    const auto started = std::chrono::steady_clock::now();

    // Runs of different lengths, so that Exit lands early in a game as well as late.
    std::mt19937 lengths(kFirstSeed);
    long events = 0;
    int runs = 0;
    Reach reach;
    while (events < kEvents) {
        const auto seed = kFirstSeed + static_cast<std::uint32_t>(runs);
        const long length = 1 + static_cast<long>(lengths() % 40'000);
        ++runs;
        events += length;
        if (!EventRun(seed, length, reach).play()) break;
    }

    const auto seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
    RecordProperty("events", std::to_string(events));
    RecordProperty("runs", std::to_string(runs));
    std::printf(
        "%ld events in %d runs, %.2f s: %ld games started, %ld moves, %ld won, %ld lost, %ld "
        "drawn, %ld ended during the toss\n",
        events, runs, seconds, reach.starts, reach.moves, reach.human_wins, reach.computer_wins,
        reach.draws, reach.ended_in_toss);
    EXPECT_GE(events, kEvents);
    // Every way a game can end must have come up, or the runs test too little.
    EXPECT_GT(reach.human_wins, 0);
    EXPECT_GT(reach.computer_wins, 0);
    EXPECT_GT(reach.draws, 0);
    EXPECT_GT(reach.ended_in_toss, 0);
}

}  // namespace

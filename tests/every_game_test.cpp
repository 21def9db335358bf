#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "form_invariants.h"
#include "reference_game.h"
#include "scripted_form.h"

// Plays every game Form1 allows: each human choice at each turn, each corner of the computer's
// random answer to a centre opening, and, while the toss runs, each click after every number
// of toss ticks. Form1 cannot be copied, so a position is reached again by replaying the
// events that led to it.
namespace {

using reference_game::Board;
using reference_game::Tally;
using testing_support::broken_invariant;
using testing_support::drawn_board;
using testing_support::ScriptedForm;
using testing_support::Snapshot;
using testing_support::snapshot_of;

struct Event {
    enum class Kind { Start, Tick, Click } kind;
    int cell = -1;
    std::optional<float> draw;  // the random value this event takes
};

using Path = std::vector<Event>;

// What a recycled form keeps from its earlier games, blanked so that forms with different
// pasts can be compared: Label1 and Shape1 until the first toss tick, Label2's colour, and the
// last winning line.
Snapshot without_history(Snapshot s) {
    if (s.toss_tick == 0) {
        s.label1.clear();
        s.label1_colour.reset();
        s.shape1_colour.reset();
    }
    s.label2_colour.reset();
    if (!s.game_over) s.win = {};
    return s;
}

class GameWalk {
public:
    explicit GameWalk(int toss_limit) : toss_limit_(toss_limit) {}

    // Walks every game and returns the tally read from Form1's own captions.
    Tally run() {
        const float draw = testing_support::draw_for_toss(toss_limit_);
        walk({Event{Event::Kind::Start, -1, draw}}, Board{}, {});
        return tally_;
    }

    long events() const { return events_; }

private:
    struct Child {
        int cell;
        std::optional<float> draw;
        Path path;
        Board board;
        std::vector<Snapshot> by_tick;  // the position after each further toss tick
    };

    void deliver(ScriptedForm& game, const Event& event) {
        ++events_;
        if (event.draw) game.random.push_back(*event.draw);
        switch (event.kind) {
            case Event::Kind::Start:
                game.form.click(form::ButtonId::Command1);
                break;
            case Event::Kind::Tick:
                game.form.tick(form::TimerId::Timer1);
                break;
            case Event::Kind::Click:
                game.form.click_cell(event.cell);
                break;
        }
        if (!game.random.empty()) {
            fail(game, "a planned random value was not drawn");
            game.random.clear();
        }
    }

    // A form at the end of `path`. Building a Form1 costs far more than playing one, so a
    // form that has served is played to the end of its game and started afresh instead.
    std::unique_ptr<ScriptedForm> replay(const Path& path) {
        std::unique_ptr<ScriptedForm> game;
        if (spare_.empty()) {
            game = std::make_unique<ScriptedForm>();
        } else {
            game = std::move(spare_.back());
            spare_.pop_back();
            finish(*game);
        }
        for (const auto& event : path) deliver(*game, event);
        return game;
    }

    void recycle(std::unique_ptr<ScriptedForm> game) { spare_.push_back(std::move(game)); }

    static void finish(ScriptedForm& game) {
        auto& form = game.form;
        // A game lasts at most 29 ticks and 9 moves; a form stuck longer is left broken and
        // shows in the checks of what is replayed on it.
        for (int event = 0; event < 64 && !form.Command1.Enabled; ++event) {
            if (!form.player_turn) {
                form.tick(form::TimerId::Timer1);
                continue;
            }
            int cell = 0;
            while (cell < 9 && form.Picture1[static_cast<std::size_t>(cell)].Tag != "0") ++cell;
            if (cell == 9) return;
            if (form.move_no == 1 && cell == 4) game.random.push_back(0.0F);
            form.click_cell(cell);
        }
    }

    void check(const ScriptedForm& game) {
        if (auto broken = broken_invariant(game.form); !broken.empty()) fail(game, broken);
    }

    void fail(const ScriptedForm& game, const std::string& what) {
        if (++failures_ > 5) return;  // one fault shows up in many games
        ADD_FAILURE() << what << "; toss_limit " << toss_limit_ << ", board "
                      << testing_support::board_of(game.form) << ", move_no "
                      << int{game.form.move_no} << ", toss_tick " << int{game.form.toss.toss_tick};
    }

    // `path` leads to a position with the human to move or the game over; `by_tick`, when
    // given, is that position after each toss tick as reached by clicking after the ticks,
    // which must match ticking after the click.
    void walk(const Path& path, Board board, const std::vector<Snapshot>& by_tick) {
        auto live = replay(path);
        check(*live);
        const bool over = !reference_game::game_goes_on(board);
        std::vector<Child> children;
        int ticks = 0;  // toss ticks since the end of `path`
        for (;;) {
            const Snapshot here = snapshot_of(live->form);
            if (static_cast<std::size_t>(ticks) < by_tick.size() &&
                !(by_tick[static_cast<std::size_t>(ticks)] == without_history(here))) {
                fail(*live, "a click lands differently before and after a toss tick");
            }
            for (int cell = 0; cell < 9; ++cell) {
                const bool allowed = live->form.player_turn && live->form.Picture1[cell].Tag == "0";
                if (!allowed) {
                    // Ignored without a trace, so the same form goes on.
                    live->form.click_cell(cell);
                    ++events_;
                    if (!(snapshot_of(live->form) == here)) fail(*live, "a refused click acted");
                    continue;
                }
                if (over) fail(*live, "a click is allowed after the game ended");
                play(path, ticks, board, cell, children);
            }
            if (!live->form.Timer1.Enabled) break;
            if (live->form.toss.toss_tick >= toss_limit_) {
                fail(*live, "the toss runs past its last tick");
                break;
            }
            deliver(*live, Event{Event::Kind::Tick, -1, std::nullopt});
            ++ticks;
            check(*live);
            if (toss_limit_ % 2 == 1 && !live->form.Timer1.Enabled) {
                // The last tick of the toss plays the computer's opening.
                board[static_cast<std::size_t>(reference_game::computer_cell(board, 1, 0))] = 1;
                if (drawn_board(live->form) != board) fail(*live, "the opening is not the rule's");
            }
        }
        if (over) count(*live, board);
        recycle(std::move(live));
        if (over) return;
        for (const auto& child : children) walk(child.path, child.board, child.by_tick);
    }

    // The human plays `cell` after `ticks` toss ticks past `path`, and the computer answers.
    void play(const Path& path, int ticks, const Board& board, int cell,
              std::vector<Child>& children) {
        const int human_mark = toss_limit_ % 2 == 0 ? 1 : -1;
        Board after_human = board;
        after_human[static_cast<std::size_t>(cell)] = human_mark;
        const bool draws = reference_game::game_goes_on(after_human) &&
                           reference_game::marks_on(after_human) == 1 && cell == 4;
        const std::size_t answers = draws ? reference_game::kCornerDraws.size() : 1;
        for (std::size_t a = 0; a < answers; ++a) {
            const auto draw =
                draws ? std::optional<float>(reference_game::kCornerDraws[a]) : std::nullopt;
            Board expected = after_human;
            if (reference_game::game_goes_on(after_human)) {
                const int reply =
                    reference_game::computer_cell(after_human, -human_mark, draw.value_or(0));
                expected[static_cast<std::size_t>(reply)] = -human_mark;
            }

            Path extended = path;
            extended.insert(extended.end(), static_cast<std::size_t>(ticks),
                            Event{Event::Kind::Tick, -1, std::nullopt});
            extended.push_back(Event{Event::Kind::Click, cell, draw});
            auto game = replay(extended);
            check(*game);
            if (drawn_board(game->form) != expected) {
                fail(*game, "Form1 and the reference rule part ways after the human plays " +
                                std::to_string(cell));
            }

            Child* child = nullptr;
            for (auto& known : children) {
                if (known.cell == cell && known.draw == draw) child = &known;
            }
            if (child == nullptr) {
                children.push_back(Child{cell, draw, std::move(extended), expected, {}});
                child = &children.back();
            }
            child->by_tick.push_back(without_history(snapshot_of(game->form)));
            recycle(std::move(game));
        }
    }

    // A finished game: the result, read from Form1, must be the one the line or the full
    // board gives; a won line blinks.
    void count(ScriptedForm& game, const Board& board) {
        ++tally_.games;
        const std::string_view result = game.form.Label2.Caption;
        const int owner = reference_game::line_owner(board);
        const int human_mark = toss_limit_ % 2 == 0 ? 1 : -1;
        if (result == game::kHumanWins && owner == human_mark) {
            ++tally_.human_wins;
        } else if (result == game::kHumanLoses && owner == -human_mark) {
            ++tally_.computer_wins;
        } else if (result == game::kDraw && owner == 0) {
            ++tally_.draws;
        } else {
            fail(game, "the result does not match the board: " + std::string(result));
        }
        if (owner == 0) return;

        // Two blink ticks hide the line and show it again; nothing else moves.
        const Snapshot before = snapshot_of(game.form);
        const std::array<int, 3> line{game.form.win_a, game.form.win_b, game.form.win_c};
        for (const bool shown : {false, true}) {
            game.form.tick(form::TimerId::Timer2);
            ++events_;
            Snapshot expected = before;
            for (const int cell : line) expected.visible[static_cast<std::size_t>(cell)] = shown;
            if (!(snapshot_of(game.form) == expected))
                fail(game, "the blink moved more than the line");
            check(game);
        }
    }

    int toss_limit_;
    Tally tally_;
    long events_ = 0;
    int failures_ = 0;
    std::vector<std::unique_ptr<ScriptedForm>> spare_;
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
    std::array<Tally, 2> by_first;  // [0] the human first, [1] the computer first
    for (int toss_limit = 20; toss_limit <= 29; ++toss_limit) {
        SCOPED_TRACE("toss_limit " + std::to_string(toss_limit));
        GameWalk walk(toss_limit);
        const Tally tally = walk.run();
        events += walk.events();
        EXPECT_EQ(tally, toss_limit % 2 == 0 ? kHumanFirst : kComputerFirst);
        by_first[static_cast<std::size_t>(toss_limit % 2)] = tally;
    }
    const auto seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();

    const Tally& h = by_first[0];
    const Tally& c = by_first[1];
    const long games = h.games + c.games;
    RecordProperty("games", std::to_string(games));
    RecordProperty("human_wins", std::to_string(h.human_wins + c.human_wins));
    RecordProperty("computer_wins", std::to_string(h.computer_wins + c.computer_wins));
    RecordProperty("draws", std::to_string(h.draws + c.draws));
    RecordProperty("events", std::to_string(events));
    std::printf(
        "%ld games: human first %ld (%ld won, %ld lost, %ld drawn), computer first %ld (%ld "
        "won, %ld lost, %ld drawn); %ld events in %.2f s\n",
        games, h.games, h.human_wins, h.computer_wins, h.draws, c.games, c.human_wins,
        c.computer_wins, c.draws, events, seconds);
}

}  // namespace

// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>

#include "effects/toss.h"
#include "form/random.h"
#include "game/form1.h"
#include "reference_game.h"

// A Form1 driven by tests: planned random values, events, and what must hold after each.
namespace testing_support {

// A loaded Form1 whose random draws are the values the test plans in `random`. A draw the test
// did not plan for is a fault of the code under test, so it throws.
struct ScriptedForm {
    struct Planned final : form::RandomSource {
        explicit Planned(std::deque<float>& v) : values(v) {}
        void randomize() override {}
        float random_next() override {
            if (values.empty()) throw std::logic_error("unplanned random draw");
            const float value = values.front();
            values.pop_front();
            return value;
        }
        std::deque<float>& values;
    };
    std::deque<float> random;
    game::Form1 form{std::make_unique<Planned>(random)};
    ScriptedForm() { form.load(); }
};

// Sets the nine Tags from nine marks, "O . O . O X X X .": O a circle, X a cross, a dot empty.
inline void set_board(game::Form1& form, std::string_view marks) {
    std::size_t cell = 0;
    for (const char mark : marks) {
        if (mark != ' ')
            form.Picture1.at(cell++).Tag = mark == 'O' ? "1" : mark == 'X' ? "-1" : "0";
    }
    if (cell != form.Picture1.size()) throw std::invalid_argument("a board has nine marks");
}

// The board as drawn: the Tags all read "1" after a win, but the strokes keep who played
// where. One circle is 1, two lines -1, nothing 0, anything else kOverdrawn.
inline constexpr int kOverdrawn = 2;
inline reference_game::Board drawn_board(const game::Form1& form) {
    reference_game::Board board{};
    for (std::size_t cell = 0; cell < board.size(); ++cell) {
        const auto& s = form.Picture1[cell].strokes();
        const bool circle = s.size() == 1 && std::holds_alternative<form::CircleStroke>(s[0]);
        const bool cross = s.size() == 2 && std::holds_alternative<form::LineStroke>(s[0]) &&
                           std::holds_alternative<form::LineStroke>(s[1]);
        board[cell] = s.empty() ? 0 : circle ? 1 : cross ? -1 : kOverdrawn;
    }
    return board;
}

// Everything an event can change, grouped by what changes it.
struct Snapshot {
    struct Play {  // a move or Start
        std::string label2;
        std::optional<form::Colour> label2_colour;
        bool command1 = false, timer2 = false, player_turn = false, game_over = false;
        std::uint8_t move_no = 0;
        std::array<std::uint8_t, 3> win{};
        std::array<int, 9> tags{};  // as tag_code gives them
        std::array<std::size_t, 9> strokes{};
        friend bool operator==(const Play&, const Play&) = default;
    } play;
    struct Toss {  // Start and Timer1
        std::string label1;
        std::optional<form::Colour> label1_colour, shape1_colour;
        bool timer1 = false;
        std::uint8_t tick = 0, limit = 0;
        friend bool operator==(const Toss&, const Toss&) = default;
    } toss;
    std::array<bool, 9> visible{};  // Start and Timer2
    std::array<int, 6> banner{};    // Timer3: frame_no, frame_back, Image2's bounds
    std::array<bool, 2> fixed{};    // Command2 and Timer3 enabled, which nothing changes
    bool unloaded = false;          // Exit
    friend bool operator==(const Snapshot&, const Snapshot&) = default;
};

// A Tag as a number, for quick comparison: its mark, 2 when blank and 3 for any other text.
inline int tag_code(const std::string& tag) {
    return tag == "0" ? 0 : tag == "1" ? 1 : tag == "-1" ? -1 : tag.empty() ? 2 : 3;
}

inline Snapshot snapshot_of(const game::Form1& f) {
    Snapshot s;
    s.play = {f.Label2.Caption, f.Label2.ForeColor, f.Command1.Enabled, f.Timer2.Enabled,
              f.player_turn,    f.game_over,        f.move_no};
    s.play.win = {f.win_a, f.win_b, f.win_c};
    s.toss = {f.Label1.Caption, f.Label1.ForeColor, f.Shape1.BorderColor,
              f.Timer1.Enabled, f.toss.toss_tick,   f.toss_limit};
    s.banner = {f.banner.frame_no,   f.banner.frame_back,   f.Image2.bounds.Left,
                f.Image2.bounds.Top, f.Image2.bounds.Width, f.Image2.bounds.Height};
    s.fixed = {f.Command2.Enabled, f.Timer3.Enabled};
    s.unloaded = f.unloaded();
    for (std::size_t cell = 0; cell < 9; ++cell) {
        s.play.tags[cell] = tag_code(f.Picture1[cell].Tag);
        s.play.strokes[cell] = f.Picture1[cell].strokes().size();
        s.visible[cell] = f.Picture1[cell].Visible;
    }
    return s;
}

// The first invariant that Form1 breaks, or an empty text. Holds after every event.
inline std::string broken_invariant(const game::Form1& form) {
    const auto shows = [](std::string_view text, auto... allowed) {
        return text.empty() || ((text == allowed) || ...);
    };
    const std::string_view label2 = form.Label2.Caption;
    if (!shows(form.Label1.Caption, effects::kHumanFirst, effects::kComputerFirst) ||
        !shows(label2, game::kHumanWins, game::kHumanLoses, game::kDraw)) {
        return "a caption outside the game's texts";
    }
    const auto board = drawn_board(form);
    if (std::find(board.begin(), board.end(), kOverdrawn) != board.end()) {
        return "a cell drawn twice";
    }
    const int marks = reference_game::marks_on(board);
    if (form.move_no == 0) return marks == 0 && !form.player_turn ? "" : "play before Start";
    if (marks != form.move_no - 1) return "move_no does not count the marks";

    const bool human_first = form.toss_limit % 2 == 0;
    const int owner = reference_game::line_owner(board);
    if (form.game_over) {
        for (const auto& cell : form.Picture1) {
            if (cell.Tag != "1") return "a Tag other than \"1\" after a win";
        }
        if (!form.Command1.Enabled || !form.Timer2.Enabled) return "no Start or no blink on a win";
        const reference_game::Line win{form.win_a, form.win_b, form.win_c};
        const auto& lines = reference_game::kLines;
        if (std::find(lines.begin(), lines.end(), win) == lines.end() || owner == 0 ||
            board[win[0]] != owner || board[win[1]] != owner || board[win[2]] != owner) {
            return "the stored winning line is not on the board";
        }
        const bool human_won = owner == (human_first ? 1 : -1);
        return label2 == (human_won ? game::kHumanWins : game::kHumanLoses) ? "" : "wrong winner";
    }

    if (owner != 0 || form.Timer2.Enabled) return "a line or a blink in a game not over";
    for (std::size_t cell = 0; cell < 9; ++cell) {
        if (form.Picture1[cell].Tag != (board[cell] == 0 ? "0" : board[cell] == 1 ? "1" : "-1")) {
            return "Tag of cell " + std::to_string(cell) + " disagrees with its drawing";
        }
    }
    if (marks == 9) {
        const bool blue_draw = label2 == game::kDraw && form.Label2.ForeColor == form::kBlue;
        return blue_draw && form.Command1.Enabled ? "" : "a full board is no blue draw";
    }
    if (!label2.empty() || form.Command1.Enabled) return "a result or Start in an open game";
    const bool humans_move = (form.move_no % 2 == 1) == human_first;
    return form.player_turn == humans_move ? "" : "player_turn does not match whose move it is";
}

// The three timers' ticks first, in the order of form::TimerId.
enum class Kind { Tick1, Tick2, Tick3, Click, Start, Exit };

struct Event {
    Kind kind;
    int cell = 0;
    float draw = 0;  // taken only by an event that draws
};

inline bool clickable(const game::Form1& form, int cell) {
    return cell >= 0 && cell <= 8 && form.player_turn && !form.unloaded() &&
           form.Picture1[static_cast<std::size_t>(cell)].Tag == "0";
}

// Delivers the event, first planning its random value if it draws one: Start draws the toss,
// the human's centre opening the computer's corner.
inline void deliver(ScriptedForm& game, const Event& event) {
    auto& form = game.form;
    if ((event.kind == Kind::Start && form.Command1.Enabled && !form.unloaded()) ||
        (event.kind == Kind::Click && clickable(form, event.cell) && form.move_no == 1 &&
         event.cell == 4)) {
        game.random.push_back(event.draw);
    }
    if (event.kind == Kind::Click) {
        form.click_cell(event.cell);
    } else if (event.kind == Kind::Start || event.kind == Kind::Exit) {
        form.click(event.kind == Kind::Start ? form::ButtonId::Command1 : form::ButtonId::Command2);
    } else {
        form.tick(static_cast<form::TimerId>(event.kind));
    }
}

// Delivers the event and returns the first thing it got wrong, or an empty text: the
// invariants, and that it changed exactly what it should, no more.
inline std::string step(ScriptedForm& game, const Event& event) {
    auto& form = game.form;
    const Snapshot before = snapshot_of(form);
    const auto board = drawn_board(form);
    const bool acts = event.kind == Kind::Click   ? clickable(form, event.cell)
                      : event.kind == Kind::Start ? before.play.command1
                      : event.kind == Kind::Tick1 ? before.toss.timer1
                                                  : true;
    std::string fault;
    try {
        deliver(game, event);
        if (!game.random.empty()) fault = "a planned random value was not drawn";
    } catch (const std::logic_error& error) {
        fault = error.what();
    }
    if (fault.empty()) fault = broken_invariant(form);

    const Snapshot after = snapshot_of(form);
    Snapshot expected = before;
    if (before.unloaded || !acts) {
        // Ignored: expected stays as it was.
    } else if (event.kind == Kind::Click) {
        auto moved = board;
        const int human = form.toss_limit % 2 == 0 ? 1 : -1;
        moved[static_cast<std::size_t>(event.cell)] = human;
        if (reference_game::game_goes_on(moved)) {
            moved[static_cast<std::size_t>(
                reference_game::computer_cell(moved, -human, event.draw))] = -human;
        }
        if (fault.empty() && drawn_board(form) != moved) fault = "not the reference rule's move";
        expected.play = after.play;  // the rest of it, the invariants check
    } else if (event.kind == Kind::Start) {
        const int limit = reference_game::toss_limit_for(event.draw);
        auto& play = expected.play;
        play.tags.fill(0);
        play.strokes.fill(0);
        play.label2.clear();
        play.command1 = play.timer2 = play.game_over = false;
        play.player_turn = limit % 2 == 0;
        play.move_no = 1;
        expected.toss.timer1 = true;
        expected.toss.tick = 0;
        expected.toss.limit = static_cast<std::uint8_t>(limit);
        expected.visible.fill(true);
    } else if (event.kind == Kind::Tick1) {
        // The toss moves on; on its last tick a computer that is first takes the centre.
        auto& toss = expected.toss;
        ++toss.tick;
        toss.label1 = toss.tick % 2 == 0 ? effects::kHumanFirst : effects::kComputerFirst;
        toss.label1_colour = form::kRed;
        toss.shape1_colour = form::kBlue;
        toss.timer1 = toss.tick != toss.limit;
        if (!toss.timer1 && toss.limit % 2 == 1) {
            expected.play.tags[4] = 1;
            expected.play.strokes[4] = 1;
            expected.play.move_no = 2;
            expected.play.player_turn = true;
        }
    } else if (event.kind == Kind::Tick2 && before.play.timer2) {
        for (const auto cell : before.play.win) expected.visible[cell] = !expected.visible[cell];
    } else if (event.kind == Kind::Tick3) {
        expected.banner = after.banner;  // the banner's own tests follow it
    } else if (event.kind == Kind::Exit) {
        expected.unloaded = true;
    }
    if (fault.empty() && !(after == expected)) fault = "the event changed the wrong things";
    if (fault.empty()) return {};
    std::string marks;
    for (const int m : board) marks += m == 1 ? 'O' : m == -1 ? 'X' : '.';
    return fault + "; event kind " + std::to_string(static_cast<int>(event.kind)) + ", cell " +
           std::to_string(event.cell) + ", board " + marks + ", move_no " +
           std::to_string(before.play.move_no) + ", toss " + std::to_string(before.toss.tick) +
           "/" + std::to_string(before.toss.limit);
}

}  // namespace testing_support

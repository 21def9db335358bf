#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "effects/toss.h"
#include "game/form1.h"
#include "reference_game.h"

// What must hold of Form1 after any event, checked from its controls and fields alone.
namespace testing_support {

// A cell drawn more than once.
inline constexpr int kOverdrawn = 2;

// The mark a cell shows, read from its strokes: the Tags all read "1" after a win, but the
// drawing keeps who played where. One circle is 1, two lines -1, nothing 0.
inline int drawn_mark(const form::PictureBox& cell) {
    const auto& strokes = cell.strokes();
    if (strokes.empty()) return 0;
    if (strokes.size() == 1 && std::holds_alternative<form::CircleStroke>(strokes[0])) return 1;
    if (strokes.size() == 2 && std::holds_alternative<form::LineStroke>(strokes[0]) &&
        std::holds_alternative<form::LineStroke>(strokes[1])) {
        return -1;
    }
    return kOverdrawn;
}

inline reference_game::Board drawn_board(const game::Form1& form) {
    reference_game::Board board{};
    for (std::size_t cell = 0; cell < board.size(); ++cell) {
        board[cell] = drawn_mark(form.Picture1[cell]);
    }
    return board;
}

// Everything an event can change, so that tests can tell an ignored event from a served one.
struct Snapshot {
    std::array<std::string, 9> tags;
    std::array<bool, 9> visible{};
    std::array<std::size_t, 9> strokes{};
    std::string label1;
    std::string label2;
    std::optional<form::Colour> label1_colour;
    std::optional<form::Colour> label2_colour;
    std::optional<form::Colour> shape1_colour;
    bool command1 = false;
    bool command2 = false;
    std::array<bool, 3> timers{};
    std::uint8_t move_no = 0;
    bool player_turn = false;
    std::uint8_t toss_tick = 0;
    std::uint8_t toss_limit = 0;
    bool game_over = false;
    std::array<std::uint8_t, 3> win{};
    bool unloaded = false;
    // The banner's part, which Timer3 alone moves.
    std::int16_t frame_no = 0;
    std::int16_t frame_back = 0;
    form::Bounds image2;

    friend bool operator==(const Snapshot&, const Snapshot&) = default;
};

inline Snapshot snapshot_of(const game::Form1& form) {
    Snapshot s;
    for (std::size_t cell = 0; cell < 9; ++cell) {
        s.tags[cell] = form.Picture1[cell].Tag;
        s.visible[cell] = form.Picture1[cell].Visible;
        s.strokes[cell] = form.Picture1[cell].strokes().size();
    }
    s.label1 = form.Label1.Caption;
    s.label2 = form.Label2.Caption;
    s.label1_colour = form.Label1.ForeColor;
    s.label2_colour = form.Label2.ForeColor;
    s.shape1_colour = form.Shape1.BorderColor;
    s.command1 = form.Command1.Enabled;
    s.command2 = form.Command2.Enabled;
    s.timers = {form.Timer1.Enabled, form.Timer2.Enabled, form.Timer3.Enabled};
    s.move_no = form.move_no;
    s.player_turn = form.player_turn;
    s.toss_tick = form.toss.toss_tick;
    s.toss_limit = form.toss_limit;
    s.game_over = form.game_over;
    s.win = {form.win_a, form.win_b, form.win_c};
    s.unloaded = form.unloaded();
    s.frame_no = form.banner.frame_no;
    s.frame_back = form.banner.frame_back;
    s.image2 = form.Image2.bounds;
    return s;
}

inline Snapshot without_banner(Snapshot s) {
    s.frame_no = 0;
    s.frame_back = 0;
    s.image2 = {};
    return s;
}

// The first invariant that Form1 breaks, or an empty text. Holds after every event, during
// the toss too.
inline std::string broken_invariant(const game::Form1& form) {
    using reference_game::Board;
    const std::string_view label1 = form.Label1.Caption;
    const std::string_view label2 = form.Label2.Caption;
    if (!label1.empty() && label1 != effects::kHumanFirst && label1 != effects::kComputerFirst) {
        return "Label1 shows a text of its own: " + std::string(label1);
    }
    if (!label2.empty() && label2 != game::kHumanWins && label2 != game::kHumanLoses &&
        label2 != game::kDraw) {
        return "Label2 shows a text of its own: " + std::string(label2);
    }
    const Board board = drawn_board(form);
    for (std::size_t cell = 0; cell < 9; ++cell) {
        if (board[cell] == kOverdrawn) return "cell " + std::to_string(cell) + " drawn twice";
    }

    if (form.move_no == 0) {
        // Never started: a blank board that ignores clicks.
        for (const auto& cell : form.Picture1) {
            if (!cell.Tag.empty()) return "a Tag is written before the first Start";
        }
        if (reference_game::marks_on(board) != 0) return "a mark before the first Start";
        if (form.player_turn) return "player_turn before the first Start";
        if (!form.Command1.Enabled) return "Start disabled before the first Start";
        if (form.Timer1.Enabled || form.Timer2.Enabled) return "a game timer runs before Start";
        return {};
    }

    if (form.toss_limit < 20 || form.toss_limit > 29) return "toss_limit outside 20 to 29";
    const bool human_first = form.toss_limit % 2 == 0;
    const int human_mark = human_first ? 1 : -1;
    const int marks = reference_game::marks_on(board);
    if (marks != form.move_no - 1) {
        return "move_no " + std::to_string(form.move_no) + " with " + std::to_string(marks) +
               " marks";
    }

    const bool tossing = form.toss.toss_tick < form.toss_limit;
    if (form.Timer1.Enabled != tossing) return "Timer1 does not match the toss in progress";
    if (form.toss.toss_tick > 0) {
        const auto expected =
            form.toss.toss_tick % 2 == 0 ? effects::kHumanFirst : effects::kComputerFirst;
        if (label1 != expected) return "Label1 does not match the toss tick";
        if (form.Label1.ForeColor != form::kRed || form.Shape1.BorderColor != form::kBlue) {
            return "toss colours missing";
        }
    }
    if (!human_first && tossing && marks != 0) return "the computer moved before its toss ended";
    if (!human_first && marks > 0 && board[4] != 1) return "the computer did not open centre";

    const int owner = reference_game::line_owner(board);
    if (form.game_over) {
        if (owner == 0) return "game_over without a line on the board";
        for (const auto& cell : form.Picture1) {
            if (cell.Tag != "1") return "a Tag other than \"1\" after a win";
        }
        if (!form.Command1.Enabled) return "Start disabled after a win";
        if (!form.Timer2.Enabled) return "no blink after a win";
        if (!reference_game::is_line(form.win_a, form.win_b, form.win_c) ||
            board[form.win_a] != owner || board[form.win_b] != owner ||
            board[form.win_c] != owner) {
            return "the stored winning line is not on the board";
        }
        const auto expected = owner == human_mark ? game::kHumanWins : game::kHumanLoses;
        if (label2 != expected) return "Label2 names the wrong winner: " + std::string(label2);
        return {};
    }

    if (owner != 0) return "a line stands but the game is not over";
    if (form.Timer2.Enabled) return "blink without a win";
    for (std::size_t cell = 0; cell < 9; ++cell) {
        const auto& tag = form.Picture1[cell].Tag;
        const int mark = board[cell];
        if ((mark == 0 && tag != "0") || (mark == 1 && tag != "1") || (mark == -1 && tag != "-1")) {
            return "Tag of cell " + std::to_string(cell) + " disagrees with its drawing";
        }
    }
    if (marks == 9) {
        if (label2 != game::kDraw) return "a full board without a line is not a draw";
        if (form.Label2.ForeColor != form::kBlue) return "the draw is not blue";
        if (!form.Command1.Enabled) return "Start disabled after a draw";
        return {};
    }
    if (!label2.empty()) return "Label2 shows a result in an open game";
    if (form.Command1.Enabled) return "Start enabled in an open game";
    const bool humans_move = (form.move_no % 2 == 1) == human_first;
    if (form.player_turn != humans_move) {
        return humans_move ? "the human may not move on its turn"
                           : "player_turn while the computer is to move";
    }
    return {};
}

}  // namespace testing_support

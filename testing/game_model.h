// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

// The game as its rules are written, with their own texts and numbers, on plain values: every
// control property and field that an event of the game can change. Kept apart from game/ and
// form/, so that a slip there shows as a difference here.
namespace model {

// 1 a circle, -1 a cross, 0 empty; cells row by row.
using Board = std::array<int, 9>;

// The mark of a completed line on the board, or 0.
int line_owner(const Board& board);
// The computer's cell, playing `own` on move `move_no`; `random` picks the corner after a
// centre opening.
int computer_cell(const Board& board, int move_no, int own, float random);

struct Game {
    std::array<std::string, 9> tag{};  // blank until the first Start
    Board drawn{};                     // the mark on each cell's surface
    std::array<bool, 9> visible{true, true, true, true, true, true, true, true, true};
    std::string label1, label2;
    std::optional<std::uint32_t> label1_colour, label2_colour, shape1_colour;  // 0xBBGGRR
    bool command1 = true, timer1 = false, timer2 = false, unloaded = false;
    int move_no = 0, toss_tick = 0, toss_limit = 0;
    bool player_turn = false, game_over = false;
    std::array<int, 3> win{};
    float circle_x = 0, circle_y = 0, cross_near = 0, cross_far = 0;
    int frame_no = 0, frame_back = 0, shown_frame = -1, banner_width = 1575, banner_height = 855;
    bool drew = false;  // an event took its random value (the caller clears it)

    // The events; each takes the random value it would draw.
    void start(float random);
    void click(int cell, float random);
    void tick1();
    void tick2();
    void tick3();
    void exit() { unloaded = true; }

private:
    Board marks() const;
    void draw_ox(int cell);
    void computer_moves(float random);
};

}  // namespace model

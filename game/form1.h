// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <memory>

#include "effects/banner.h"
#include "effects/toss.h"
#include "form/form.h"
#include "form/marks.h"
#include "form/random.h"

namespace game {

// The game window. The board has no structure of its own: it is the nine Tag texts of
// Picture1, "0" empty, "1" circle, "-1" cross. The first player, decided by the parity of
// toss_limit, plays the odd moves and draws circles:
//
//     toss_limit even: the human is first;  toss_limit odd: the computer is first.
//
// The procedures appear in the files of game/ in the order in which a game runs them:
// start_and_exit.cpp (load, Start, Exit), turn_flow.cpp (a click and draw_ox),
// computer_move.cpp (compu_select), win_detection.cpp (check_win, show_win) and
// timers.cpp (the toss, the blink and the banner from effects/).
class Form1 final : public form::Form {
public:
    explicit Form1(
        std::unique_ptr<form::RandomSource> random = std::make_unique<form::ClockRandom>());

    // Number of the move being played: 1 at Start, 10 once the ninth has been played.
    std::uint8_t move_no = 0;
    // The human may click a cell now.
    bool player_turn = false;
    form::MarkPen mark_pen;  // circle_x, circle_y, cross_near, cross_far
    effects::Toss toss;      // toss_tick
    // 20 to 29: the tick on which the toss ends; its parity decides who is first.
    std::uint8_t toss_limit = 0;
    // A line has been completed. A draw does not set it.
    bool game_over = false;
    // The winning line, in the order of the line table.
    std::uint8_t win_a = 0;
    std::uint8_t win_b = 0;
    std::uint8_t win_c = 0;
    effects::Banner banner;  // frame_no, frame_back

    // Plays move move_no into cell, for whichever side is moving.
    void draw_ox(int cell);
    // The computer's move. Needs an empty cell, no completed line and move_no 1 to 9.
    void compu_select();
    void check_win();
    void show_win(std::uint8_t a, std::uint8_t b, std::uint8_t c);

    // The mark value of a cell: 1, -1, or 0 when empty (or blank before the first Start).
    int mark_at(int cell) const;

private:
    // The human's turn and an empty cell.
    bool playable(int index) const override;
    void Form_Load() override;
    void Command1_Click() override;
    void Command2_Click() override;
    void Picture1_Click(int index) override;
    void Timer1_Timer() override;
    void Timer2_Timer() override;
    void Timer3_Timer() override;
};

}  // namespace game

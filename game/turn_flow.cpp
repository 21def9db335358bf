// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/texts.h"
#include "game/form1.h"

namespace game {

bool Form1::playable(int index) const {
    // player_turn first: before the first Start every Tag is blank, which also reads as empty.
    return player_turn && mark_at(index) == 0;
}

void Form1::Picture1_Click(int index) {
    if (!playable(index)) return;
    player_turn = false;
    draw_ox(index);
    // move_no has moved on already: 10 means the human has just filled the board.
    if (move_no <= 9 && !game_over) compu_select();
}

void Form1::draw_ox(int cell) {
    auto& box = Picture1[static_cast<std::size_t>(cell)];
    // The mark follows from the move number alone, not from who plays.
    if (move_no % 2 == 1) {
        mark_pen.draw_circle(box);
    } else {
        mark_pen.draw_cross(box);
    }
    check_win();
    if (move_no >= 9 && !game_over) {
        Label2.ForeColor = form::kBlue;
        Label2.Caption = form::texts::kDraw;
        Command1.Enabled = true;
    }
    ++move_no;
}

}  // namespace game

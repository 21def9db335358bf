// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <utility>

#include "assets/banner_frames.h"
#include "form/text.h"
#include "game/form1.h"

namespace game {

Form1::Form1(std::unique_ptr<form::RandomSource> random) : form::Form(std::move(random)) {
    // The banner's frames are loaded with the form, so a tick only hands one over.
    Image1 = assets::make_banner_frames();
}

int Form1::mark_at(int cell) const {
    return form::numeric_value(Picture1[static_cast<std::size_t>(cell)].Tag);
}

void Form1::Form_Load() { randomize(); }

void Form1::Command1_Click() {
    for (auto& cell : Picture1) {
        cell.Tag = form::text_of(0);
        cell.Cls();
        cell.Visible = true;
    }
    Label2.Caption = "";  // Label2 keeps its colour
    Timer2.Enabled = false;
    move_no = 1;
    game_over = false;
    Command1.Enabled = false;

    // In double precision: a float product of 0.99999994 and 10 would round up to 10.
    const auto draw = static_cast<int>(static_cast<double>(random_next()) * 10.0);
    toss_limit = static_cast<std::uint8_t>(draw + 20);
    toss.restart();
    Timer1.Enabled = true;
    player_turn = toss_limit % 2 == 0;
}

void Form1::Command2_Click() { Unload(); }

}  // namespace game

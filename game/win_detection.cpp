// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <array>
#include <cstdint>

#include "form/text.h"
#include "form/texts.h"
#include "game/form1.h"

namespace game {

namespace {

// The eight lines in testing order: the three through cell 0, the three through the centre,
// the two through cell 8.
constexpr std::array<std::array<std::uint8_t, 3>, 8> kLines{{
    {0, 1, 2},
    {0, 3, 6},
    {0, 4, 8},
    {1, 4, 7},
    {2, 4, 6},
    {3, 4, 5},
    {2, 5, 8},
    {6, 7, 8},
}};

}  // namespace

// Does not stop at a hit: every complete line is announced, and the last one found is the one
// that blinks. Called by draw_ox before move_no moves on.
void Form1::check_win() {
    for (const auto& [a, b, c] : kLines) {
        const auto& tag = Picture1[a].Tag;
        if (mark_at(a) != 0 && Picture1[b].Tag == tag && Picture1[c].Tag == tag) show_win(a, b, c);
    }
    if (game_over) {
        // Closes the board: no cell reads as empty any more, so clicks find nothing to play.
        for (auto& cell : Picture1) cell.Tag = form::text_of(1);
        Command1.Enabled = true;
    }
}

void Form1::show_win(std::uint8_t a, std::uint8_t b, std::uint8_t c) {
    win_a = a;
    win_b = b;
    win_c = c;
    Timer2.Enabled = true;
    game_over = true;
    // Odd moves are the first player's: the human made the last move when the parities of
    // toss_limit and move_no differ. Label2 keeps its colour.
    const bool human_moved_last = (toss_limit + move_no) % 2 == 1;
    Label2.Caption = human_moved_last ? form::texts::kHumanWins : form::texts::kHumanLoses;
}

}  // namespace game

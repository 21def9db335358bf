// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "effects/blink.h"
#include "game/form1.h"

namespace game {

void Form1::Timer1_Timer() {
    if (!toss.tick(toss_limit, Label1, Shape1)) return;
    if (toss_limit % 2 == 1) compu_select();
    Timer1.Enabled = false;
}

void Form1::Timer2_Timer() { effects::blink_line(Picture1, {win_a, win_b, win_c}); }

void Form1::Timer3_Timer() { banner.tick(Image2); }

}  // namespace game

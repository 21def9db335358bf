// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>

#include "form/controls.h"

namespace effects {

// The flicker that runs up to the choice of the first player. The choice is made at Start as
// toss_limit, 20 to 29; the captions alternate tick by tick, beginning with "计算机先",
// so the last one always names the true first player.
struct Toss {
    std::uint8_t toss_tick = 0;

    void restart() { toss_tick = 0; }
    // One tick of Timer1. Returns true on the tick that ends the toss.
    bool tick(std::uint8_t toss_limit, form::Label& Label1, form::Shape& Shape1);
};

}  // namespace effects

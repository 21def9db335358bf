// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "effects/toss.h"

#include "form/texts.h"

namespace effects {

bool Toss::tick(std::uint8_t toss_limit, form::Label& Label1, form::Shape& Shape1) {
    ++toss_tick;
    Shape1.BorderColor = form::kBlue;
    Label1.ForeColor = form::kRed;
    Label1.Caption = toss_tick % 2 == 0 ? form::texts::kHumanFirst : form::texts::kComputerFirst;
    return toss_tick == toss_limit;
}

}  // namespace effects

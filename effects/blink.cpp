// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "effects/blink.h"

namespace effects {

void blink_line(std::array<form::PictureBox, form::layout::kCellCount>& Picture1,
                const std::array<std::uint8_t, 3>& line) {
    for (const auto cell : line) Picture1[cell].Visible = !Picture1[cell].Visible;
}

}  // namespace effects

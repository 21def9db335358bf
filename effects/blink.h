// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <cstdint>

#include "form/controls.h"
#include "form/layout.h"

namespace effects {

// One tick of Timer2: each cell of the winning line flips its visibility, so the line flashes
// once a second. Only visibility changes; the marks stay on the cells' surfaces.
void blink_line(std::array<form::PictureBox, form::layout::kCellCount>& Picture1,
                const std::array<std::uint8_t, 3>& line);

}  // namespace effects

// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>

#include "form/controls.h"

namespace effects {

// The flip-book in the top right corner: frames 0, 1, ... 92, 91, ... 1, 0 and round again,
// a cycle of 185 ticks. Image2 grows with the frame number from its fixed top left corner.
struct Banner {
    std::int16_t frame_no = 0;    // the next frame to show
    std::int16_t frame_back = 0;  // 1 while the frames run downward

    // One tick of Timer3: shows Image1(frame_no) in Image2 and steps to the next frame.
    void tick(form::Image& Image2);
};

}  // namespace effects

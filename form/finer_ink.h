// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <span>

namespace form {

// A picture's ink drawn `scale` times finer each way, for a screen with more pixels than the
// picture has: the same lettering with edges at the screen's own pixels instead of enlarged
// blocks. A fine pixel shows only where the picture pixel that owns it is ink, so pictures
// written pixel by pixel grow as finely as they are written.
struct FinerInk {
    // Fine columns [begin, end) of one fine row, owned by the picture pixel
    // (x / scale + dx, y / scale + dy): the one beneath them, or at a stroke's edge a neighbour.
    struct Run {
        std::uint16_t begin;
        std::uint16_t end;
        std::int8_t dx;
        std::int8_t dy;
    };

    int scale = 1;
    // Fine row y's runs are runs[row_starts[y]] up to runs[row_starts[y + 1]].
    std::span<const std::uint16_t> row_starts;
    std::span<const Run> runs;
};

}  // namespace form

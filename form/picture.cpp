// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/picture.h"

namespace form {

Picture::Picture(int width, int height, Colour ground, Colour ink)
    : width_(width),
      height_(height),
      ground_(ground),
      ink_(ink),
      bits_(static_cast<std::size_t>(bytes_per_row() * height), 0) {}

bool Picture::is_ink(int x, int y) const {
    const auto byte = bits_[static_cast<std::size_t>(y * bytes_per_row() + x / 8)];
    return (byte >> (7 - x % 8)) & 1U;
}

void Picture::set_ink(int x, int y) {
    auto& byte = bits_[static_cast<std::size_t>(y * bytes_per_row() + x / 8)];
    byte = static_cast<std::uint8_t>(byte | (0x80U >> (x % 8)));
}

Picture Picture::drawn_finer(int width, int height) const {
    const FinerInk& fine = *finer_ink_;
    const int fine_width = width_ * fine.scale;
    const int fine_height = height_ * fine.scale;
    // The first new column whose centre, (x + 0.5) * fine_width / width, lies at or right of
    // fine column `column`.
    const auto first_over = [&](int column) {
        return (2 * column * width + fine_width - 1) / (2 * fine_width);
    };
    Picture drawn(width, height, ground_, ink_);
    for (int y = 0; y < height; ++y) {
        const int fine_y = (2 * y + 1) * fine_height / (2 * height);
        for (auto i = fine.row_starts[static_cast<std::size_t>(fine_y)];
             i < fine.row_starts[static_cast<std::size_t>(fine_y) + 1]; ++i) {
            const FinerInk::Run& run = fine.runs[i];
            for (int x = first_over(run.begin); x < first_over(run.end); ++x) {
                const int fine_x = (2 * x + 1) * fine_width / (2 * width);
                if (is_ink(fine_x / fine.scale + run.dx, fine_y / fine.scale + run.dy)) {
                    drawn.set_ink(x, y);
                }
            }
        }
    }
    return drawn;
}

}  // namespace form

// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <vector>

#include "form/colour.h"

namespace form {

// A two-colour bitmap: every pixel is either ground or ink. Stored one bit a pixel, rows
// padded to whole bytes, most significant bit first, so 93 banner frames stay small.
class Picture {
public:
    Picture(int width, int height, Colour ground, Colour ink);

    int width() const { return width_; }
    int height() const { return height_; }
    Colour ground() const { return ground_; }
    Colour ink() const { return ink_; }
    int bytes_per_row() const { return (width_ + 7) / 8; }

    // 0 <= x < width(); 0 <= y < height()
    bool is_ink(int x, int y) const;
    void set_ink(int x, int y);
    int ink_count() const;

    const std::vector<std::uint8_t>& bits() const { return bits_; }

    friend bool operator==(const Picture&, const Picture&) = default;

private:
    int width_;
    int height_;
    Colour ground_;
    Colour ink_;
    std::vector<std::uint8_t> bits_;
};

}  // namespace form

// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "form/colour.h"
#include "form/finer_ink.h"

namespace form {

// A two-colour bitmap: every pixel is either ground or ink. Stored one bit a pixel, rows
// padded to whole bytes, most significant bit first, so 93 banner frames stay small.
class Picture {
public:
    Picture() = default;  // empty, until a picture is assigned
    Picture(int width, int height, Colour ground, Colour ink);

    int width() const { return width_; }
    int height() const { return height_; }
    Colour ground() const { return ground_; }
    Colour ink() const { return ink_; }
    int bytes_per_row() const { return (width_ + 7) / 8; }

    // 0 <= x < width(); 0 <= y < height()
    bool is_ink(int x, int y) const;
    void set_ink(int x, int y);

    const std::vector<std::uint8_t>& bits() const { return bits_; }

    // The same ink drawn finer, for the pictures that have such a drawing; null otherwise.
    const FinerInk* finer_ink() const { return finer_ink_ ? &*finer_ink_ : nullptr; }
    void set_finer_ink(const FinerInk& finer) { finer_ink_ = finer; }
    // The picture stretched to width x height, its ink drawn from the finer ink: each new
    // pixel shows the fine pixel under its centre. Needs finer_ink(); 0 < width, height.
    Picture drawn_finer(int width, int height) const;

private:
    int width_ = 0;
    int height_ = 0;
    Colour ground_ = 0;
    Colour ink_ = 0;
    std::vector<std::uint8_t> bits_;
    std::optional<FinerInk> finer_ink_;
};

}  // namespace form

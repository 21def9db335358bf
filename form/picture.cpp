// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/picture.h"

#include <bit>
#include <numeric>

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

int Picture::ink_count() const {
    return std::accumulate(bits_.begin(), bits_.end(), 0,
                           [](int sum, std::uint8_t byte) { return sum + std::popcount(byte); });
}

}  // namespace form

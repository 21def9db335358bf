// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>

namespace form {

// A 24-bit colour written 0xBBGGRR, as the controls store it.
using Colour = std::uint32_t;

inline constexpr Colour kBlack = 0x000000;
inline constexpr Colour kWhite = 0xFFFFFF;
inline constexpr Colour kBlue = 0xFF0000;
inline constexpr Colour kRed = 0x0000FF;
inline constexpr Colour kSilver = 0xC0C0C0;

constexpr int red_of(Colour c) { return static_cast<int>(c & 0xFF); }
constexpr int green_of(Colour c) { return static_cast<int>((c >> 8) & 0xFF); }
constexpr int blue_of(Colour c) { return static_cast<int>((c >> 16) & 0xFF); }

}  // namespace form

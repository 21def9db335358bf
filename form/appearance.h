// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <algorithm>

#include "form/colour.h"
#include "form/controls.h"
#include "form/layout.h"

// How every backend shows the form: the colours the layout leaves to the runtime, the cells'
// border, the outline's corners and the rounding from twips to pixels.
namespace form::appearance {

// The form is silver, the ground of the banner frames, so the banner sits on it without a
// seam; the cells are teal, on which both a white circle and a black cross show.
inline constexpr Colour kFormBackground = kSilver;
inline constexpr Colour kCellBackground = 0x808000;
inline constexpr Colour kDefaultForeColor = kBlack;
// 5.0:1 on silver, against black's 11.5:1: visibly fainter, still above 4.5:1.
inline constexpr Colour kDisabledText = 0x484848;
// Label1 alone has a ground of its own, inside Shape1's outline: the toss's red caption, large
// text, reads at 4.0:1 on white where it would read at only 2.2:1 on silver. Before the first
// toss the frame stands empty and light, its outline clear on both sides.
inline constexpr Colour kLabel1Background = kWhite;

// A cell's sunken border, layout::kCellBorderPixels wide: the classic client edge, shadow over
// highlight outside, dark shadow over light inside.
struct Bevel {
    Colour outer_top_left, outer_bottom_right, inner_top_left, inner_bottom_right;
};
inline constexpr Bevel kCellBevel{0x808080, 0xFFFFFF, 0x404040, 0xC0C0C0};

// The corners of Shape1's outline, for a line through the middle of the outermost pixels of a
// box of width x height pixels.
constexpr double corner_radius(double width, double height) { return std::min(width, height) / 6; }

// Twips to pixels. Edges are rounded rather than sizes, so controls that touch in twips touch on
// the screen.
constexpr int pixels(int twips) {
    return (twips + layout::kTwipsPerPixel / 2) / layout::kTwipsPerPixel;
}
constexpr Bounds pixel_bounds(const Bounds& twips) {
    const int left = pixels(twips.Left);
    const int top = pixels(twips.Top);
    return {left, top, pixels(twips.Left + twips.Width) - left,
            pixels(twips.Top + twips.Height) - top};
}

}  // namespace form::appearance

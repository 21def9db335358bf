// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QRect>

#include "form/colour.h"
#include "form/controls.h"
#include "form/layout.h"

namespace form::qt {

// Twips to the window's pixels. Edges are rounded rather than sizes, so controls that touch
// in twips touch on the screen.
inline QRect pixel_rect(const Bounds& bounds) {
    const auto px = [](int twips) {
        return (twips + layout::kTwipsPerPixel / 2) / layout::kTwipsPerPixel;
    };
    const int left = px(bounds.Left);
    const int top = px(bounds.Top);
    return {left, top, px(bounds.Left + bounds.Width) - left, px(bounds.Top + bounds.Height) - top};
}

inline QColor to_qcolor(Colour colour) {
    return {red_of(colour), green_of(colour), blue_of(colour)};
}

// The colours that the layout leaves to the runtime. The form is silver, the ground of the
// banner frames, so the banner sits on it without a seam; the cells are teal, on which both a
// white circle and a black cross show.
inline constexpr Colour kFormBackground = kSilver;
inline constexpr Colour kCellBackground = 0x808000;
inline constexpr Colour kDefaultForeColor = kBlack;
// Label1 alone has a ground of its own, inside Shape1's outline: the toss's red caption, large
// text, reads at 4.0:1 on white where it would read at only 2.2:1 on silver. Before the first
// toss the frame stands empty and light, its outline clear on both sides.
inline constexpr Colour kLabel1Background = kWhite;

}  // namespace form::qt

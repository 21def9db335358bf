// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QRect>

#include "form/appearance.h"
#include "form/colour.h"
#include "form/controls.h"

namespace form::qt {

// Twips to the window's pixels, rounded as every backend rounds them.
inline QRect pixel_rect(const Bounds& twips) {
    const Bounds px = appearance::pixel_bounds(twips);
    return {px.Left, px.Top, px.Width, px.Height};
}

inline QColor to_qcolor(Colour colour) {
    return {red_of(colour), green_of(colour), blue_of(colour)};
}

}  // namespace form::qt

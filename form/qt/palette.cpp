// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/qt/palette.h"

#include "form/qt/geometry.h"

namespace form::qt {

namespace {

// 5.0:1 on silver, against black's 11.5:1: visibly fainter, still above 4.5:1.
constexpr Colour kDisabledText = 0x484848;

}  // namespace

QPalette form_palette() {
    const QColor ground = to_qcolor(kFormBackground);
    const QColor text = to_qcolor(kDefaultForeColor);
    // Derives the bevel shades from the face and sets every role in every group, so no role
    // is left to the desktop's palette.
    QPalette palette(ground, ground);
    for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, to_qcolor(kDisabledText));
    }
    palette.setColor(QPalette::Base, to_qcolor(kWhite));
    palette.setColor(QPalette::BrightText, to_qcolor(kWhite));
    return palette;
}

}  // namespace form::qt

// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/qt/palette.h"

#include "form/qt/geometry.h"

namespace form::qt {

QPalette form_palette() {
    const QColor ground = to_qcolor(appearance::kFormBackground);
    // Derives the bevel shades from the face and sets every role in every group, so no role
    // is left to the desktop's palette.
    QPalette palette(ground, ground);
    for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
        palette.setColor(role, to_qcolor(appearance::kDefaultForeColor));
        palette.setColor(QPalette::Disabled, role, to_qcolor(appearance::kDisabledText));
    }
    palette.setColor(QPalette::Base, to_qcolor(kWhite));
    palette.setColor(QPalette::BrightText, to_qcolor(kWhite));
    return palette;
}

}  // namespace form::qt

// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "form/controls.h"

namespace form {

// Draws the marks with the cell's own pen, 100 twips in from its inner edge. Only the cell's
// ScaleWidth is used, for both axes, since cells are square. The fields keep where the last
// mark was drawn.
struct MarkPen {
    static constexpr float kMargin = 100;

    float circle_x = 0;
    float circle_y = 0;
    float cross_near = 0;
    float cross_far = 0;

    // A white circle; the cell's Tag becomes "1".
    void draw_circle(PictureBox& cell);
    // A black cross; the cell's Tag becomes "-1".
    void draw_cross(PictureBox& cell);
};

}  // namespace form

// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/marks.h"

#include "form/text.h"

namespace form {

void MarkPen::draw_circle(PictureBox& cell) {
    const float w = cell.ScaleWidth;
    circle_x = w * 0.5F;
    circle_y = w * 0.5F;
    cell.Circle(circle_x, circle_y, w * 0.5F - kMargin, kWhite);
    cell.Tag = text_of(1);
}

void MarkPen::draw_cross(PictureBox& cell) {
    const float w = cell.ScaleWidth;
    cross_near = kMargin;
    cross_far = w - kMargin;
    cell.Line(cross_near, cross_near, cross_far, cross_far, kBlack);
    cell.Line(cross_near, cross_far, cross_far, cross_near, kBlack);
    cell.Tag = text_of(-1);
}

}  // namespace form

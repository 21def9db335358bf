// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "form/controls.h"
#include "form/web/dom.h"

namespace form::web {

// Draws a cell on its canvas, whose box is the cell's bounds, at `ratio` device pixels to a CSS
// pixel: the sunken border, the ground and the strokes, as the desktop draws them.
void draw_cell(val canvas, const PictureBox& cell, double ratio);

}  // namespace form::web

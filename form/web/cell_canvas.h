// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>

#include "form/controls.h"
#include "form/web/dom.h"

namespace form::web {

// Draws cells on their canvases, whose boxes are the cells' bounds, at `ratio` device pixels to
// a CSS pixel: the sunken border, the ground and the strokes, as the desktop draws them. Border
// and ground are the same for every cell, so they are drawn once for a ratio and copied.
class CellPainter {
public:
    void draw(val canvas, const PictureBox& cell, double ratio);

private:
    std::optional<val> ground_;  // a canvas of its own
    double ground_ratio_ = 0;
};

}  // namespace form::web

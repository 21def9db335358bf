// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/web/cell_canvas.h"

#include <numbers>
#include <type_traits>
#include <variant>

#include "form/appearance.h"
#include "form/layout.h"

namespace form::web {

namespace {

void fill(val& context, Colour colour, double x, double y, double width, double height) {
    context.set("fillStyle", css_colour(colour));
    context.call<void>("fillRect", x, y, width, height);
}

// A ring of one CSS pixel for each shade of the bevel, `inset` pixels in.
void draw_ring(val& context, int size, int inset, Colour top_left, Colour bottom_right) {
    const int span = size - 2 * inset;
    fill(context, top_left, inset, inset, span, 1);
    fill(context, top_left, inset, inset, 1, span);
    fill(context, bottom_right, inset, size - inset - 1, span, 1);
    fill(context, bottom_right, size - inset - 1, inset, 1, span);
}

}  // namespace

void CellPainter::draw(val canvas, const PictureBox& cell, double ratio) {
    const Bounds box = appearance::pixel_bounds(cell.bounds);
    constexpr int kBorder = layout::kCellBorderPixels;
    const int inner = box.Width - 2 * kBorder;
    if (!ground_ || ratio != ground_ratio_) {
        ground_ = create("canvas");
        ground_ratio_ = ratio;
        val ground = prepare_canvas(*ground_, box.Width, box.Height, ratio);
        const auto& bevel = appearance::kCellBevel;
        draw_ring(ground, box.Width, 0, bevel.outer_top_left, bevel.outer_bottom_right);
        draw_ring(ground, box.Width, 1, bevel.inner_top_left, bevel.inner_bottom_right);
        fill(ground, appearance::kCellBackground, kBorder, kBorder, inner, inner);
    }
    val context = prepare_canvas(canvas, box.Width, box.Height, ratio);
    context.call<void>("drawImage", *ground_, 0, 0, box.Width, box.Height);
    if (cell.strokes().empty()) return;

    // The strokes in twips of the inner area, clipped to it, with a pen of DrawWidth pixels and
    // round ends, as GDI draws them.
    context.call<void>("beginPath");
    context.call<void>("rect", kBorder, kBorder, inner, inner);
    context.call<void>("clip");
    context.call<void>("translate", kBorder, kBorder);
    constexpr double kScale = 1.0 / layout::kTwipsPerPixel;
    context.call<void>("scale", kScale, kScale);
    context.set("lineWidth", cell.DrawWidth * layout::kTwipsPerPixel);
    context.set("lineCap", std::string("round"));
    for (const auto& stroke : cell.strokes()) {
        context.call<void>("beginPath");
        std::visit(
            [&](const auto& s) {
                context.set("strokeStyle", css_colour(s.colour));
                if constexpr (std::is_same_v<std::decay_t<decltype(s)>, CircleStroke>) {
                    context.call<void>("arc", s.x, s.y, s.radius, 0, 2 * std::numbers::pi);
                } else {
                    context.call<void>("moveTo", s.x1, s.y1);
                    context.call<void>("lineTo", s.x2, s.y2);
                }
            },
            stroke);
        context.call<void>("stroke");
    }
}

}  // namespace form::web

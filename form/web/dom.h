// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <emscripten/val.h>

#include <string>

#include "form/colour.h"
#include "form/controls.h"

// The few things the page does to its elements, over embind's handles to the page's objects.
namespace form::web {

using emscripten::val;

// "12px".
std::string px(double pixels);

// "#rrggbb", for a colour stored 0xBBGGRR.
std::string css_colour(Colour colour);

// A new element `tag`, with `id` unless it is empty, not yet in the document.
val create(const char* tag, const std::string& id = {});

// The style declarations that place an absolutely positioned element at a rectangle in CSS
// pixels: "position: absolute; left: 32px; ...; ".
std::string placement(const Bounds& pixels);

// Places an element so, with further style declarations ("color: #000000; ..."), in one write
// of its style.
void place(val element, const Bounds& pixels, const std::string& declarations = {});

void set_style(val element, const char* property, const std::string& value);

// Device pixels for `css` CSS pixels, never none: while a page is being resized its viewport may
// for a moment be a pixel or two wide, and a canvas with no pixels cannot be drawn from.
int device_pixels(int css, double ratio);

// A canvas's backing store for a box of `width` x `height` CSS pixels at `ratio` device pixels to
// a CSS pixel, and its context scaled to draw in CSS pixels. Setting the size clears it.
val prepare_canvas(val canvas, int width, int height, double ratio);

}  // namespace form::web

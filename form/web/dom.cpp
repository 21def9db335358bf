// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/web/dom.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace form::web {

std::string px(double pixels) {
    std::string css = std::to_string(pixels);
    css.erase(css.find_last_not_of('0') + 1);  // "12.500000" -> "12.5", "12.000000" -> "12."
    if (css.back() == '.') css.pop_back();
    return css + "px";
}

std::string css_colour(Colour colour) {
    constexpr std::array<char, 16> kDigits{'0', '1', '2', '3', '4', '5', '6', '7',
                                           '8', '9', 'a', 'b', 'c', 'd', 'e', 'f'};
    std::string css = "#";
    for (const int channel : {red_of(colour), green_of(colour), blue_of(colour)}) {
        css += kDigits[static_cast<std::size_t>(channel >> 4)];
        css += kDigits[static_cast<std::size_t>(channel & 0xF)];
    }
    return css;
}

val create(const char* tag, const std::string& id) {
    val element = val::global("document").call<val>("createElement", std::string(tag));
    if (!id.empty()) element.set("id", id);
    return element;
}

void set_style(val element, const char* property, const std::string& value) {
    element["style"].call<void>("setProperty", std::string(property), value);
}

std::string placement(const Bounds& pixels) {
    return "position: absolute; left: " + px(pixels.Left) + "; top: " + px(pixels.Top) +
           "; width: " + px(pixels.Width) + "; height: " + px(pixels.Height) + "; ";
}

void place(val element, const Bounds& pixels, const std::string& declarations) {
    element["style"].set("cssText", placement(pixels) + declarations);
}

int device_pixels(int css, double ratio) {
    return std::max(1, static_cast<int>(std::lround(css * ratio)));
}

val prepare_canvas(val canvas, int width, int height, double ratio) {
    const int device_width = device_pixels(width, ratio);
    const int device_height = device_pixels(height, ratio);
    canvas.set("width", device_width);
    canvas.set("height", device_height);
    val context = canvas.call<val>("getContext", std::string("2d"));
    context.call<void>("setTransform", static_cast<double>(device_width) / width, 0, 0,
                       static_cast<double>(device_height) / height, 0, 0);
    return context;
}

}  // namespace form::web

// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/web/banner_canvas.h"

#include <cstdint>
#include <vector>

#include "form/appearance.h"

namespace form::web {

namespace {

// The picture stretched to width x height: each new pixel shows the picture pixel under its
// centre.
Picture stretched(const Picture& picture, int width, int height) {
    Picture drawn(width, height, picture.ground(), picture.ink());
    for (int y = 0; y < height; ++y) {
        const int from_y = (2 * y + 1) * picture.height() / (2 * height);
        for (int x = 0; x < width; ++x) {
            if (picture.is_ink((2 * x + 1) * picture.width() / (2 * width), from_y))
                drawn.set_ink(x, y);
        }
    }
    return drawn;
}

// The picture at width x height device pixels, on a canvas of its own: a tick copies it whole,
// as a browser copies a bitmap, where writing the pixels in would convert each one.
val prepare(const Picture& picture, int width, int height, double ratio) {
    const Picture drawn = ratio > 1 && picture.finer_ink() != nullptr
                              ? picture.drawn_finer(width, height)
                              : stretched(picture, width, height);
    std::vector<std::uint8_t> rgba(static_cast<std::size_t>(width * height) * 4);
    auto pixel = rgba.begin();
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const Colour colour = drawn.is_ink(x, y) ? drawn.ink() : drawn.ground();
            *pixel++ = static_cast<std::uint8_t>(red_of(colour));
            *pixel++ = static_cast<std::uint8_t>(green_of(colour));
            *pixel++ = static_cast<std::uint8_t>(blue_of(colour));
            *pixel++ = 0xFF;
        }
    }
    val data = val::global("ImageData").new_(width, height);
    data["data"].call<void>("set", val(emscripten::typed_memory_view(rgba.size(), rgba.data())));
    val prepared = val::global("OffscreenCanvas").new_(width, height);
    prepared.call<val>("getContext", std::string("2d")).call<void>("putImageData", data, 0, 0);
    return prepared;
}

}  // namespace

BannerCanvas::BannerCanvas(val canvas)
    : canvas_(std::move(canvas)), context_(canvas_.call<val>("getContext", std::string("2d"))) {}

// A tick costs a new size and one copy of prepared pixels: Left and Top never change, and the
// backing store, resized, is cleared.
void BannerCanvas::show(const Form& form, double ratio) {
    const Image& image = form.Image2;
    const Bounds box = appearance::pixel_bounds(image.bounds());
    if (!placed_) place(canvas_, box);
    placed_ = true;
    set_style(canvas_, "width", px(box.Width));
    set_style(canvas_, "height", px(box.Height));
    const int width = device_pixels(box.Width, ratio);
    const int height = device_pixels(box.Height, ratio);
    canvas_.set("width", width);
    canvas_.set("height", height);
    if (ratio != prepared_ratio_) {
        prepared_ratio_ = ratio;
        prepared_ = {};
    }
    if (!image.Picture->has_value()) return;
    const auto index = static_cast<std::size_t>(**image.Picture);
    auto& prepared = prepared_.at(index);
    if (!prepared) prepared = prepare(form.Image1.at(index), width, height, ratio);
    context_.call<void>("drawImage", *prepared, 0, 0);
}

}  // namespace form::web

// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <optional>

#include "form/form.h"
#include "form/web/dom.h"

namespace form::web {

// Image2 on a canvas: the one of the form's Image1 pictures that it names, stretched to its
// size, or nothing before it names one. Each picture is always shown at the same size, so it is
// prepared once at its device size, the first time it is shown, and again only when the ratio
// of device pixels changes. Above a ratio of 1 a picture with finer ink is drawn from that.
class BannerCanvas {
public:
    explicit BannerCanvas(val canvas);

    // Takes Image2's picture and size from the form, at `ratio` device pixels to a CSS pixel.
    void show(const Form& form, double ratio);

private:
    val canvas_;
    val context_;
    bool placed_ = false;
    double prepared_ratio_ = 0;
    std::array<std::optional<val>, layout::kBannerFrameCount> prepared_;  // OffscreenCanvas
};

}  // namespace form::web

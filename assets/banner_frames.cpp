// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "assets/banner_frames.h"

#include <cstddef>

#include "assets/banner/banner_data.h"
#include "form/colour.h"

namespace assets {

static_assert(banner::kFrameCount == form::layout::kBannerFrameCount);

std::array<form::Picture, form::layout::kBannerFrameCount> make_banner_frames() {
    const auto order = banner::pen_order();
    const auto counts = banner::ink_counts();

    std::array<form::Picture, form::layout::kBannerFrameCount> frames;
    form::Picture page(banner::kWidth, banner::kHeight, form::kSilver, form::kBlack);
    page.set_finer_ink(banner::finer_ink());
    std::size_t written = 0;
    for (std::size_t frame = 0; frame < frames.size(); ++frame) {
        for (; written < counts[frame]; ++written) {
            page.set_ink(order[written] % 256, order[written] / 256);
        }
        frames[frame] = page;
    }
    return frames;
}

}  // namespace assets

// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "effects/banner.h"

namespace effects {

void Banner::tick(const std::array<form::Image, form::layout::kBannerFrameCount>& Image1,
                  form::Image& Image2) {
    Image2.picture = Image1[static_cast<std::size_t>(frame_no)].picture;
    Image2.bounds.Width = frame_no * 22 + 1600;
    Image2.bounds.Height = frame_no * 10 + 700;

    if (frame_back == 0) {
        ++frame_no;
        if (frame_no == form::layout::kBannerFrameCount) {
            frame_back = 1;
            frame_no = form::layout::kBannerFrameCount - 1;
        }
    }
    // Also on the tick that has just turned round, so frame 92 is shown only once.
    if (frame_back == 1) {
        --frame_no;
        if (frame_no == -1) {
            frame_no = 0;
            frame_back = 0;
        }
    }
}

}  // namespace effects

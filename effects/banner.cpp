// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "effects/banner.h"

#include "form/layout.h"

namespace effects {

void Banner::tick(form::Image& Image2) {
    Image2.Picture = frame_no;
    Image2.Width = frame_no * 22 + 1600;
    Image2.Height = frame_no * 10 + 700;

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

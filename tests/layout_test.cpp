// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include "lockstep.h"

namespace {

// 93 frames of 225 x 97 pixels, silver ground and black ink, hidden in controls of 3375 x 1455
// twips: frame 0 blank, each later one its predecessor and 6 to 58 ink pixels more, 2685 at
// the end, inside columns 14 to 216 and rows 33 to 84.
TEST(Layout, BannerFramesWriteTheInscription) {
    const lockstep::Pair pair;
    const auto& frames = pair.form.Image1;
    ASSERT_EQ(frames.size(), 93U);
    for (std::size_t k = 0; k < frames.size(); ++k) {
        const auto& p = *frames[k].picture;
        const auto* last = k > 0 ? frames[k - 1].picture.get() : nullptr;
        const int added = p.ink_count() - (last ? last->ink_count() : 0);
        ASSERT_TRUE(p.width() == 225 && p.height() == 97) << "frame " << k;
        EXPECT_TRUE(p.ground() == 0xC0C0C0 && p.ink() == 0 && !frames[k].Visible &&
                    frames[k].bounds.Width == 3375 && frames[k].bounds.Height == 1455 &&
                    (last ? added >= 6 && added <= 58 : !added))
            << "frame " << k;
        for (int i = 0; i < 225 * 97; ++i) {
            const int x = i % 225, y = i / 225;
            EXPECT_TRUE((!last || !last->is_ink(x, y) || p.is_ink(x, y)) &&
                        (!p.is_ink(x, y) || (x >= 14 && x <= 216 && y >= 33 && y <= 84)));
        }
    }
    EXPECT_EQ(frames.back().picture->ink_count(), 2685);
}

}  // namespace

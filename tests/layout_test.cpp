// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include <sstream>

#include "lockstep.h"

namespace {

// Every control before any event: bounds in twips, TabIndex, font, centring and caption. Its
// ScaleWidth shows in the strokes that lockstep compares.
TEST(Layout, EveryControlAsLaidOut) {
    const lockstep::Pair pair;
    const auto& f = pair.form;
    const auto row = [](const auto& c) {
        std::ostringstream s;
        s << c.bounds.Left << ' ' << c.bounds.Top << ' ' << c.bounds.Width << ' ' << c.bounds.Height
          << ' ' << c.TabIndex << ' ' << c.font.face << ' ' << c.font.weight << ' ' << c.font.points
          << ' ' << c.font.charset;
        if constexpr (requires { c.alignment; })
            s << (c.alignment == form::Alignment::Centre ? " centred" : "");
        return s.str() + ' ' + c.Caption;
    };
    EXPECT_EQ(row(f.Command1), "4440 360 1455 615 12 隶书 700 21.75 134 开始");
    EXPECT_EQ(row(f.Command2), "4440 1560 1455 615 11 隶书 700 21.75 134 退出");
    EXPECT_EQ(row(f.Label1), "4320 2640 2415 855 9 宋体 400 26.25 134 centred ");
    EXPECT_EQ(row(f.Label2), "1560 5040 2415 735 10 宋体 400 26.25 134 centred ");
    EXPECT_EQ(row(f.Label3),
              "4440 3600 5295 2895 13 隶书 700 15.75 134     游戏规则：按“开始”后，随机选择“您先”或"
              "“计算机先”。游戏时，先玩者画“圆”，后完者画“叉”。若出现某一横行或某一竖行或某一"
              "对角线均为圆（或叉），则先玩者（后完者）获胜。若填完所有格后，双方均未出现此情形，"
              "则为和局。结束一局后，可按“开始”继续游戏。    ");
    // The timers, the caption and Image2's first bounds are checked by the window and lockstep.
    EXPECT_TRUE(f.Label3.word_wrap && f.Shape1.bounds == f.Label1.bounds && f.Image2.Stretch &&
                f.Image2.Visible);
    for (int i = 0; i < 9; ++i) {
        const auto& c = f.Picture1.at(i);
        const form::Bounds bounds{480 + 1200 * (i % 3), 480 + 1200 * (i / 3), 1095, 1095};
        EXPECT_TRUE(c.bounds == bounds && c.TabIndex == i && c.DrawWidth == 10) << i;
    }
}

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

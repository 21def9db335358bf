// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "lockstep.h"

namespace {

// The window as laid out, before any event: every control's bounds in twips, focus order,
// font, alignment and caption, and the timers.
TEST(Layout, EveryControlAsTheLayoutGivesIt) {
    const lockstep::Pair pair;
    const auto& f = pair.form;
    EXPECT_EQ(f.Caption, "三连棋局");
    for (int i = 0; i < 9; ++i) {
        const auto& cell = f.Picture1.at(i);
        EXPECT_EQ(cell.bounds,
                  (form::Bounds{480 + 1200 * (i % 3), 480 + 1200 * (i / 3), 1095, 1095}));
        EXPECT_EQ(cell.TabIndex, i);
        EXPECT_EQ(cell.ScaleWidth, 1035);  // inside a border of 2 pixels
        EXPECT_EQ(cell.DrawWidth, 10);
        EXPECT_TRUE(cell.Tag.empty() && cell.Visible && cell.strokes().empty());
    }
    const auto font = [](const form::Font& font) {
        return std::string(font.face) + " " + std::to_string(font.weight) + " " +
               std::to_string(font.points) + " " + std::to_string(font.charset);
    };
    const struct {
        std::string_view name;
        form::Bounds bounds;
        int tab_index;
        std::string font;
        bool centred;
        std::string_view caption;
    } rows[] = {
        {"Command1", {4440, 360, 1455, 615}, 12, "隶书 700 21.750000 134", false, "开始"},
        {"Command2", {4440, 1560, 1455, 615}, 11, "隶书 700 21.750000 134", false, "退出"},
        {"Label1", {4320, 2640, 2415, 855}, 9, "宋体 400 26.250000 134", true, ""},
        {"Label2", {1560, 5040, 2415, 735}, 10, "宋体 400 26.250000 134", true, ""},
        {"Label3",
         {4440, 3600, 5295, 2895},
         13,
         "隶书 700 15.750000 134",
         false,
         "    "
         "游戏规则：按“开始”后，随机选择“您先”或“计算机先”。游戏时，先玩者画“圆”，后完者画“叉”。"
         "若出现某一横行或某一竖行或某一对角线均为圆（或叉），则先玩者（后完者）获胜。若填完所有格"
         "后，"
         "双方均未出现此情形，则为和局。结束一局后，可按“开始”继续游戏。    "},
    };
    for (const auto& row : rows) {
        const auto& button = row.name == "Command1" ? f.Command1 : f.Command2;
        const auto& label = row.name == "Label1"   ? f.Label1
                            : row.name == "Label2" ? f.Label2
                                                   : f.Label3;
        const bool is_button = row.name.starts_with("Command");
        EXPECT_EQ(is_button ? button.bounds : label.bounds, row.bounds) << row.name;
        EXPECT_EQ(is_button ? button.TabIndex : label.TabIndex, row.tab_index) << row.name;
        EXPECT_EQ(font(is_button ? button.font : label.font), row.font) << row.name;
        EXPECT_EQ(is_button ? button.Caption : label.Caption, row.caption) << row.name;
        EXPECT_EQ(!is_button && label.alignment == form::Alignment::Centre, row.centred)
            << row.name;
    }
    EXPECT_TRUE(f.Label3.word_wrap && f.Command1.Enabled && f.Command2.Enabled);
    EXPECT_EQ(f.Shape1.bounds, f.Label1.bounds);
    EXPECT_EQ(f.Image2.bounds, (form::Bounds{6000, 120, 1575, 855}));
    EXPECT_TRUE(f.Image2.Stretch && f.Image2.picture == nullptr);
    EXPECT_EQ((std::array{f.Timer1.Interval, f.Timer2.Interval, f.Timer3.Interval}),
              (std::array{10, 500, 50}));
    EXPECT_EQ((std::array{f.Timer1.Enabled, f.Timer2.Enabled, f.Timer3.Enabled}),
              (std::array{false, false, true}));
}

// 93 frames of 225 x 97 pixels, silver ground and black ink: frame 0 blank, each later one
// its predecessor plus 6 to 58 ink pixels, 2685 at the end, all inside columns 14 to 216 and
// rows 33 to 84.
TEST(Layout, BannerFramesWriteTheInscription) {
    const lockstep::Pair pair;
    const form::Picture* before = nullptr;
    for (const auto& frame : pair.form.Image1) {
        const auto& picture = *frame.picture;
        ASSERT_EQ(picture.width() * 1000 + picture.height(), 225'097);
        EXPECT_EQ(frame.bounds.Width * 10000 + frame.bounds.Height, 3375'1455);
        EXPECT_FALSE(frame.Visible);
        EXPECT_TRUE(picture.ground() == 0xC0C0C0 && picture.ink() == 0);
        const int added = picture.ink_count() - (before ? before->ink_count() : 0);
        EXPECT_TRUE(before ? added >= 6 && added <= 58 : added == 0) << added;
        for (int p = 0; p < 225 * 97; ++p) {
            const int x = p % 225, y = p / 225;
            EXPECT_TRUE(!before || !before->is_ink(x, y) || picture.is_ink(x, y));
            EXPECT_TRUE(!picture.is_ink(x, y) || (x >= 14 && x <= 216 && y >= 33 && y <= 84));
        }
        before = &picture;
    }
    EXPECT_EQ(pair.form.Image1.size(), 93U);
    EXPECT_EQ(before->ink_count(), 2685);
}

}  // namespace

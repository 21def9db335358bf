// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "form/controls.h"

// Where everything stands on Form1, in twips. The window is laid out once; only the banner's
// size changes afterwards.
namespace form::layout {

inline constexpr int kTwipsPerPixel = 15;

inline constexpr int kClientWidth = 9840;
inline constexpr int kClientHeight = 6750;

inline constexpr int kCellCount = 9;
inline constexpr int kCellSize = 1095;
inline constexpr int kCellPitch = 1200;
inline constexpr int kBoardOrigin = 480;
// Each cell has a sunken border of two pixels on every side, inside its 1095 twips.
inline constexpr int kCellBorderPixels = 2;
inline constexpr float kCellScaleWidth = kCellSize - 2 * kCellBorderPixels * kTwipsPerPixel;
inline constexpr int kCellDrawWidth = 10;

constexpr Bounds cell_bounds(int index) {
    return {kBoardOrigin + kCellPitch * (index % 3), kBoardOrigin + kCellPitch * (index / 3),
            kCellSize, kCellSize};
}

inline constexpr Font kButtonFont{"隶书", 700, 21.75};
inline constexpr Font kRulesFont{"隶书", 700, 15.75};
inline constexpr Font kCaptionFont{"宋体", 400, 26.25};

inline constexpr Bounds kCommand1{4440, 360, 1455, 615};
inline constexpr Bounds kCommand2{4440, 1560, 1455, 615};
inline constexpr Bounds kLabel1{4320, 2640, 2415, 855};
inline constexpr Bounds kShape1 = kLabel1;
inline constexpr Bounds kLabel2{1560, 5040, 2415, 735};
inline constexpr Bounds kLabel3{4440, 3600, 5295, 2895};
inline constexpr Bounds kImage2{6000, 120, 1575, 855};

// Focus order: the cells take 0 to 8.
inline constexpr int kCommand2TabIndex = 11;
inline constexpr int kCommand1TabIndex = 12;

inline constexpr int kTossInterval = 10;
inline constexpr int kBlinkInterval = 500;
inline constexpr int kBannerInterval = 50;

inline constexpr int kBannerFrameCount = 93;

}  // namespace form::layout

// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

#include "form/controls.h"
#include "form/layout.h"

// What the window tells assistive tools, beside what it shows: each control's name and what
// it is for. It belongs with the layout, so that a backend shows these texts without knowing
// any of them.
namespace form::speech {

inline constexpr const char* kCommand1Description = "开始新的一局";
inline constexpr const char* kCommand2Description = "退出游戏";
inline constexpr const char* kLabel1Description = "谁先";
inline constexpr const char* kLabel2Description = "结果";
inline constexpr const char* kLabel3Description = "游戏规则";
// Shape1 shows only its outline, around Label1's caption.
inline constexpr const char* kShape1Name = "谁先的边框";
// The banner reads as the words it writes.
inline constexpr const char* kImage2Name = "三连棋局";
// The application is read by the form's Caption, as its window's title reads.
inline constexpr const char* kApplicationName = layout::kFormCaption;

// Label1's name while the toss flickers: the captions it passes through are not the outcome,
// so the outcome is told once, when Timer1 stops, instead of a hundred times a second.
inline constexpr const char* kTossRunning = "正在决定谁先";

// "第2行第3列，圆" for cell 5: its row and column counted from 1, then the mark drawn on it,
// 圆, 叉 or 空. The mark as drawn, not the Tag: after a win every Tag reads "1".
// 0 <= index < layout::kCellCount
std::string cell_name(int index, const PictureBox& cell);

// A caption as it is read out: without the blanks around it.
std::string caption_name(const Label& label);

// Label1's name: kTossRunning while the toss runs, its caption once it has stopped.
std::string label1_name(const Label& label1, bool tossing);

}  // namespace form::speech

// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// Every text the window shows or speaks, in UTF-8. A backend shows these without knowing any
// of them.
namespace form::texts {

inline constexpr const char* kFormCaption = "三连棋局";
inline constexpr const char* kStartCaption = "开始";
inline constexpr const char* kExitCaption = "退出";
inline constexpr const char* kRulesCaption =
    "    游戏规则：按“开始”后，随机选择“您先”或“计算机先”。游戏时，先玩者画“圆”，后完者画“叉”。"
    "若出现某一横行或某一竖行或某一对角线均为圆（或叉），则先玩者（后完者）获胜。若填完所有格后，"
    "双方均未出现此情形，则为和局。结束一局后，可按“开始”继续游戏。    ";

// Label1 while the toss flickers, beginning with kComputerFirst.
inline constexpr const char* kHumanFirst = "您先";
inline constexpr const char* kComputerFirst = "计算机先";

// Label2 at the end of a game.
inline constexpr const char* kHumanWins = "你赢了";
inline constexpr const char* kHumanLoses = "你输了";
inline constexpr const char* kDraw = "和局！";

// What each control is for, as assistive tools read it.
inline constexpr const char* kCommand1Description = "开始新的一局";
inline constexpr const char* kCommand2Description = "退出游戏";
inline constexpr const char* kLabel1Description = "谁先";
inline constexpr const char* kLabel2Description = "结果";
inline constexpr const char* kLabel3Description = "游戏规则";

// The banner reads as the words it writes.
inline constexpr const char* kImage2Name = "三连棋局";

// Label1's name while the toss flickers: the captions it passes through are not the outcome,
// so the outcome is told once, when Timer1 stops, instead of a hundred times a second.
inline constexpr const char* kTossRunning = "正在决定谁先";

// A cell's mark as it is read out.
inline constexpr const char* kCircleName = "圆";
inline constexpr const char* kCrossName = "叉";
inline constexpr const char* kEmptyName = "空";

}  // namespace form::texts

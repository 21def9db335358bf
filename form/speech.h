// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

#include "form/controls.h"

// The names the window gives its controls for assistive tools, where a name is more than a
// fixed text: they follow what the controls show.
namespace form::speech {

// "第2行第3列，圆" for cell 5: its row and column counted from 1, then the mark drawn on it,
// 圆, 叉 or 空. The mark as drawn, not the Tag: after a win every Tag reads "1".
// 0 <= index < layout::kCellCount
std::string cell_name(int index, const PictureBox& cell);

// A caption as it is read out: without the blanks around it.
std::string caption_name(const Label& label);

// Label1's name: texts::kTossRunning while the toss runs, its caption once it has stopped.
std::string label1_name(const Label& label1, bool tossing);

}  // namespace form::speech

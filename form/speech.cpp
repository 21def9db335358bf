// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/speech.h"

#include <algorithm>
#include <string_view>
#include <variant>

namespace form::speech {

namespace {

const char* mark_name(const std::vector<Stroke>& strokes) {
    if (strokes.empty()) return "空";
    const bool circle = std::any_of(strokes.begin(), strokes.end(), [](const Stroke& s) {
        return std::holds_alternative<CircleStroke>(s);
    });
    return circle ? "圆" : "叉";
}

}  // namespace

std::string cell_name(int index, const PictureBox& cell) {
    return "第" + std::to_string(index / 3 + 1) + "行第" + std::to_string(index % 3 + 1) + "列，" +
           mark_name(cell.strokes());
}

std::string caption_name(const Label& label) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::string_view caption = label.Caption;
    const auto first = caption.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return std::string(caption.substr(first, caption.find_last_not_of(kBlanks) - first + 1));
}

std::string label1_name(const Label& label1, bool tossing) {
    return tossing ? std::string(kTossRunning) : caption_name(label1);
}

}  // namespace form::speech

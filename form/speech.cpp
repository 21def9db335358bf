// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/speech.h"

#include <string_view>
#include <variant>

#include "form/texts.h"

namespace form::speech {

namespace {

// A cell holds one circle, two lines of a cross, or nothing.
const char* mark_name(const std::vector<Stroke>& strokes) {
    if (strokes.empty()) return texts::kEmptyName;
    return std::holds_alternative<CircleStroke>(strokes.front()) ? texts::kCircleName
                                                                 : texts::kCrossName;
}

}  // namespace

std::string cell_name(int index, const PictureBox& cell) {
    return "第" + std::to_string(index / 3 + 1) + "行第" + std::to_string(index % 3 + 1) + "列，" +
           mark_name(cell.strokes());
}

std::string caption_name(const Label& label) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::string_view caption = *label.Caption;
    const auto first = caption.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return std::string(caption.substr(first, caption.find_last_not_of(kBlanks) - first + 1));
}

std::string label1_name(const Label& label1, bool tossing) {
    return tossing ? std::string(texts::kTossRunning) : caption_name(label1);
}

}  // namespace form::speech

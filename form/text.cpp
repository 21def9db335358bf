// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/text.h"

#include <charconv>

namespace form {

int numeric_value(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return 0;
    text.remove_prefix(first);
    int value = 0;  // left as it is by text that is no number
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

std::string text_of(int value) { return std::to_string(value); }

}  // namespace form

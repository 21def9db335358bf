// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>

namespace form {

// The numeric value of a text, as the runtime reads it: leading digits with an optional sign.
// A blank or non-numeric text reads as 0, so a cell's blank Tag counts as empty.
int numeric_value(std::string_view text);

// The text of an integer: "0", "1", "-1".
std::string text_of(int value);

}  // namespace form

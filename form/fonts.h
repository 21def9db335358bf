// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <cmath>
#include <string_view>

// The fonts that stand in for the layout's faces where a machine lacks them (隶书 and 宋体 on
// most machines other than Windows): subsets of free fonts that hold every character the form
// shows, built by assets/fonts/make-subsets.sh and carried by every backend.
namespace form::fonts {

struct StandIn {
    std::string_view face;    // UTF-8, as the layout names it
    std::string_view family;  // the subset's own family name
    std::string_view file;    // in assets/fonts/
};

// The first entry also stands in for any face not listed.
inline constexpr std::array<StandIn, 2> kStandIns{{
    {"宋体", "Sanlian Serif", "sanlian-serif.otf"},
    {"隶书", "Sanlian Kai", "sanlian-kai.ttf"},
}};

constexpr const StandIn& stand_in_for(std::string_view face) {
    for (const auto& entry : kStandIns) {
        if (entry.face == face) return entry;
    }
    return kStandIns.front();
}

// A size in points as pixels of the 96 dpi the layout was designed at, whatever the screen's.
inline int pixel_size(double points) { return static_cast<int>(std::lround(points * 96 / 72)); }

}  // namespace form::fonts

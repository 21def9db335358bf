// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/random.h"

#include <chrono>

namespace form {

void ClockRandom::randomize() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch().count() ^
                     std::chrono::system_clock::now().time_since_epoch().count();
    engine_ = std::mt19937(static_cast<std::mt19937::result_type>(now));
}

float ClockRandom::random_next() {
    // 24 random bits fill a float's mantissa exactly, so the result never rounds up to 1.
    return static_cast<float>(engine_() >> 8) * 0x1p-24F;
}

}  // namespace form

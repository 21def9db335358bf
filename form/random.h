// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <random>

namespace form {

// The runtime's random numbers. The program uses ClockRandom; tests supply their own values.
class RandomSource {
public:
    virtual ~RandomSource() = default;
    // Restarts the generator from the clock, so that every run draws a different sequence.
    virtual void randomize() = 0;
    // Evenly spread over [0, 1).
    virtual float random_next() = 0;
};

class ClockRandom final : public RandomSource {
public:
    void randomize() override;
    float random_next() override;

private:
    std::mt19937 engine_;
};

}  // namespace form

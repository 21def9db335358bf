// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "form/form.h"

namespace testing_support {

class NoRandom final : public form::RandomSource {
public:
    void randomize() override {}
    float random_next() override { return 0; }
};

// A form whose event procedures only write down what reached them, so a test sees exactly
// what the window delivered. Start disables itself and Exit unloads, as the game's do.
class RecordingForm final : public form::Form {
public:
    RecordingForm() : form::Form(std::make_unique<NoRandom>()) {}

    std::vector<std::string> events;

private:
    void Form_Load() override { events.emplace_back("Form_Load"); }
    void Command1_Click() override {
        events.emplace_back("Command1_Click");
        Command1.Enabled = false;
    }
    void Command2_Click() override {
        events.emplace_back("Command2_Click");
        Unload();
    }
    void Picture1_Click(int index) override {
        events.push_back("Picture1_Click(" + std::to_string(index) + ")");
    }
    void Timer1_Timer() override { events.emplace_back("Timer1_Timer"); }
    void Timer2_Timer() override { events.emplace_back("Timer2_Timer"); }
    void Timer3_Timer() override { events.emplace_back("Timer3_Timer"); }
};

}  // namespace testing_support

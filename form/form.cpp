// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/form.h"

#include <bitset>
#include <utility>

namespace form {

Form::Form(std::unique_ptr<RandomSource> random) : random_(std::move(random)) {
    for (int i = 0; i < layout::kCellCount; ++i) {
        auto& cell = Picture1[static_cast<std::size_t>(i)];
        cell.bounds = layout::cell_bounds(i);
        cell.ScaleWidth = layout::kCellScaleWidth;
        cell.DrawWidth = layout::kCellDrawWidth;
        cell.TabIndex = i;
        cell.watch(changes_, i);
    }
    const auto watch = [this](Control control, auto&... properties) {
        (properties.watch(changes_, control), ...);
    };
    watch(Control::Command1, Command1.Enabled);
    watch(Control::Label1, Label1.Caption, Label1.ForeColor);
    watch(Control::Label2, Label2.Caption, Label2.ForeColor);
    watch(Control::Shape1, Shape1.BorderColor);
    watch(Control::Timer1, Timer1.Enabled);
    watch(Control::Timer2, Timer2.Enabled);
    watch(Control::Image2, Image2.Picture, Image2.Width, Image2.Height);
}

template <typename... Args>
Changes Form::deliver(void (Form::*procedure)(Args...), Args... args) {
    if (!accepts_events()) return {};
    std::bitset<layout::kCellCount> playable_before;
    for (int i = 0; i < layout::kCellCount; ++i)
        playable_before[static_cast<std::size_t>(i)] = playable(i);
    (this->*procedure)(args...);
    for (int i = 0; i < layout::kCellCount; ++i) {
        if (cell_playable(i) != playable_before[static_cast<std::size_t>(i)])
            changes_.mark(cell_control(i));
    }
    return std::exchange(changes_, {});
}

Changes Form::load() {
    if (loaded_ || unloaded_) return {};
    loaded_ = true;
    return deliver(&Form::Form_Load);
}

Changes Form::click_cell(int index) {
    if (index < 0 || index >= layout::kCellCount) return {};
    return deliver(&Form::Picture1_Click, index);
}

bool Form::cell_playable(int index) const {
    return accepts_events() && index >= 0 && index < layout::kCellCount && playable(index);
}

Changes Form::click(ButtonId button) {
    if (button == ButtonId::Command1)
        return Command1.Enabled ? deliver(&Form::Command1_Click) : Changes();
    return Command2.Enabled ? deliver(&Form::Command2_Click) : Changes();
}

Changes Form::tick(TimerId id) {
    constexpr std::array kProcedures{&Form::Timer1_Timer, &Form::Timer2_Timer, &Form::Timer3_Timer};
    return timer(id).Enabled ? deliver(kProcedures[static_cast<std::size_t>(id)]) : Changes();
}

}  // namespace form

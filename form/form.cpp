// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/form.h"

#include <bitset>
#include <utility>

#include "form/texts.h"

namespace form {

namespace {

CommandButton button(const char* caption, Bounds bounds, int tab_index) {
    CommandButton button;
    button.Caption = caption;
    button.font = layout::kButtonFont;
    button.bounds = bounds;
    button.TabIndex = tab_index;
    return button;
}

// Label1 and Label2: empty until the game writes them.
Label caption_label(Bounds bounds) {
    Label label;
    label.alignment = Alignment::Centre;
    label.font = layout::kCaptionFont;
    label.bounds = bounds;
    return label;
}

}  // namespace

Form::Form(std::unique_ptr<RandomSource> random)
    : Caption(texts::kFormCaption), random_(std::move(random)) {
    for (int i = 0; i < layout::kCellCount; ++i) {
        auto& cell = Picture1[static_cast<std::size_t>(i)];
        cell.bounds = layout::cell_bounds(i);
        cell.ScaleWidth = layout::kCellScaleWidth;
        cell.DrawWidth = layout::kCellDrawWidth;
        cell.TabIndex = i;
        cell.watch(changes_, i);
    }

    Command1 = button(texts::kStartCaption, layout::kCommand1, layout::kCommand1TabIndex);
    Command2 = button(texts::kExitCaption, layout::kCommand2, layout::kCommand2TabIndex);
    Label1 = caption_label(layout::kLabel1);
    Shape1.bounds = layout::kShape1;
    Label2 = caption_label(layout::kLabel2);
    Label3.Caption = texts::kRulesCaption;
    Label3.word_wrap = true;
    Label3.font = layout::kRulesFont;
    Label3.bounds = layout::kLabel3;
    Timer1.Interval = layout::kTossInterval;
    Timer2.Interval = layout::kBlinkInterval;
    Timer3 = {true, layout::kBannerInterval};
    Image2.Left = layout::kImage2.Left;
    Image2.Top = layout::kImage2.Top;
    Image2.Width = layout::kImage2.Width;
    Image2.Height = layout::kImage2.Height;

    Command1.Enabled.watch(changes_, Control::Command1);
    Label1.Caption.watch(changes_, Control::Label1);
    Label1.ForeColor.watch(changes_, Control::Label1);
    Label2.Caption.watch(changes_, Control::Label2);
    Label2.ForeColor.watch(changes_, Control::Label2);
    Shape1.BorderColor.watch(changes_, Control::Shape1);
    Timer1.Enabled.watch(changes_, Control::Timer1);
    Timer2.Enabled.watch(changes_, Control::Timer2);
    Image2.Picture.watch(changes_, Control::Image2);
    Image2.Width.watch(changes_, Control::Image2);
    Image2.Height.watch(changes_, Control::Image2);
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
    if (!timer(id).Enabled) return {};
    switch (id) {
        case TimerId::Timer1:
            return deliver(&Form::Timer1_Timer);
        case TimerId::Timer2:
            return deliver(&Form::Timer2_Timer);
        case TimerId::Timer3:
            break;
    }
    return deliver(&Form::Timer3_Timer);
}

const Timer& Form::timer(TimerId id) const {
    switch (id) {
        case TimerId::Timer1:
            return Timer1;
        case TimerId::Timer2:
            return Timer2;
        case TimerId::Timer3:
            break;
    }
    return Timer3;
}

}  // namespace form

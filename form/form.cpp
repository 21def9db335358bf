// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/form.h"

#include <utility>

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
Label caption_label(Bounds bounds, int tab_index) {
    Label label;
    label.alignment = Alignment::Centre;
    label.font = layout::kCaptionFont;
    label.bounds = bounds;
    label.TabIndex = tab_index;
    return label;
}

}  // namespace

Form::Form(std::unique_ptr<RandomSource> random)
    : Caption(layout::kFormCaption), random_(std::move(random)) {
    for (int i = 0; i < layout::kCellCount; ++i) {
        auto& cell = Picture1[static_cast<std::size_t>(i)];
        cell.bounds = layout::cell_bounds(i);
        cell.ScaleWidth = layout::kCellScaleWidth;
        cell.DrawWidth = layout::kCellDrawWidth;
        cell.TabIndex = i;
    }

    Command1 = button(layout::kStartCaption, layout::kCommand1, layout::kCommand1TabIndex);
    Command2 = button(layout::kExitCaption, layout::kCommand2, layout::kCommand2TabIndex);

    Label1 = caption_label(layout::kLabel1, layout::kLabel1TabIndex);
    Shape1.bounds = layout::kShape1;
    Label2 = caption_label(layout::kLabel2, layout::kLabel2TabIndex);
    Label3.Caption = layout::kRulesCaption;
    Label3.word_wrap = true;
    Label3.font = layout::kRulesFont;
    Label3.bounds = layout::kLabel3;
    Label3.TabIndex = layout::kLabel3TabIndex;

    Timer1 = {false, layout::kTossInterval};
    Timer2 = {false, layout::kBlinkInterval};
    Timer3 = {true, layout::kBannerInterval};

    for (auto& frame : Image1) {
        frame.Visible = false;
        frame.bounds = layout::kImage1;
    }
    Image2.Stretch = true;
    Image2.bounds = layout::kImage2;
}

void Form::load() {
    if (loaded_ || unloaded_) return;
    loaded_ = true;
    Form_Load();
}

void Form::click_cell(int index) {
    if (!accepts_events() || index < 0 || index >= layout::kCellCount) return;
    Picture1_Click(index);
}

bool Form::cell_playable(int index) const {
    return accepts_events() && index >= 0 && index < layout::kCellCount && playable(index);
}

void Form::click(ButtonId button) {
    if (!accepts_events()) return;
    switch (button) {
        case ButtonId::Command1:
            if (Command1.Enabled) Command1_Click();
            break;
        case ButtonId::Command2:
            if (Command2.Enabled) Command2_Click();
            break;
    }
}

void Form::tick(TimerId id) {
    if (!accepts_events() || !timer(id).Enabled) return;
    switch (id) {
        case TimerId::Timer1:
            Timer1_Timer();
            break;
        case TimerId::Timer2:
            Timer2_Timer();
            break;
        case TimerId::Timer3:
            Timer3_Timer();
            break;
    }
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

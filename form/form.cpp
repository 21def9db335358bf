#include "form/form.h"

#include <utility>

namespace form {

Form::Form(std::unique_ptr<RandomSource> random)
    : Caption(layout::kFormCaption), random_(std::move(random)) {
    for (int i = 0; i < layout::kCellCount; ++i) {
        auto& cell = Picture1[static_cast<std::size_t>(i)];
        cell.bounds = layout::cell_bounds(i);
        cell.ScaleWidth = layout::kCellScaleWidth;
        cell.DrawWidth = layout::kCellDrawWidth;
        cell.TabIndex = i;
    }

    Command1 = {layout::kStartCaption, true, layout::kButtonFont, layout::kCommand1,
                layout::kCommand1TabIndex};
    Command2 = {layout::kExitCaption, true, layout::kButtonFont, layout::kCommand2,
                layout::kCommand2TabIndex};

    Label1 = {"", std::nullopt, Alignment::Centre, false, layout::kCaptionFont, layout::kLabel1,
              layout::kLabel1TabIndex};
    Shape1 = {std::nullopt, layout::kShape1};
    Label2 = {"", std::nullopt, Alignment::Centre, false, layout::kCaptionFont, layout::kLabel2,
              layout::kLabel2TabIndex};
    Label3 = {layout::kRulesCaption, std::nullopt, Alignment::Left, true, layout::kRulesFont,
              layout::kLabel3, layout::kLabel3TabIndex};

    Timer1 = {false, layout::kTossInterval};
    Timer2 = {false, layout::kBlinkInterval};
    Timer3 = {true, layout::kBannerInterval};

    for (auto& frame : Image1) frame = {nullptr, false, false, layout::kImage1};
    Image2 = {nullptr, true, true, layout::kImage2};
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

// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <memory>
#include <string>

#include "form/changes.h"
#include "form/controls.h"
#include "form/layout.h"
#include "form/picture.h"
#include "form/random.h"
#include "form/texts.h"

namespace form {

enum class ButtonId { Command1, Command2 };
enum class TimerId { Timer1, Timer2, Timer3 };

// The control that stands for a timer among an event's changes.
constexpr Control timer_control(TimerId id) {
    return static_cast<Control>(static_cast<int>(Control::Timer1) + static_cast<int>(id));
}

// The one window and its controls, built from the layout, and the runtime's side of events:
// whoever drives the form (a backend, or a test) delivers clicks and ticks through the public
// calls below, one at a time, and shows what each returns: the controls it changed.
// A subclass supplies the event procedures it has.
//
//     Form1 form;                   // controls laid out, Timer3 enabled
//     show(Changes::all());         // a backend shows everything once
//     show(form.load());            // Form_Load
//     show(form.click(ButtonId::Command1));
//     show(form.tick(TimerId::Timer1));
class Form {
public:
    explicit Form(std::unique_ptr<RandomSource> random);
    virtual ~Form() = default;

    std::string Caption = texts::kFormCaption;
    std::array<PictureBox, layout::kCellCount> Picture1;
    CommandButton Command1{texts::kStartCaption, true, layout::kButtonFont, layout::kCommand1,
                           layout::kCommand1TabIndex};
    CommandButton Command2{texts::kExitCaption, true, layout::kButtonFont, layout::kCommand2,
                           layout::kCommand2TabIndex};
    Label Label1{{}, {}, Alignment::Centre, false, layout::kCaptionFont, layout::kLabel1};
    Shape Shape1{{}, layout::kShape1};
    Label Label2{{}, {}, Alignment::Centre, false, layout::kCaptionFont, layout::kLabel2};
    Label Label3{std::string(texts::kRulesCaption),
                 {},
                 Alignment::Left,
                 true,
                 layout::kRulesFont,
                 layout::kLabel3};
    Timer Timer1{false, layout::kTossInterval};
    Timer Timer2{false, layout::kBlinkInterval};
    Timer Timer3{true, layout::kBannerInterval};
    // The banner's frames: hidden pictures that Image2 shows one at a time.
    std::array<Picture, layout::kBannerFrameCount> Image1;
    Image Image2{{},
                 layout::kImage2.Left,
                 layout::kImage2.Top,
                 layout::kImage2.Width,
                 layout::kImage2.Height};

    // Delivers Form_Load; only the first call does anything, and nothing else is delivered
    // before it.
    Changes load();
    // A click on Picture1(index); an index outside 0 to 8 is no cell and is ignored.
    Changes click_cell(int index);
    // A disabled button delivers no click.
    Changes click(ButtonId button);
    // A disabled timer delivers no tick.
    Changes tick(TimerId timer);

    // Whether a click on Picture1(index) would play that cell now, so that a backend can tell
    // which cells are open to play. False before load, after Unload and outside 0 to 8. An
    // event that changes it marks the cell.
    bool cell_playable(int index) const;

    // After Unload the form is gone: nothing more is delivered and the program should end.
    bool unloaded() const { return unloaded_; }
    const Timer& timer(TimerId id) const {
        return *std::array{&Timer1, &Timer2, &Timer3}[static_cast<std::size_t>(id)];
    }

protected:
    void Unload() {
        unloaded_ = true;
        changes_.mark(Control::Form);
    }
    void randomize() { random_->randomize(); }
    float random_next() { return random_->random_next(); }

    // The subclass's answer for cell_playable, asked of a loaded form for a cell 0 to 8: whether
    // Picture1_Click(index) would play it. By default every click counts.
    virtual bool playable(int /*index*/) const { return true; }

    // The event procedures. An event without a procedure of the subclass's does nothing.
    virtual void Form_Load() {}
    virtual void Command1_Click() {}
    virtual void Command2_Click() {}
    virtual void Picture1_Click(int /*index*/) {}
    virtual void Timer1_Timer() {}
    virtual void Timer2_Timer() {}
    virtual void Timer3_Timer() {}

private:
    bool accepts_events() const { return loaded_ && !unloaded_; }
    // Runs one event procedure, if events are taken, and takes the marks it made.
    template <typename... Args>
    Changes deliver(void (Form::*procedure)(Args...), Args... args);

    Changes changes_;
    std::unique_ptr<RandomSource> random_;
    bool loaded_ = false;
    bool unloaded_ = false;
};

}  // namespace form

// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <vector>

#include "form/form.h"
#include "form/web/banner_canvas.h"
#include "form/web/cell_canvas.h"
#include "form/web/dom.h"

namespace form::web {

// The form in the page: an element for each control in the document's body, a browser interval
// for each running timer. The controls are laid out once, at construction, in the order of
// their TabIndex, which is the order of keyboard focus; afterwards only Image2's size follows the
// form. Every click and tick is handed to the form, and the page shows the controls the event
// changed, reading their values from the form. When the form unloads, the page empties.
//
//     game::Form1 form;
//     form::web::Page page(form);  // shows every control
//     page.show_changed(form.load());
class Page {
public:
    // form must outlive the page.
    explicit Page(Form& form);
    ~Page();
    Page(const Page&) = delete;
    Page& operator=(const Page&) = delete;

    // Shows the controls in `changes` as the form now has them, and starts or stops the
    // timers among them.
    void show_changed(const Changes& changes);

    // The browser's events, handed to the form.
    void click_cell(int index) { show_changed(form_.click_cell(index)); }
    void click(ButtonId button) { show_changed(form_.click(button)); }
    void tick(TimerId timer) { show_changed(form_.tick(timer)); }
    // The viewport's size or device pixel ratio changed: the form is fitted to it, and its
    // canvases drawn again if their device pixels changed.
    void resized();

    // What a browser event reaches: the page and which of its controls or timers.
    struct Target {
        Page* page;
        int index;
    };

private:
    // Scales the form down to a viewport narrower than it and centres it at a whole device
    // pixel. Whether that changed the device pixels of a CSS pixel of the form.
    bool fit();
    void draw_cell(int index);
    // `element` had the focus before an event: if its control can no longer take it (hidden or
    // disabled), the focus moves on to the next control in order that can.
    void move_focus_from(const val& element);
    bool takes_focus(Control control) const;
    void announce(const std::string& text);
    // Stops the timers and the browser's events.
    void stop();
    void unload();

    Form& form_;
    val body_;
    val root_;
    std::vector<val> cells_;  // the canvases, 0 to 8; their grid cells hold them
    val command1_;
    val command2_;
    val label1_;
    val shape1_;
    val label2_;
    val label3_;
    val status_;
    BannerCanvas image2_;
    CellPainter cell_painter_;
    // Controls that can take the focus, in the order it walks them.
    std::vector<std::pair<Control, val>> focus_order_;
    std::array<Target, layout::kCellCount> cell_targets_{};
    std::array<Target, 2> button_targets_{};
    std::array<Target, 3> timer_targets_{};
    std::array<long, 3> intervals_{};  // 0: not running
    double ratio_ = 0;                 // device pixels to a CSS pixel of the form
};

}  // namespace form::web

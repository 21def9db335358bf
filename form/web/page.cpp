// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/web/page.h"

#include <emscripten/eventloop.h>
#include <emscripten/html5.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "form/appearance.h"
#include "form/fonts.h"
#include "form/speech.h"
#include "form/texts.h"
#include "form/web/cell_canvas.h"

namespace form::web {

namespace {

constexpr std::array<TimerId, 3> kTimerIds{TimerId::Timer1, TimerId::Timer2, TimerId::Timer3};
constexpr std::array<Control, 3> kTimerControls{Control::Timer1, Control::Timer2, Control::Timer3};

void set_attribute(val element, const char* name, const std::string& value) {
    element.call<void>("setAttribute", std::string(name), value);
}

// The face the layout names, then the compiled-in font that stands in for it.
std::string css_font(const Font& font) {
    return std::to_string(font.weight) + " " + std::to_string(fonts::pixel_size(font.points)) +
           "px \"" + font.face + "\", \"" + std::string(fonts::stand_in_for(font.face).family) +
           "\"";
}

// Blanks are kept, as the rules begin and end with four.
val set_up_label(val element, const Label& model, const std::string& declarations = {}) {
    place(element, appearance::pixel_bounds(model.bounds),
          "font: " + css_font(model.font) +
              "; text-align: " + (model.alignment == Alignment::Centre ? "center" : "left") +
              "; white-space: " + (model.word_wrap ? "pre-wrap; " : "pre; ") + declarations);
    return element;
}

void show_label(val element, const Label& model) {
    element.set("textContent", *model.Caption);
    set_style(element, "color",
              css_colour(model.ForeColor->value_or(appearance::kDefaultForeColor)));
}

EM_BOOL on_cell_click(int, const EmscriptenMouseEvent*, void* data) {
    const auto& target = *static_cast<Page::Target*>(data);
    target.page->click_cell(target.index);
    return false;
}

EM_BOOL on_button_click(int, const EmscriptenMouseEvent*, void* data) {
    const auto& target = *static_cast<Page::Target*>(data);
    target.page->click(static_cast<ButtonId>(target.index));
    return false;
}

void on_tick(void* data) {
    const auto& target = *static_cast<Page::Target*>(data);
    target.page->tick(kTimerIds[static_cast<std::size_t>(target.index)]);
}

EM_BOOL on_resize(int, const EmscriptenUiEvent*, void* data) {
    static_cast<Page*>(data)->resized();
    return false;
}

}  // namespace

Page::Page(Form& form)
    : form_(form),
      body_(val::global("document")["body"]),
      root_(create("div", "Form1")),
      command1_(create("button", "Command1")),
      command2_(create("button", "Command2")),
      label1_(create("div", "Label1")),
      shape1_(create("div", "Shape1")),
      label2_(create("div", "Label2")),
      label3_(create("div", "Label3")),
      status_(create("div")),
      image2_element_(create("canvas", "Image2")),
      image2_(image2_element_) {
    val::global("document").set("title", form_.Caption);
    // The stylesheet draws the buttons in the colours named here.
    place(root_, appearance::pixel_bounds({0, 0, layout::kClientWidth, layout::kClientHeight}),
          "background-color: " + css_colour(appearance::kFormBackground) +
              "; --text: " + css_colour(appearance::kDefaultForeColor) +
              "; --disabled-text: " + css_colour(appearance::kDisabledText) +
              "; --light: " + css_colour(appearance::kCellBevel.outer_bottom_right) +
              "; --dark: " + css_colour(appearance::kCellBevel.inner_top_left));

    // The board: a grid of three rows, each cell a canvas that takes the focus and a click, and
    // no key.
    val grid = append(root_, "div");
    set_attribute(grid, "role", "grid");
    val row = val::undefined();
    for (int i = 0; i < layout::kCellCount; ++i) {
        if (i % 3 == 0) {
            row = append(grid, "div");
            set_attribute(row, "role", "row");
        }
        val cell = append(row, "div");
        set_attribute(cell, "role", "gridcell");
        place(cell, appearance::pixel_bounds(form_.Picture1[static_cast<std::size_t>(i)].bounds));
        val canvas = append(cell, "canvas", "Picture1-" + std::to_string(i));
        set_attribute(canvas, "role", "button");
        set_attribute(canvas, "tabindex", "0");
        cells_.push_back(canvas);
        focus_order_.emplace_back(cell_control(i), canvas);
    }

    // Label1 on its own ground, under Shape1's outline, whose line runs through the middle of
    // the outermost pixels, as the desktop draws it.
    const Bounds frame = appearance::pixel_bounds(form_.Shape1.bounds);
    const std::string corners =
        "border-radius: " + px(appearance::corner_radius(frame.Width - 1, frame.Height - 1) + 0.5);
    root_.call<void>("append",
                     set_up_label(label1_, form_.Label1,
                                  "background-color: " + css_colour(appearance::kLabel1Background) +
                                      "; " + corners));
    place(shape1_, frame, "border: 1px solid; " + corners);
    root_.call<void>("append", shape1_);
    root_.call<void>("append", set_up_label(label2_, form_.Label2));
    // The captions are empty until the toss, whose first captions would otherwise show nothing
    // while their face loads.
    for (const Label* label : {&form_.Label1, &form_.Label2}) {
        val::global("document")["fonts"].call<val>("load", css_font(label->font));
    }

    // The buttons, in the order of their TabIndex.
    struct Button {
        const CommandButton* model;
        Control control;
        val* element;
    };
    std::array<Button, 2> buttons{{{&form_.Command1, Control::Command1, &command1_},
                                   {&form_.Command2, Control::Command2, &command2_}}};
    std::sort(buttons.begin(), buttons.end(), [](const Button& a, const Button& b) {
        return a.model->TabIndex < b.model->TabIndex;
    });
    for (const auto& [model, control, element] : buttons) {
        element->set("textContent", model->Caption);
        place(*element, appearance::pixel_bounds(model->bounds), "font: " + css_font(model->font));
        root_.call<void>("append", *element);
        focus_order_.emplace_back(control, *element);
    }
    set_attribute(command1_, "aria-description", texts::kCommand1Description);
    set_attribute(command2_, "aria-description", texts::kCommand2Description);

    root_.call<void>("append", set_up_label(label3_, form_.Label3));
    root_.call<void>("append", image2_element_);
    set_attribute(image2_element_, "aria-hidden", "true");
    // Label1 flickers through the toss, so the outcomes are told here instead, once each.
    set_attribute(status_, "role", "status");
    set_attribute(status_, "class", "status");
    root_.call<void>("append", status_);
    // Everything drawn before the form joins the document, which then lays it out once.
    fit();
    show_changed(Changes::all());
    body_.call<void>("prepend", root_);

    for (int i = 0; i < layout::kCellCount; ++i) {
        cell_targets_[static_cast<std::size_t>(i)] = {this, i};
        emscripten_set_click_callback(("#Picture1-" + std::to_string(i)).c_str(),
                                      &cell_targets_[static_cast<std::size_t>(i)], false,
                                      on_cell_click);
    }
    button_targets_ = {{{this, static_cast<int>(ButtonId::Command1)},
                        {this, static_cast<int>(ButtonId::Command2)}}};
    emscripten_set_click_callback("#Command1", &button_targets_[0], false, on_button_click);
    emscripten_set_click_callback("#Command2", &button_targets_[1], false, on_button_click);
    for (int t = 0; t < 3; ++t) timer_targets_[static_cast<std::size_t>(t)] = {this, t};
    emscripten_set_resize_callback(EMSCRIPTEN_EVENT_TARGET_WINDOW, this, false, on_resize);
}

Page::~Page() { stop(); }

void Page::stop() {
    for (long& interval : intervals_) {
        if (interval != 0) emscripten_clear_interval(interval);
        interval = 0;
    }
    emscripten_html5_remove_all_event_listeners();
}

void Page::show_changed(const Changes& changes) {
    // Only cells and buttons can lose the focus; a banner tick touches neither.
    bool focus_may_move = changes[Control::Command1] || changes[Control::Command2];
    for (int i = 0; i < layout::kCellCount; ++i) focus_may_move = focus_may_move || changes.cell(i);
    const val focused =
        focus_may_move ? val::global("document")["activeElement"] : val::undefined();
    for (int i = 0; i < layout::kCellCount; ++i) {
        if (!changes.cell(i)) continue;
        const PictureBox& model = form_.Picture1[static_cast<std::size_t>(i)];
        val& canvas = cells_[static_cast<std::size_t>(i)];
        set_style(canvas["parentElement"], "visibility", model.Visible ? "visible" : "hidden");
        draw_cell(i);
        set_attribute(canvas, "aria-label", speech::cell_name(i, model));
        set_attribute(canvas, "aria-disabled", form_.cell_playable(i) ? "false" : "true");
    }
    if (changes[Control::Command1]) command1_.set("disabled", !form_.Command1.Enabled);
    if (changes[Control::Command2]) command2_.set("disabled", !form_.Command2.Enabled);
    if (changes[Control::Label1]) show_label(label1_, form_.Label1);
    // The toss's outcome, once Timer1 has stopped.
    if (changes[Control::Timer1] && !form_.Timer1.Enabled) {
        announce(speech::caption_name(form_.Label1));
    }
    if (changes[Control::Label2]) {
        show_label(label2_, form_.Label2);
        announce(speech::caption_name(form_.Label2));
    }
    if (changes[Control::Label3]) show_label(label3_, form_.Label3);
    if (changes[Control::Shape1]) {
        set_style(shape1_, "border-color",
                  css_colour(form_.Shape1.BorderColor->value_or(appearance::kDefaultForeColor)));
    }
    if (changes[Control::Image2]) image2_.show(form_, ratio_);
    for (std::size_t t = 0; t < kTimerIds.size(); ++t) {
        const Timer& timer = form_.timer(kTimerIds[t]);
        long& interval = intervals_[t];
        if (!changes[kTimerControls[t]] || timer.Enabled == (interval != 0)) continue;
        if (timer.Enabled) {
            interval = emscripten_set_interval(on_tick, timer.Interval, &timer_targets_[t]);
        } else {
            emscripten_clear_interval(interval);
            interval = 0;
        }
    }
    move_focus_from(focused);
    if (changes[Control::Form] && form_.unloaded()) unload();
}

void Page::draw_cell(int index) {
    web::draw_cell(cells_[static_cast<std::size_t>(index)],
                   form_.Picture1[static_cast<std::size_t>(index)], ratio_);
}

bool Page::fit() {
    const val window = val::global("window");
    const val viewport = val::global("document")["documentElement"];
    const double width = viewport["clientWidth"].as<double>();
    const double height = viewport["clientHeight"].as<double>();
    const double device_ratio = window["devicePixelRatio"].as<double>();
    if (width <= 0) return false;  // no viewport at all, for a moment of a screenshot
    const Bounds client =
        appearance::pixel_bounds({0, 0, layout::kClientWidth, layout::kClientHeight});
    // Uniformly, as a screen's scale would: the layout stays as it is.
    const double scale = std::min(1.0, width / client.Width);
    const auto whole_device_pixel = [&](double css) {
        return std::max(0.0, std::floor(css * device_ratio) / device_ratio);
    };
    set_style(root_, "left", px(whole_device_pixel((width - client.Width * scale) / 2)));
    set_style(root_, "top", px(whole_device_pixel((height - client.Height * scale) / 2)));
    set_style(root_, "transform", scale < 1 ? "scale(" + std::to_string(scale) + ")" : "none");
    const bool changed = device_ratio * scale != ratio_;
    ratio_ = device_ratio * scale;
    return changed;
}

void Page::resized() {
    if (!fit()) return;
    for (int i = 0; i < layout::kCellCount; ++i) draw_cell(i);
    image2_.show(form_, ratio_);
}

bool Page::takes_focus(Control control) const {
    if (control == Control::Command1) return form_.Command1.Enabled;
    if (control == Control::Command2) return form_.Command2.Enabled;
    return form_.Picture1[static_cast<std::size_t>(control)].Visible;
}

// As on the desktop: the focus moves on to the next control in its order that can take it.
void Page::move_focus_from(const val& element) {
    const auto from =
        std::find_if(focus_order_.begin(), focus_order_.end(),
                     [&](const auto& entry) { return entry.second.strictlyEquals(element); });
    if (from == focus_order_.end() || takes_focus(from->first)) return;
    const auto count = static_cast<std::ptrdiff_t>(focus_order_.size());
    for (std::ptrdiff_t step = 1; step < count; ++step) {
        const auto& [control, next] =
            focus_order_[static_cast<std::size_t>((from - focus_order_.begin() + step) % count)];
        if (takes_focus(control)) return next.call<void>("focus");
    }
}

void Page::announce(const std::string& text) {
    if (!text.empty()) status_.set("textContent", text);
}

// A page may not close its tab: the form goes, and the page stays empty but for its title.
void Page::unload() {
    stop();
    body_.call<void>("replaceChildren");
}

}  // namespace form::web

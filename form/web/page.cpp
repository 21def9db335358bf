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

namespace form::web {

namespace {

void set_attribute(val element, const char* name, const std::string& value) {
    element.call<void>("setAttribute", std::string(name), value);
}

// The face the layout names, then the compiled-in font that stands in for it.
std::string css_font(const Font& font) {
    return std::to_string(font.weight) + " " + std::to_string(fonts::pixel_size(font.points)) +
           "px '" + font.face + "', '" + std::string(fonts::stand_in_for(font.face).family) + "'";
}

// An element as markup, placed at its pixels.
std::string element(const std::string& tag, const std::string& attributes, const Bounds& twips,
                    const std::string& style = {}, const std::string& content = {}) {
    return "<" + tag + " " + attributes + " style=\"" + placement(appearance::pixel_bounds(twips)) +
           style + "\">" + content + "</" + tag + ">";
}

// Blanks are kept, as the rules begin and end with four. Described as on the desktop.
std::string label(const char* id, const Label& model, const char* description,
                  const std::string& style = {}) {
    return element("div", "id=\"" + std::string(id) + "\" aria-description=\"" + description + "\"",
                   model.bounds,
                   "font: " + css_font(model.font) + "; text-align: " +
                       (model.alignment == Alignment::Centre ? "center" : "left") +
                       "; white-space: " + (model.word_wrap ? "pre-wrap; " : "pre; ") + style);
}

struct Button {
    const CommandButton* model;
    Control control;
    const char* id;
    const char* description;
};

// The buttons in the order of their TabIndex.
std::array<Button, 2> buttons(const Form& form) {
    std::array<Button, 2> buttons{{
        {&form.Command1, Control::Command1, "Command1", texts::kCommand1Description},
        {&form.Command2, Control::Command2, "Command2", texts::kCommand2Description},
    }};
    std::sort(buttons.begin(), buttons.end(), [](const Button& a, const Button& b) {
        return a.model->TabIndex < b.model->TabIndex;
    });
    return buttons;
}

// The form's element, with every control in it as markup, which the browser builds at once, in
// the order of TabIndex: the cells, a grid of three rows of canvases that take the focus and a
// click, and no key; Label1 on its own ground under Shape1's outline; the buttons; the banner;
// and the status region that tells what Label1's flicker cannot.
val form_element(const Form& form) {
    std::string html = "<div role=\"grid\">";
    for (int i = 0; i < layout::kCellCount; ++i) {
        if (i % 3 == 0) html += i == 0 ? "<div role=\"row\">" : "</div><div role=\"row\">";
        html += element("div", "role=\"gridcell\"",
                        form.Picture1[static_cast<std::size_t>(i)].bounds, {},
                        "<canvas id=\"Picture1-" + std::to_string(i) +
                            "\" role=\"button\" tabindex=\"0\"></canvas>");
    }
    html += "</div></div>";
    // The outline runs through the middle of the outermost pixels, as the desktop draws it.
    const Bounds frame = appearance::pixel_bounds(form.Shape1.bounds);
    const std::string corners =
        "border-radius: " + px(appearance::corner_radius(frame.Width - 1, frame.Height - 1) + 0.5);
    html +=
        label("Label1", form.Label1, texts::kLabel1Description,
              "background-color: " + css_colour(appearance::kLabel1Background) + "; " + corners);
    html += element("div", "id=\"Shape1\"", form.Shape1.bounds, "border: 1px solid; " + corners);
    html += label("Label2", form.Label2, texts::kLabel2Description);
    for (const Button& button : buttons(form)) {
        html += element(
            "button",
            "id=\"" + std::string(button.id) + "\" aria-description=\"" + button.description + "\"",
            button.model->bounds, "font: " + css_font(button.model->font));
    }
    html += label("Label3", form.Label3, texts::kLabel3Description);
    html += "<canvas id=\"Image2\" aria-hidden=\"true\"></canvas>";
    html += "<div role=\"status\" class=\"status\"></div>";

    val root = create("div", "Form1");
    // The stylesheet draws the buttons in the colours named here.
    place(root, appearance::pixel_bounds({0, 0, layout::kClientWidth, layout::kClientHeight}),
          "background-color: " + css_colour(appearance::kFormBackground) +
              "; --text: " + css_colour(appearance::kDefaultForeColor) +
              "; --disabled-text: " + css_colour(appearance::kDisabledText) +
              "; --light: " + css_colour(appearance::kCellBevel.outer_bottom_right) +
              "; --dark: " + css_colour(appearance::kCellBevel.inner_top_left));
    root.set("innerHTML", html);
    return root;
}

val find(const val& root, const std::string& selector) {
    return root.call<val>("querySelector", selector);
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
    target.page->tick(static_cast<TimerId>(target.index));
}

EM_BOOL on_resize(int, const EmscriptenUiEvent*, void* data) {
    static_cast<Page*>(data)->resized();
    return false;
}

}  // namespace

Page::Page(Form& form)
    : form_(form),
      body_(val::global("document")["body"]),
      root_(form_element(form)),
      command1_(find(root_, "#Command1")),
      command2_(find(root_, "#Command2")),
      label1_(find(root_, "#Label1")),
      shape1_(find(root_, "#Shape1")),
      label2_(find(root_, "#Label2")),
      label3_(find(root_, "#Label3")),
      status_(find(root_, "[role=status]")),
      image2_(find(root_, "#Image2")) {
    val::global("document").set("title", form_.Caption);
    for (int i = 0; i < layout::kCellCount; ++i) {
        cells_.push_back(find(root_, "#Picture1-" + std::to_string(i)));
        focus_order_.emplace_back(cell_control(i), cells_.back());
    }
    for (const Button& button : buttons(form_)) {
        focus_order_.emplace_back(button.control,
                                  button.control == Control::Command1 ? command1_ : command2_);
    }
    // The captions are empty until the toss, whose first captions would otherwise show nothing
    // while their face loads.
    for (const Label* label : {&form_.Label1, &form_.Label2}) {
        val::global("document")["fonts"].call<val>("load", css_font(label->font));
    }
    command1_.set("textContent", form_.Command1.Caption);
    command2_.set("textContent", form_.Command2.Caption);
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
    for (std::size_t t = 0; t < intervals_.size(); ++t) {
        const auto id = static_cast<TimerId>(t);
        const Timer& timer = form_.timer(id);
        long& interval = intervals_[t];
        if (!changes[timer_control(id)] || timer.Enabled == (interval != 0)) continue;
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
    cell_painter_.draw(cells_[static_cast<std::size_t>(index)],
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

// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "game/form1.h"
#include "game_model.h"

// Form1 and the model of its rules, given the same events and compared after each one.
namespace lockstep {

// The value that the test plans for the next draw; counts the seeds, and the draws that it did
// not plan.
struct Planned final : form::RandomSource {
    std::optional<float> value;
    int seeds = 0, unplanned = 0;
    void randomize() override { ++seeds; }
    float random_next() override {
        return value ? *std::exchange(value, std::nullopt) : (++unplanned, 0.0F);
    }
};

enum class Kind { Start, Click, Tick1, Tick2, Tick3, Exit };

struct Event {
    Kind kind;
    int cell = 0;
    float random = 0;  // the value drawn, if the event draws one
};

// What of the form differs from the model: a cell, or a group of properties and fields.
inline std::string differs(const game::Form1& f, const model::Game& m, const Planned& random) {
    using std::tuple;
    using Strokes = std::vector<form::Stroke>;  // the drawing rules on a cell of 1035 twips
    const Strokes circle{form::CircleStroke{517.5F, 517.5F, 417.5F, 0xFFFFFF}},
        cross{form::LineStroke{100, 100, 935, 935, 0}, form::LineStroke{100, 935, 935, 100, 0}};
    for (std::size_t i = 0; i < 9; ++i) {
        const Strokes drawn = m.drawn[i] == 1 ? circle : m.drawn[i] == -1 ? cross : Strokes{};
        const auto& c = f.Picture1[i];
        if (tuple(c.Tag, *c.Visible, c.strokes()) != tuple(m.tag[i], m.visible[i], drawn))
            return "cell " + std::to_string(i);
    }
    if (tuple(*f.Label1.Caption, *f.Label1.ForeColor, *f.Shape1.BorderColor, *f.Timer1.Enabled,
              f.toss.toss_tick, f.toss_limit, *f.Label2.Caption, *f.Label2.ForeColor,
              *f.Command1.Enabled, *f.Timer2.Enabled, f.move_no, f.player_turn,
              f.game_over) != tuple(m.label1, m.label1_colour, m.shape1_colour, m.timer1,
                                    m.toss_tick, m.toss_limit, m.label2, m.label2_colour,
                                    m.command1, m.timer2, m.move_no, m.player_turn, m.game_over))
        return "captions, colours, Start, timers or the turn";
    const auto& p = f.mark_pen;
    if (tuple(p.circle_x, p.circle_y, p.cross_near, p.cross_far, f.win_a, f.win_b, f.win_c,
              f.banner.frame_no, f.banner.frame_back, *f.Image2.Width, *f.Image2.Height,
              f.Image2.Picture->value_or(-1)) !=
        tuple(m.circle_x, m.circle_x, m.cross_near, m.cross_far, m.win[0], m.win[1], m.win[2],
              m.frame_no, m.frame_back, m.banner_width, m.banner_height, m.shown_frame))
        return "the mark's coordinates, the winning line or the banner";
    if (tuple(f.unloaded(), *f.Command2.Enabled, *f.Timer3.Enabled, !random.value, random.unplanned,
              random.seeds) != tuple(m.unloaded, 1, 1, m.drew, 0, 1))
        return "Exit, or the random draws and randomize";
    return {};
}

struct Pair {
    explicit Pair(std::unique_ptr<Planned> p = std::make_unique<Planned>())
        : random(*p), form(std::move(p)) {
        form.load();
        form.load();  // the runtime delivers the load event once
    }
    Planned& random;
    game::Form1 form;
    model::Game model;

    // Delivers the event to both; what differs after it, with the event.
    std::string step(const Event& e) {
        random.value = e.random;
        model.drew = false;
        if (e.kind == Kind::Start) form.click(form::ButtonId::Command1), model.start(e.random);
        if (e.kind == Kind::Click) form.click_cell(e.cell), model.click(e.cell, e.random);
        if (e.kind == Kind::Tick1) form.tick(form::TimerId::Timer1), model.tick1();
        if (e.kind == Kind::Tick2) form.tick(form::TimerId::Timer2), model.tick2();
        if (e.kind == Kind::Tick3) form.tick(form::TimerId::Timer3), model.tick3();
        if (e.kind == Kind::Exit) form.click(form::ButtonId::Command2), model.unloaded = true;
        const auto fault = differs(form, model, random);
        return fault.empty() ? fault
                             : fault + " after event " + std::to_string(int(e.kind)) + " on cell " +
                                   std::to_string(e.cell) + ", random " + std::to_string(e.random);
    }
};

}  // namespace lockstep

// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "game/form1.h"
#include "game_model.h"

// Form1 and the model of its rules, fed the same events and compared after each one.
namespace lockstep {

// Random values as the test plans them, and a count of the seeds and of unplanned draws.
struct Draws {
    std::deque<float> values;
    int seeds = 0, unplanned = 0;
};
struct Planned final : form::RandomSource {
    explicit Planned(Draws& d) : draws(d) {}
    void randomize() override { ++draws.seeds; }
    float random_next() override {
        if (draws.values.empty()) return static_cast<float>(++draws.unplanned) * 0;
        const float value = draws.values.front();
        draws.values.pop_front();
        return value;
    }
    Draws& draws;
};

enum class Kind { Start, Click, Tick1, Tick2, Tick3, Exit };

struct Event {
    Kind kind;
    int cell = 0;
    float random = 0;  // the value drawn, if the event draws one
};

// The first property or field in which the form differs from the model, or an empty text.
#define SAME(a, b) \
    if (!((a) == (b))) return std::string(#a)
inline std::string differs(const game::Form1& f, const model::Game& m, const Draws& random) {
    for (std::size_t i = 0; i < 9; ++i) {
        const auto& cell = f.Picture1[i];
        std::vector<form::Stroke> strokes;  // a cell's surface as the drawing rules give it
        if (m.drawn[i] == 1)
            strokes.emplace_back(form::CircleStroke{517.5F, 517.5F, 417.5F, 0xFFFFFF});
        if (m.drawn[i] == -1) {
            strokes.emplace_back(form::LineStroke{100, 100, 935, 935, 0});
            strokes.emplace_back(form::LineStroke{100, 935, 935, 100, 0});
        }
        SAME(cell.Tag, m.tag[i]) + " of cell " + std::to_string(i);
        SAME(cell.Visible, m.visible[i]) + " of cell " + std::to_string(i);
        SAME(cell.strokes(), strokes) + " of cell " + std::to_string(i);
    }
    SAME(f.Label1.Caption, m.label1);
    SAME(f.Label1.ForeColor, m.label1_colour);
    SAME(f.Shape1.BorderColor, m.shape1_colour);
    SAME(f.Label2.Caption, m.label2);
    SAME(f.Label2.ForeColor, m.label2_colour);
    SAME(f.Command1.Enabled, m.command1);
    SAME(f.Command2.Enabled, true);
    SAME(f.Timer1.Enabled, m.timer1);
    SAME(f.Timer2.Enabled, m.timer2);
    SAME(f.Timer3.Enabled, true);
    SAME(f.unloaded(), m.unloaded);
    SAME(f.move_no, m.move_no);
    SAME(f.player_turn, m.player_turn);
    SAME(f.mark_pen.circle_x, m.circle_x);
    SAME(f.mark_pen.circle_y, m.circle_y);
    SAME(f.mark_pen.cross_near, m.cross_near);
    SAME(f.mark_pen.cross_far, m.cross_far);
    SAME(f.toss.toss_tick, m.toss_tick);
    SAME(f.toss_limit, m.toss_limit);
    SAME(f.game_over, m.game_over);
    SAME(f.win_a, m.win[0]);
    SAME(f.win_b, m.win[1]);
    SAME(f.win_c, m.win[2]);
    SAME(f.banner.frame_no, m.frame_no);
    SAME(f.banner.frame_back, m.frame_back);
    SAME(f.Image2.picture, m.shown_frame < 0 ? nullptr : f.Image1.at(m.shown_frame).picture);
    SAME(f.Image2.bounds, (form::Bounds{6000, 120, m.banner_width, m.banner_height}));
    SAME(random.values.empty(), m.drew);  // drew exactly when the rules draw
    SAME(random.unplanned, 0);
    SAME(random.seeds, 1);
    return {};
}
#undef SAME

struct Pair {
    Draws draws;
    game::Form1 form{std::make_unique<Planned>(draws)};
    model::Game model;
    Pair() {
        form.load();
        form.load();  // the runtime delivers the load event once
    }

    // Delivers the event to both; returns what differs after it, with the event.
    std::string step(const Event& e) {
        draws.values.assign(1, e.random);
        model.drew = false;
        switch (e.kind) {
            case Kind::Start:
                form.click(form::ButtonId::Command1), model.start(e.random);
                break;
            case Kind::Click:
                form.click_cell(e.cell), model.click(e.cell, e.random);
                break;
            case Kind::Tick1:
                form.tick(form::TimerId::Timer1), model.tick1();
                break;
            case Kind::Tick2:
                form.tick(form::TimerId::Timer2), model.tick2();
                break;
            case Kind::Tick3:
                form.tick(form::TimerId::Timer3), model.tick3();
                break;
            case Kind::Exit:
                form.click(form::ButtonId::Command2), model.exit();
                break;
        }
        const auto fault = differs(form, model, draws);
        if (fault.empty()) return fault;
        std::string board;
        for (const auto& tag : model.tag) board += tag + " ";
        return fault + " after event " + std::to_string(static_cast<int>(e.kind)) + " cell " +
               std::to_string(e.cell) + " random " + std::to_string(e.random) + "; tags " + board;
    }
};

}  // namespace lockstep

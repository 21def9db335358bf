// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

// The game as its rules are written, in their own texts and numbers, on plain values: every
// control property and field that an event can change. Apart from game/ and form/, so that a
// slip there shows as a difference from this.
namespace model {

using Board = std::array<int, 9>;  // 1 a circle, -1 a cross, 0 empty; cells row by row

// In testing order.
inline constexpr std::array<std::array<int, 3>, 8> kLines{
    {{0, 1, 2}, {0, 3, 6}, {0, 4, 8}, {1, 4, 7}, {2, 4, 6}, {3, 4, 5}, {2, 5, 8}, {6, 7, 8}}};

// The mark of a completed line, or 0.
inline int line_owner(const Board& b) {
    for (const auto& [x, y, z] : kLines)
        if (b[x] != 0 && b[x] == b[y] && b[x] == b[z]) return b[x];
    return 0;
}

// The computer's cell for its mark `own`: its own lowest line, else the highest block, else
// the highest empty cell, the centre left out; on its first move the centre, or a corner by
// the quarter of the random value.
inline int computer_cell(Board b, int move_no, int own, float random) {
    if (move_no <= 2 && b[4] == 0) return 4;
    if (move_no <= 2) return random < 0.25F ? 0 : random < 0.5F ? 2 : random < 0.75F ? 8 : 6;
    int sel = 0, blocks = -1;
    for (int i = 0; i < 9; ++i) sel = b.at(i) == 0 ? i : sel;
    for (const int i : {0, 1, 2, 3, 5, 6, 7, 8}) {
        if (b.at(i) != 0) continue;
        b.at(i) = own;
        if (line_owner(b) == own) return i;
        b.at(i) = -own;
        blocks = line_owner(b) == -own ? i : blocks;
        b.at(i) = 0;
    }
    return blocks < 0 ? sel : blocks;
}

struct Game {
    std::array<std::string, 9> tag{};  // blank until the first Start
    Board drawn{};                     // the mark drawn on each cell
    std::array<bool, 9> visible{1, 1, 1, 1, 1, 1, 1, 1, 1};
    std::string label1, label2;
    std::optional<std::uint32_t> label1_colour, label2_colour, shape1_colour;  // 0xBBGGRR
    bool command1 = true, timer1 = false, timer2 = false, unloaded = false, player_turn = false;
    int move_no = 0, toss_tick = 0, toss_limit = 0, frame_no = 0, frame_back = 0;
    bool game_over = false, drew = false;  // drew: an event took its random value
    std::array<int, 3> win{};
    float circle_x = 0, cross_near = 0, cross_far = 0;
    int shown_frame = -1, banner_width = 1575, banner_height = 855;

    Board marks() const {
        Board b;
        for (std::size_t i = 0; i < 9; ++i) b[i] = tag[i] == "1" ? 1 : tag[i] == "-1" ? -1 : 0;
        return b;
    }

    // The events, each given the random value that it would draw.
    void start(float random) {
        if (unloaded || !command1) return;
        tag.fill("0"), drawn.fill(0), visible.fill(true), label2.clear();
        timer2 = game_over = command1 = false, timer1 = drew = true, move_no = 1, toss_tick = 0;
        toss_limit = 20 + static_cast<int>(static_cast<double>(random) * 10);
        player_turn = toss_limit % 2 == 0;
    }
    void click(int cell, float random) {
        if (unloaded || cell < 0 || cell > 8 || !player_turn || marks().at(cell) != 0) return;
        player_turn = false;
        draw_ox(cell);
        if (move_no <= 9 && !game_over) computer_moves(random);
    }
    void tick1() {
        if (unloaded || !timer1) return;
        shape1_colour = 0xFF0000, label1_colour = 0x0000FF;
        label1 = ++toss_tick % 2 == 0 ? "您先" : "计算机先";
        if (toss_tick == toss_limit && toss_limit % 2 == 1) computer_moves(0);
        timer1 = toss_tick != toss_limit;
    }
    void tick2() {
        for (const int cell : win) visible.at(cell) ^= timer2 && !unloaded;
    }
    void tick3() {
        if (unloaded) return;
        shown_frame = frame_no;
        banner_width = frame_no * 22 + 1600, banner_height = frame_no * 10 + 700;
        if (frame_back == 0 && ++frame_no == 93) frame_back = 1, frame_no = 92;
        if (frame_back == 1 && --frame_no == -1) frame_back = 0, frame_no = 0;
    }

private:
    void draw_ox(int cell) {
        const bool circle = move_no % 2 == 1;
        drawn.at(cell) = circle ? 1 : -1;
        tag.at(cell) = circle ? "1" : "-1";
        (circle ? circle_x : cross_near) = circle ? 1035 / 2.0F : 100;  // ScaleWidth 1035
        cross_far = circle ? cross_far : 1035 - 100;
        const Board b = marks();
        for (const auto& [x, y, z] : kLines) {
            if (b[x] == 0 || b[x] != b[y] || b[x] != b[z]) continue;
            win = {x, y, z};  // a later line replaces an earlier one
            timer2 = game_over = command1 = true;
            label2 = (toss_limit % 2 == 0) == circle ? "你赢了" : "你输了";
        }
        if (game_over) tag.fill("1");
        if (move_no++ >= 9 && !game_over)
            label2_colour = 0xFF0000, label2 = "和局！", command1 = true;
    }
    void computer_moves(float random) {
        drew = move_no <= 2 && marks()[4] != 0;
        draw_ox(computer_cell(marks(), move_no, toss_limit % 2 == 1 ? 1 : -1, random));
        player_turn = true;
    }
};

}  // namespace model

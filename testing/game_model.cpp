// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "game_model.h"

namespace model {

namespace {

// In testing order.
constexpr std::array<std::array<int, 3>, 8> kLines{
    {{0, 1, 2}, {0, 3, 6}, {0, 4, 8}, {1, 4, 7}, {2, 4, 6}, {3, 4, 5}, {2, 5, 8}, {6, 7, 8}}};
constexpr float kScaleWidth = 1035;  // a cell of 1095 twips inside a border of 2 pixels

int value_of(const std::string& tag) { return tag == "1" ? 1 : tag == "-1" ? -1 : 0; }

bool completes(Board board, int cell, int mark) {
    board[static_cast<std::size_t>(cell)] = mark;
    return line_owner(board) == mark;
}

}  // namespace

int line_owner(const Board& b) {
    for (const auto& [x, y, z] : kLines) {
        if (b[x] != 0 && b[x] == b[y] && b[x] == b[z]) return b[x];
    }
    return 0;
}

// The lowest cell that completes an own line, else the highest that blocks the other side,
// else the highest empty one; the centre, or a corner when the human took it, on the first.
int computer_cell(const Board& b, int move_no, int own, float random) {
    int sel = 0;
    for (int i = 0; i < 9; ++i) sel = b[static_cast<std::size_t>(i)] == 0 ? i : sel;
    if (move_no <= 2) {
        return b[4] == 0 ? 4 : random < 0.25F ? 0 : random < 0.5F ? 2 : random < 0.75F ? 8 : 6;
    }
    for (const int i : {0, 1, 2, 3, 5, 6, 7, 8}) {
        if (b[static_cast<std::size_t>(i)] != 0) continue;
        if (completes(b, i, own)) return i;
        if (completes(b, i, -own)) sel = i;
    }
    return sel;
}

Board Game::marks() const {
    Board board{};
    for (std::size_t i = 0; i < 9; ++i) board[i] = value_of(tag[i]);
    return board;
}

void Game::start(float random) {
    if (unloaded || !command1) return;
    tag.fill("0");
    drawn.fill(0);
    visible.fill(true);
    label2.clear();
    timer2 = game_over = command1 = false;
    move_no = 1;
    toss_limit = 20 + static_cast<int>(static_cast<double>(random) * 10);
    toss_tick = 0;
    timer1 = drew = true;
    player_turn = toss_limit % 2 == 0;
}

void Game::click(int cell, float random) {
    if (unloaded || cell < 0 || cell > 8 || !player_turn) return;
    if (value_of(tag[static_cast<std::size_t>(cell)]) != 0) return;
    player_turn = false;
    draw_ox(cell);
    if (move_no <= 9 && !game_over) computer_moves(random);
}

void Game::draw_ox(int cell) {
    const auto c = static_cast<std::size_t>(cell);
    drawn[c] = move_no % 2 == 1 ? 1 : -1;
    tag[c] = move_no % 2 == 1 ? "1" : "-1";
    if (move_no % 2 == 1) {
        circle_x = circle_y = kScaleWidth / 2;
    } else {
        cross_near = 100;
        cross_far = kScaleWidth - 100;
    }
    const int owner = line_owner(marks());
    for (const auto& line : kLines) {
        if (owner != 0 && value_of(tag[line[0]]) == owner && value_of(tag[line[1]]) == owner &&
            value_of(tag[line[2]]) == owner) {
            win = line;  // the later line stands
            timer2 = game_over = true;
            const bool human_first = toss_limit % 2 == 0, first_moved = move_no % 2 == 1;
            label2 = human_first == first_moved ? "你赢了" : "你输了";
        }
    }
    if (game_over) {
        tag.fill("1");
        command1 = true;
    }
    if (move_no >= 9 && !game_over) {
        label2_colour = 0xFF0000;
        label2 = "和局！";
        command1 = true;
    }
    ++move_no;
}

void Game::computer_moves(float random) {
    const int own = toss_limit % 2 == 1 ? 1 : -1;
    const Board board = marks();
    drew = move_no <= 2 && board[4] != 0;
    draw_ox(computer_cell(board, move_no, own, random));
    player_turn = true;
}

void Game::tick1() {
    if (unloaded || !timer1) return;
    ++toss_tick;
    shape1_colour = 0xFF0000;
    label1_colour = 0x0000FF;
    label1 = toss_tick % 2 == 0 ? "您先" : "计算机先";
    if (toss_tick != toss_limit) return;
    if (toss_limit % 2 == 1) computer_moves(0);
    timer1 = false;
}

void Game::tick2() {
    if (unloaded || !timer2) return;
    for (const int cell : win) visible[static_cast<std::size_t>(cell)] ^= true;
}

void Game::tick3() {
    if (unloaded) return;
    shown_frame = frame_no;
    banner_width = frame_no * 22 + 1600;
    banner_height = frame_no * 10 + 700;
    if (frame_back == 0 && ++frame_no == 93) {
        frame_back = 1;
        frame_no = 92;
    }
    if (frame_back == 1 && --frame_no == -1) {
        frame_no = 0;
        frame_back = 0;
    }
}

}  // namespace model

// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <memory>
#include <random>

#include "form/random.h"
#include "game/form1.h"
#include "game_model.h"

// Whole games through the headless Form1, against the same games on a bare array, so the cost
// of the control model shows as a ratio.
namespace {

// The runtime's random numbers from a fixed start, so every run plays the same games.
class FixedRandom final : public form::RandomSource {
public:
    explicit FixedRandom(std::uint32_t start) : engine_(start) {}
    void randomize() override {}
    float random_next() override { return static_cast<float>(engine_() >> 8) * 0x1p-24F; }

private:
    std::mt19937 engine_;
};

// The human plays a random empty cell.
int pick_empty(const std::array<int, 9>& marks, std::mt19937& human) {
    int empty = 0;
    for (const int mark : marks) empty += mark == 0;
    int skip = static_cast<int>(human() % static_cast<std::uint32_t>(empty));
    for (int cell = 0; cell < 9; ++cell) {
        if (marks[static_cast<std::size_t>(cell)] == 0 && skip-- == 0) return cell;
    }
    return -1;
}

void BM_FormGame(benchmark::State& state) {
    game::Form1 form(std::make_unique<FixedRandom>(1));
    form.load();
    std::mt19937 human(2);
    std::int64_t moves = 0;
    for (auto _ : state) {
        form.click(form::ButtonId::Command1);
        while (form.Timer1.Enabled) form.tick(form::TimerId::Timer1);
        while (!form.Command1.Enabled) {
            std::array<int, 9> marks{};
            for (int cell = 0; cell < 9; ++cell) {
                marks[static_cast<std::size_t>(cell)] = form.mark_at(cell);
            }
            form.click_cell(pick_empty(marks, human));
        }
        moves += form.move_no - 1;
    }
    benchmark::DoNotOptimize(moves);
    state.counters["games/s"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
    state.counters["moves/game"] =
        static_cast<double>(moves) / static_cast<double>(state.iterations());
}
BENCHMARK(BM_FormGame);

// The baseline: the same toss, rule and human on a plain array, with no controls, strings or
// drawing; the rule is the one of the tests' model of the game.
void BM_ArrayGame(benchmark::State& state) {
    FixedRandom random(1);
    std::mt19937 human(2);
    std::int64_t moves = 0;
    for (auto _ : state) {
        model::Board board{};
        const int toss_limit =
            20 + static_cast<int>(static_cast<double>(random.random_next()) * 10);
        int tick = 0;
        while (tick < toss_limit) benchmark::DoNotOptimize(++tick);
        const int human_mark = toss_limit % 2 == 0 ? 1 : -1;
        bool humans_turn = human_mark == 1;
        for (int move = 0; move < 9; ++move) {
            const int mark = move % 2 == 0 ? 1 : -1;
            const int cell = humans_turn
                                 ? pick_empty(board, human)
                                 : model::computer_cell(
                                       board, move + 1, mark,
                                       move == 1 && board[4] != 0 ? random.random_next() : 0.0F);
            board[static_cast<std::size_t>(cell)] = mark;
            const bool won = model::line_owner(board) != 0;
            ++moves;
            if (won) break;
            humans_turn = !humans_turn;
        }
    }
    benchmark::DoNotOptimize(moves);
    state.counters["games/s"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
    state.counters["moves/game"] =
        static_cast<double>(moves) / static_cast<double>(state.iterations());
}
BENCHMARK(BM_ArrayGame);

}  // namespace

BENCHMARK_MAIN();

#pragma once

#include <deque>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "form/random.h"
#include "game/form1.h"

namespace testing_support {

// Random values chosen by the test, drawn in order. A draw the test did not plan for is a
// fault of the code under test, so it throws.
class ScriptedRandom final : public form::RandomSource {
public:
    explicit ScriptedRandom(std::deque<float>& values) : values_(values) {}
    void randomize() override {}
    float random_next() override {
        if (values_.empty()) throw std::logic_error("unplanned random draw");
        const float value = values_.front();
        values_.pop_front();
        return value;
    }

private:
    std::deque<float>& values_;
};

// The random value that makes Start draw this toss_limit (20 to 29).
constexpr float draw_for_toss(int toss_limit) {
    return static_cast<float>(toss_limit - 20) / 10.0F + 0.05F;
}

// A loaded Form1 whose random draws come from `random`.
struct ScriptedForm {
    std::deque<float> random;
    game::Form1 form{std::make_unique<ScriptedRandom>(random)};

    ScriptedForm() { form.load(); }

    // Start with the given toss_limit, then tick the toss to its end.
    void start_and_toss(int toss_limit) {
        random.push_back(draw_for_toss(toss_limit));
        form.click(form::ButtonId::Command1);
        for (int i = 0; i < toss_limit; ++i) form.tick(form::TimerId::Timer1);
    }
};

// Sets the nine Tags from a board written as nine marks, "O . O . O X X X .": O a circle,
// X a cross, a dot empty; blanks between marks are optional.
inline void set_board(game::Form1& form, std::string_view marks) {
    std::size_t cell = 0;
    for (const char mark : marks) {
        if (mark == ' ') continue;
        form.Picture1.at(cell++).Tag = mark == 'O' ? "1" : mark == 'X' ? "-1" : "0";
    }
    if (cell != form.Picture1.size()) throw std::invalid_argument("a board has nine marks");
}

// The board as nine marks without blanks, "O.O.OXXX.".
inline std::string board_of(const game::Form1& form) {
    std::string marks;
    for (int cell = 0; cell < 9; ++cell) {
        const int mark = form.mark_at(cell);
        marks += mark == 1 ? 'O' : mark == -1 ? 'X' : '.';
    }
    return marks;
}

}  // namespace testing_support

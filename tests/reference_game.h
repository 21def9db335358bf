// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <ostream>

// The game's rules on a plain array, written from how the game is meant to play rather than
// from game/: tests run it beside Form1 and require the two to agree move for move.
namespace reference_game {

// 1 a circle, -1 a cross, 0 empty; cells row by row.
using Board = std::array<int, 9>;
using Line = std::array<int, 3>;

inline constexpr std::array<Line, 8> kLines{
    {{0, 1, 2}, {3, 4, 5}, {6, 7, 8}, {0, 3, 6}, {1, 4, 7}, {2, 5, 8}, {0, 4, 8}, {2, 4, 6}}};

inline int at(const Board& board, int cell) { return board[static_cast<std::size_t>(cell)]; }

// The mark of a complete line, or 0 when there is none.
inline int line_owner(const Board& board) {
    for (const auto& [a, b, c] : kLines) {
        if (at(board, a) != 0 && at(board, a) == at(board, b) && at(board, a) == at(board, c)) {
            return at(board, a);
        }
    }
    return 0;
}

inline int marks_on(const Board& board) {
    return static_cast<int>(std::count_if(board.begin(), board.end(), [](int m) { return m; }));
}

inline bool game_goes_on(const Board& board) {
    return line_owner(board) == 0 && marks_on(board) < 9;
}

// Would `mark` in the empty `cell` complete a line?
inline bool completes_line(Board board, int cell, int mark) {
    board[static_cast<std::size_t>(cell)] = mark;
    return line_owner(board) == mark;
}

// The toss: 20 plus the number of tenths that the random value reaches.
inline int toss_limit_for(float random) {
    int limit = 20;
    for (int tenth = 1; tenth <= 9; ++tenth) limit += static_cast<double>(random) >= tenth / 10.0;
    return limit;
}

// The corner taken after a centre opening: each quarter of the random range names one.
inline int corner_for(float random) {
    if (random < 0.25F) return 0;
    if (random < 0.5F) return 2;
    return random < 0.75F ? 8 : 6;
}

// The computer's cell: on its first move the centre, or a corner when the centre is gone;
// later its own lowest winning cell, else the highest cell that stops the other side, else the
// highest empty cell. `random` is read only after a centre opening.
inline int computer_cell(const Board& board, int own_mark, float random) {
    if (marks_on(board) <= 1) return at(board, 4) == 0 ? 4 : corner_for(random);
    for (int cell = 0; cell < 9; ++cell) {
        if (at(board, cell) == 0 && completes_line(board, cell, own_mark)) return cell;
    }
    for (int cell = 8; cell >= 0; --cell) {
        if (at(board, cell) == 0 && completes_line(board, cell, -own_mark)) return cell;
    }
    for (int cell = 8; cell >= 0; --cell) {
        if (at(board, cell) == 0) return cell;
    }
    return -1;
}

// One random value for each corner the computer can pick after a centre opening.
inline constexpr std::array<float, 4> kCornerDraws{0.0F, 0.25F, 0.5F, 0.99999994F};

struct Tally {
    long games = 0;
    long human_wins = 0;
    long computer_wins = 0;
    long draws = 0;
    // One finished game: `winner` is 1 for the human, -1 for the computer, 0 for a draw.
    void add(int winner) {
        ++games;
        (winner > 0 ? human_wins : winner < 0 ? computer_wins : draws) += 1;
    }
    friend bool operator==(const Tally&, const Tally&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Tally& t) {
        return out << t.games << " games: " << t.human_wins << " won, " << t.computer_wins
                   << " lost, " << t.draws << " drawn";
    }
};

// Every game from this board with the human, playing `human`, to move.
inline void count_games(const Board& board, int human, Tally& tally) {
    for (std::size_t cell = 0; cell < 9; ++cell) {
        if (board[cell] != 0) continue;
        Board mine = board;
        mine[cell] = human;
        if (!game_goes_on(mine)) tally.add(line_owner(mine) * human);
        const bool corners = game_goes_on(mine) && marks_on(mine) == 1 && cell == 4;
        for (std::size_t r = 0; game_goes_on(mine) && r < (corners ? kCornerDraws.size() : 1);
             ++r) {
            Board reply = mine;
            reply[static_cast<std::size_t>(computer_cell(mine, -human, kCornerDraws[r]))] = -human;
            if (game_goes_on(reply)) count_games(reply, human, tally);
            if (!game_goes_on(reply)) tally.add(line_owner(reply) * human);
        }
    }
}

// Every game for one order of play.
inline Tally all_games(bool human_first) {
    Tally tally;
    Board board{};
    if (!human_first) board[static_cast<std::size_t>(computer_cell(board, 1, 0.0F))] = 1;
    count_games(board, human_first ? 1 : -1, tally);
    return tally;
}

}  // namespace reference_game

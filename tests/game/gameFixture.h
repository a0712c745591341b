#pragma once
// A game over the recording toolkit, and helpers to drive it as the windows do.

#include <algorithm>
#include <cstring>
#include <vector>

#include "game/game.h"
#include "support/recordingToolkit.h"

namespace quintline::testing {

// A session as the main window opens it, the user on `user`, nothing recorded yet.
struct Session {
    RecordingToolkit toolkit;
    Game game;
    GameState& s = game.state();

    explicit Session(SearchSet searches = {}, Side user = white) : game(toolkit, searches) {
        game.startSession();
        s.userColour = user;
        game.newGame();
        toolkit.forget();
    }
};

// A mouse-down in the middle of the cell of (x, y).
inline void click(Game& game, int x, int y) {
    const float cell = game.state().cellSize;
    game.boardMouseDown((x - 0.5f) * cell, (y - 0.5f) * cell);
}

// Commits the moves of `order` after those already played (order[0] is move 1)
// up to move `count`, colours alternating from black.
inline void lay(Game& game, const std::vector<Point>& order, std::size_t count = 225) {
    for (std::size_t n = game.state().stepNum; n < std::min(count, order.size()); ++n)
        game.Putchess(order[n].x, order[n].y, sideToMove(static_cast<std::int16_t>(n + 1)));
}

inline bool sameTables(const Position& a, const Position& b) {
    return std::memcmp(&a, &b, sizeof(Position)) == 0;
}

// A full board without a five: black where (x + 2y) / 4, rounded down, is even.
// In playing order from black's (8, 8); the last stone is black's (1, 1), the
// only empty point of a line of four whites, so every earlier position is open.
inline std::vector<Point> fullBoardWithoutFive() {
    std::vector<Point> side[2], order;  // black, white
    for (std::int16_t x = 1; x <= boardSize; ++x)
        for (std::int16_t y = 1; y <= boardSize; ++y)
            if (Point{x, y} != Point{8, 8} && Point{x, y} != Point{1, 1})
                side[(x + 2 * y) / 4 % 2].push_back({x, y});
    side[0].insert(side[0].begin(), Point{8, 8});
    side[0].push_back({1, 1});
    for (std::size_t n = 0; n < side[0].size(); ++n) {
        order.push_back(side[0][n]);
        if (n < side[1].size()) order.push_back(side[1][n]);
    }
    return order;
}

}  // namespace quintline::testing

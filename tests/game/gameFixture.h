#pragma once
// A game over the recording toolkit, and helpers to drive it as the windows do.

#include <cstring>
#include <initializer_list>
#include <vector>

#include "game/game.h"
#include "support/recordingToolkit.h"

namespace quintline::testing {

// A session as the main window opens it: start-up, then a new game.
struct Session {
    RecordingToolkit toolkit;
    Game game{toolkit};
    GameState& s = game.state();

    Session() {
        game.startSession();
        game.newGame();
    }
};

// A mouse-down in the middle of the cell of (x, y).
inline void click(Game& game, int x, int y) {
    const float cell = game.state().cellSize;
    game.boardMouseDown((static_cast<float>(x) - 0.5f) * cell,
                        (static_cast<float>(y) - 0.5f) * cell);
}

// Lays stones as two users would, the colours alternating from userColour,
// then hands the board back to a game of one user against the computer.
inline void layAsTwoUsers(Game& game, std::initializer_list<Point> points) {
    GameState& s = game.state();
    s.twoUsers = flagTrue;
    for (Point p : points) game.userMove(p.x, p.y);
    s.twoUsers = flagFalse;
}

inline Side colourAt(const GameState& s, int x, int y) {
    return s.position.board[x][y];
}

inline bool sameTables(const Position& a, const Position& b) {
    return std::memcmp(&a, &b, sizeof(Position)) == 0;
}

// The empty points beside a stone, in scan order, found from the board alone.
inline std::vector<Point> emptyPointsBesideStones(const Position& pos) {
    std::vector<Point> found;
    for (int x = 1; x <= boardSize; ++x)
        for (int y = 1; y <= boardSize; ++y) {
            if (pos.board[x][y] != empty) continue;
            bool beside = false;
            for (int dx = -1; dx <= 1; ++dx)
                for (int dy = -1; dy <= 1; ++dy)
                    if ((dx || dy) && onBoard(x + dx, y + dy) && pos.board[x + dx][y + dy] != empty)
                        beside = true;
            if (beside)
                found.push_back({static_cast<std::int16_t>(x), static_cast<std::int16_t>(y)});
        }
    return found;
}

// A full board without a five: black where (x + 2y) / 4, rounded down, is even.
// Listed in playing order, black and white alternating from black's (8, 8).
// The last stone is black's (1, 1), the only empty point of row 1's first line
// of four whites, so every position before it still has an open line.
inline std::vector<Point> fullBoardWithoutFive() {
    auto isBlack = [](int x, int y) { return ((x + 2 * y) / 4) % 2 == 0; };
    std::vector<Point> blacks{{8, 8}};
    std::vector<Point> whites;
    for (std::int16_t x = 1; x <= boardSize; ++x)
        for (std::int16_t y = 1; y <= boardSize; ++y) {
            const Point p{x, y};
            if (!isBlack(x, y))
                whites.push_back(p);
            else if (p != Point{8, 8} && p != Point{1, 1})
                blacks.push_back(p);
        }
    blacks.push_back({1, 1});
    std::vector<Point> order;
    for (std::size_t n = 0; n < blacks.size(); ++n) {
        order.push_back(blacks[n]);
        if (n < whites.size()) order.push_back(whites[n]);
    }
    return order;
}

}  // namespace quintline::testing

#pragma once
// Quick stand-ins for the four searches, so that whole batch games run in
// microseconds with outcomes that can be worked out by hand.
//
// A builder stacks its stones from the top of its own column (x 1 for black,
// x 2 for white) and so has five with its fifth stone there. A wanderer puts
// its stones three points apart (x and y multiples of 3, x from 15 down), where
// they never make a line. Computer A and B build at depth 3 and wander below;
// the kinds that know the other always build.

#include "players/searchSet.h"

namespace quintline::testing {

namespace scripted {

inline Point firstEmpty(const SearchState& s) {
    for (std::int16_t x = 1; x <= boardSize; ++x)
        for (std::int16_t y = 1; y <= boardSize; ++y)
            if (s.position.board[x][y] == empty) return {x, y};
    return {};
}

inline Point builderPoint(const SearchState& s, std::int16_t step) {
    const std::int16_t column = sideToMove(static_cast<std::int16_t>(step + 1)) == black ? 1 : 2;
    for (std::int16_t y = 1; y <= boardSize; ++y)
        if (s.position.board[column][y] == empty) return {column, y};
    return firstEmpty(s);
}

inline Point wandererPoint(const SearchState& s) {
    for (std::int16_t x = 15; x >= 3; x -= 3)
        for (std::int16_t y = 3; y <= boardSize; y += 3)
            if (s.position.board[x][y] == empty) return {x, y};
    return firstEmpty(s);
}

inline void choose(SearchState& s, std::int16_t step, Point p) {
    s.bestX[static_cast<std::size_t>(step)] = p.x;
    s.bestY[static_cast<std::size_t>(step)] = p.y;
}

inline Score plain(SearchState& s, std::int16_t step, std::int16_t depth) {
    choose(s, step, depth >= 3 ? builderPoint(s, step) : wandererPoint(s));
    return 0;
}

inline nodeScores knowing(SearchState& s, std::int16_t step, std::int16_t) {
    choose(s, step, builderPoint(s, step));
    return {};
}

}  // namespace scripted

inline SearchSet scriptedSearches() {
    return SearchSet{&scripted::plain, &scripted::plain, &scripted::knowing, &scripted::knowing};
}

}  // namespace quintline::testing

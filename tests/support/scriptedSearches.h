#pragma once
// Quick stand-ins for the four searches, so that whole games run in microseconds
// with outcomes that can be worked out by hand. A builder stacks its stones from
// the top of its own column (x 1 for black, x 2 for white) and has five with its
// fifth stone there. A wanderer puts its stones on points whose x and y are
// multiples of 3, x from 15 down, where they never make a line. Computer A and B
// build at depth 3 and wander below; the kinds that know the other always build.

#include "players/searchSet.h"

namespace quintline::testing::scripted {

// The first empty point on the columns firstX, firstX + stepX, ... whose y is a
// multiple of stepY; failing that the board's first empty point, if any.
inline Point firstEmpty(const SearchState& s, int firstX, int stepX, int stepY) {
    for (int x = firstX; x >= 1 && x <= boardSize; x += stepX)
        for (int y = stepY; y <= boardSize; y += stepY)
            if (s.position.board[x][y] == empty) return {std::int16_t(x), std::int16_t(y)};
    return stepX == 1 ? Point{} : firstEmpty(s, 1, 1, 1);
}

inline void choose(SearchState& s, std::int16_t step, bool build) {
    const int column = sideToMove(std::int16_t(step + 1)) == black ? 1 : 2;
    const Point p = build ? firstEmpty(s, column, boardSize, 1) : firstEmpty(s, 15, -3, 3);
    s.bestX[step] = p.x;
    s.bestY[step] = p.y;
}

inline Score plain(SearchState& s, std::int16_t step, std::int16_t depth) {
    choose(s, step, depth >= 3);
    return 0;
}

inline nodeScores knowing(SearchState& s, std::int16_t step, std::int16_t) {
    choose(s, step, true);
    return {};
}

}  // namespace quintline::testing::scripted

namespace quintline::testing {

inline SearchSet scriptedSearches() {
    return SearchSet{&scripted::plain, &scripted::plain, &scripted::knowing, &scripted::knowing};
}

}  // namespace quintline::testing

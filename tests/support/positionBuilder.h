#pragma once
// Builds search states from lists of stones for tests.

#include <initializer_list>

#include "players/searchState.h"

namespace quintline::testing {

struct Stone {
    int x;
    int y;
    Side side;
};

inline void putStones(SearchState& s, std::initializer_list<Stone> stones) {
    for (const Stone& st : stones)
        placeStone(s.position, static_cast<std::int16_t>(st.x), static_cast<std::int16_t>(st.y),
                   st.side);
}

inline SearchState stateWith(std::initializer_list<Stone> blackAndWhite, std::int16_t step) {
    SearchState s;
    putStones(s, blackAndWhite);
    s.stepNum = step;
    return s;
}

}  // namespace quintline::testing

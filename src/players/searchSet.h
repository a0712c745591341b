#pragma once
// The four searches a game calls, as one replaceable set: production code uses
// the defaults, tests can put reference implementations in their place.

#include <cstdint>

#include "players/playerA.h"
#include "players/playerB.h"

namespace quintline {

struct SearchSet {
    using PlainSearch = Score (*)(SearchState&, std::int16_t step, std::int16_t depth);
    using ModelSearch = nodeScores (*)(SearchState&, std::int16_t step, std::int16_t depth);

    PlainSearch searchA = &quintline::searchA;
    PlainSearch searchB = &quintline::searchB;
    ModelSearch searchAKnowsB = &quintline::searchAKnowsB;
    ModelSearch searchBKnowsA = &quintline::searchBKnowsA;
};

}  // namespace quintline

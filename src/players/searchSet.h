#pragma once
// The four searches a game calls, as one replaceable set: production code uses
// the defaults, tests can put reference implementations in their place. Every
// caller goes through run(), the one place a player kind picks its search.

#include <cstdint>
#include <optional>

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

    // The search of player kind `kind` from s.stepNum stones, `depth` plies
    // deep: both scores from black's view, the model score 0 for the plain
    // kinds. Kinds outside 1..4 have no search: nullopt, the state untouched.
    std::optional<nodeScores> run(PlayerKind kind, SearchState& s, std::int16_t depth) const;
};

}  // namespace quintline

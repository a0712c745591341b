#include "players/playerA.h"

#include "players/opponentModelSearch.h"
#include "players/plainSearch.h"
#include "players/playerB.h"

namespace quintline {

Score searchA(SearchState& s, std::int16_t step, std::int16_t depth) {
    return plainSearch<EvaluatorA>(s, step, depth);
}

nodeScores searchAKnowsB(SearchState& s, std::int16_t step, std::int16_t depth) {
    return opponentModelSearch<EvaluatorA, EvaluatorB, aKnowsB>(s, step, depth);
}

}  // namespace quintline

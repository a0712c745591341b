#include "players/playerB.h"

#include "players/opponentModelSearch.h"
#include "players/plainSearch.h"
#include "players/playerA.h"

namespace quintline {

Score searchB(SearchState& s, std::int16_t step, std::int16_t depth) {
    return plainSearch<EvaluatorB>(s, step, depth);
}

nodeScores searchBKnowsA(SearchState& s, std::int16_t step, std::int16_t depth) {
    return opponentModelSearch<EvaluatorB, EvaluatorA, bKnowsA>(s, step, depth);
}

}  // namespace quintline

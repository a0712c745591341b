#include "players/playerA.h"

#include "players/opponentModelSearch.h"
#include "players/plainSearch.h"
#include "players/playerB.h"

namespace quintline {

Score searchA(SearchState& s, std::int16_t step, std::int16_t depth) {
    return plainSearch<evalA>(s, step, depth);
}

nodeScores searchAKnowsB(SearchState& s, std::int16_t step, std::int16_t depth) {
    return opponentModelSearch<evalA, evalB, aKnowsB>(s, step, depth);
}

}  // namespace quintline

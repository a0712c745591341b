#include "game/seatedSearch.h"

#include <cassert>

namespace quintline {

void seatSides(SearchState& state, PlayerKind kind) {
    const bool blackToMove = sideToMove(static_cast<std::int16_t>(state.stepNum + 1)) == black;
    state.blackSide = blackToMove ? kind : opponentOf(kind);
    state.whiteSide = blackToMove ? opponentOf(kind) : kind;
}

SearchChoice searchFor(SearchState& state, PlayerKind kind, std::int16_t depth,
                       const SearchSet& searches) {
    assert(kind >= computerA && kind <= bKnowsA);
    const std::int16_t step = state.stepNum;
    // Cleared so that a search that chooses nothing reads as (0, 0).
    state.bestX[step] = 0;
    state.bestY[step] = 0;
    SearchChoice choice;
    const nodeScores scores = searches.run(kind, state, depth).value();
    choice.value = scores.ownScore;
    if (kind == aKnowsB || kind == bKnowsA) choice.modelScore = scores.modelScore;
    state.stepNum = step;
    choice.point = {state.bestX[step], state.bestY[step]};
    return choice;
}

}  // namespace quintline

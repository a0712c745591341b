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
    switch (kind) {
        case computerA:
            choice.value = searches.searchA(state, step, depth);
            break;
        case computerB:
            choice.value = searches.searchB(state, step, depth);
            break;
        default: {
            const auto search = kind == aKnowsB ? searches.searchAKnowsB : searches.searchBKnowsA;
            const nodeScores scores = search(state, step, depth);
            choice.value = scores.ownScore;
            choice.modelScore = scores.modelScore;
        }
    }
    state.stepNum = step;
    choice.point = {state.bestX[step], state.bestY[step]};
    return choice;
}

}  // namespace quintline

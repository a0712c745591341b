#include "players/searchSet.h"

namespace quintline {

std::optional<nodeScores> SearchSet::run(PlayerKind kind, SearchState& s,
                                         std::int16_t depth) const {
    const std::int16_t step = s.stepNum;
    switch (kind) {
        case computerA:
            return nodeScores{0, searchA(s, step, depth), 0};
        case computerB:
            return nodeScores{0, searchB(s, step, depth), 0};
        case aKnowsB:
            return searchAKnowsB(s, step, depth);
        case bKnowsA:
            return searchBKnowsA(s, step, depth);
        default:
            return std::nullopt;
    }
}

void seatAgainstOpponent(SearchState& s, PlayerKind kind) {
    const bool blackMoves = sideToMove(static_cast<std::int16_t>(s.stepNum + 1)) == black;
    s.blackSide = blackMoves ? kind : opponentOf(kind);
    s.whiteSide = blackMoves ? opponentOf(kind) : kind;
}

}  // namespace quintline

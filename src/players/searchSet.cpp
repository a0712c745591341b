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

}  // namespace quintline

#pragma once
// Computer A: its evaluator and its two searches.

#include <cstdint>

#include "players/evaluation.h"
#include "players/searchState.h"

namespace quintline {

// Base sum over lines of one to four stones.
using EvaluatorA = CensusEvaluator<1, 4>;
constexpr Score evalA(const Position& pos, std::int16_t stepNum, std::int16_t depth) {
    return EvaluatorA::score(pos, stepNum, depth);
}

// Plain fixed-depth search with evalA. Player kind 1, and the suggestion.
Score searchA(SearchState& s, std::int16_t step, std::int16_t depth);

// Computer A knowing B's evaluation: player kind 3.
nodeScores searchAKnowsB(SearchState& s, std::int16_t step, std::int16_t depth);

}  // namespace quintline

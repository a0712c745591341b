#pragma once
// Computer B: its evaluator and its two searches.

#include <cstdint>

#include "players/evaluation.h"
#include "players/searchState.h"

namespace quintline {

// Base sum over lines of two and three stones only.
using EvaluatorB = CensusEvaluator<2, 3>;
constexpr Score evalB(const Position& pos, std::int16_t stepNum, std::int16_t depth) {
    return EvaluatorB::score(pos, stepNum, depth);
}

// Plain fixed-depth search with evalB. Player kind 2.
Score searchB(SearchState& s, std::int16_t step, std::int16_t depth);

// Computer B knowing A's evaluation: player kind 4.
nodeScores searchBKnowsA(SearchState& s, std::int16_t step, std::int16_t depth);

}  // namespace quintline

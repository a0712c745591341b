#pragma once
// The depth of the suggestion's search: the most levels whose product of empty
// points, r * (r - 1) * ..., stays below the node budget, and at most r.

#include <cstdint>

#include "position/types.h"

namespace quintline {

inline constexpr double suggestionNodeBudget = 50000;

constexpr std::int16_t suggestionDepth(std::int16_t stepNum) {
    int r = maxStones - stepNum;
    double product = r;
    int d = 1;
    while (product < suggestionNodeBudget && r > 0) {
        ++d;
        --r;
        product *= r;
    }
    return static_cast<std::int16_t>(d - 1);
}

}  // namespace quintline

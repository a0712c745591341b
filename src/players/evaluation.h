#pragma once
// The static evaluation shared by both computers: a weighted sum over the line
// census plus the fixed rows for fives and for a four of the side to move.
// Reads only the census, the parity of stepNum and whether the node is a leaf.

#include <cstdint>

#include "position/basicOpr.h"
#include "position/types.h"

namespace quintline {

// Signature every evaluator has: score from black's view for the position,
// the stone count at the node and its remaining depth.
using Evaluator = Score (*)(const Position&, std::int16_t stepNum, std::int16_t depth);

// Base sum over k = firstK..lastK of 5^k * (b(k) - w(k)), then the first row that
// applies: white five, black five, inner node, a leaf's four of the side to move.
template <int firstK, int lastK>
constexpr Score censusScore(const Position& pos, std::int16_t stepNum, std::int16_t depth) {
    const std::int16_t* b = pos.lineCensus[sideRow(black)];
    const std::int16_t* w = pos.lineCensus[sideRow(white)];
    // 64-bit arithmetic, wrapped to 32 bits at the end: only boards with very many
    // fives could leave the 32-bit range, and those never arise in play.
    std::int64_t base = 0;
    std::int64_t weight = 1;
    for (int k = 1; k <= lastK; ++k) {
        weight *= 5;
        if (k >= firstK) base += weight * static_cast<std::int16_t>(b[k] - w[k]);
    }
    constexpr std::int64_t fiveBonus = 5000;
    constexpr std::int64_t extraFour = 3125;
    std::int64_t result = base;
    if (w[5] > 0) {
        result = base - w[5] * std::int64_t{winScore} - fiveBonus - extraFour * w[4];
    } else if (b[5] > 0) {
        result = base + b[5] * std::int64_t{winScore} + fiveBonus + extraFour * b[4];
    } else if (depth != 0) {
        result = base;
    } else if ((stepNum / 2) * 2 == stepNum && b[4] > 0) {
        result = base + fiveBonus + sureScore + extraFour * b[4];
    } else if ((stepNum / 2) * 2 != stepNum && w[4] > 0) {
        result = base - fiveBonus - sureScore - extraFour * w[4];
    }
    return static_cast<Score>(result);
}

}  // namespace quintline

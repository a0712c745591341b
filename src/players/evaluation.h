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

// The rows after the base sum: white five, black five, inner node, a leaf's
// four of the side to move. b4..w5 are the census entries for fours and fives.
// 64-bit arithmetic, wrapped to 32 bits at the end: only boards with very many
// fives could leave the 32-bit range, and those never arise in play.
constexpr Score finishScore(std::int64_t base, int b4, int w4, int b5, int w5, std::int16_t stepNum,
                            std::int16_t depth) {
    constexpr std::int64_t fiveBonus = 5000;
    constexpr std::int64_t extraFour = 3125;
    const bool blackToMove = (stepNum / 2) * 2 == stepNum;
    std::int64_t result = base;
    if (w5 > 0) {
        result = base - w5 * std::int64_t{winScore} - fiveBonus - extraFour * w4;
    } else if (b5 > 0) {
        result = base + b5 * std::int64_t{winScore} + fiveBonus + extraFour * b4;
    } else if (depth != 0) {
        result = base;
    } else if (blackToMove && b4 > 0) {
        result = base + fiveBonus + sureScore + extraFour * b4;
    } else if (!blackToMove && w4 > 0) {
        result = base - fiveBonus - sureScore - extraFour * w4;
    }
    return static_cast<Score>(result);
}

// An evaluator whose base sum runs over k = firstK..lastK of 5^k * (b(k) - w(k)).
template <int firstK, int lastK>
struct CensusEvaluator {
    // Weight of a line of k stones in the base sum, 0 outside firstK..lastK.
    static constexpr std::int32_t weight(int k) {
        std::int32_t w = 1;
        for (int i = 0; i < k; ++i) w *= 5;
        return k >= firstK && k <= lastK ? w : 0;
    }

    static constexpr std::int64_t baseSum(const Position& pos) {
        const std::int16_t* b = pos.lineCensus[sideRow(black)];
        const std::int16_t* w = pos.lineCensus[sideRow(white)];
        std::int64_t base = 0;
        for (int k = firstK; k <= lastK; ++k)
            base += std::int64_t{weight(k)} * static_cast<std::int16_t>(b[k] - w[k]);
        return base;
    }

    static constexpr Score score(const Position& pos, std::int16_t stepNum, std::int16_t depth) {
        const std::int16_t* b = pos.lineCensus[sideRow(black)];
        const std::int16_t* w = pos.lineCensus[sideRow(white)];
        return finishScore(baseSum(pos), b[4], w[4], b[5], w[5], stepNum, depth);
    }
};

template <int firstK, int lastK>
constexpr Score censusScore(const Position& pos, std::int16_t stepNum, std::int16_t depth) {
    return CensusEvaluator<firstK, lastK>::score(pos, stepNum, depth);
}

}  // namespace quintline

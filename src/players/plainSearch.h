#pragma once
// Fixed-depth full-width minimax over the empty points beside a stone, written
// once and instantiated per evaluator (searchA with evalA, searchB with evalB).

#include <cstdint>
#include <cstdlib>

#include "players/evaluation.h"
#include "players/searchState.h"

namespace quintline {

// Value of the node with `step` stones and `depth` plies left, from black's view.
// Leaves the position tables as it found them; writes the chosen point to
// bestX/bestY[step] unless the node is a leaf or has no candidate; leaves stepNum
// at the stone count of the last node entered.
template <Evaluator evaluate>
Score plainSearch(SearchState& s, std::int16_t step, std::int16_t depth) {
    // 1-3. Score the node; a five, the search horizon or a full board ends it.
    s.stepNum = step;
    const Score score = evaluate(s.position, step, depth);
    if (std::abs(score) >= winScore || depth == 0 || step == maxStones)
        return static_cast<Score>((depth + 1) * std::int64_t{score});

    // 4-5. Black moves on even stone counts; best is the mover's value so far.
    const Side side = (step / 2) * 2 == step ? black : white;
    Score best = -scoreInfinity;

    // 6. Every candidate in scan order; the last of equal values wins.
    for (std::int16_t x = 1; x <= boardSize; ++x) {
        for (std::int16_t y = 1; y <= boardSize; ++y) {
            if (!s.position.isCandidate(x, y)) continue;
            Score v;
            {
                TrialStone stone(s.position, x, y, side);
                v = side * plainSearch<evaluate>(s, static_cast<std::int16_t>(step + 1),
                                                 static_cast<std::int16_t>(depth - 1));
            }
            if (v < best) continue;
            best = v;
            s.bestX[step] = x;
            s.bestY[step] = y;
            // Early stop on a win, or on a sure value while the mover holds no four.
            if (v >= winScore || (v >= sureScore && s.position.census(side, 4) == 0))
                return side * v;
        }
    }
    // 7.
    return side * best;
}

}  // namespace quintline

#pragma once
// The four searches exactly as their node procedures read, step by step, with
// no shortcut of any kind: every node scans all 225 points, places and removes
// a stone per candidate and calls the evaluators itself. Slow on purpose; the
// tests and benchmarks hold the production searches against these.

#include <cstdint>

#include "players/opponentModelLiteral.h"
#include "players/searchSet.h"

namespace quintline::reference {

// Depth-limited search: value from black's view, chosen point at bestX/bestY[step].
template <Evaluator eval>
Score plain(SearchState& s, std::int16_t step, std::int16_t depth) {
    using namespace literal;
    // Score the node; a win, the horizon or a full board make it a leaf.
    s.stepNum = step;
    const Score score = eval(s.position, s.stepNum, depth);
    if (atLeastAWin(score) || depth == 0 || step == maxStones) return scaled(depth, score);
    const Side side = (step / 2) * 2 == step ? black : white;
    Score best = -scoreInfinity;
    // Every empty point beside a stone, in scan order; the last of equal values
    // is chosen, and the first reaching the stop rule ends the scan.
    for (std::int16_t x = 1; x <= boardSize; ++x)
        for (std::int16_t y = 1; y <= boardSize; ++y) {
            if (s.position.nearCount[x][y] < 1 || s.position.board[x][y] != 0) continue;
            placeStone(s.position, x, y, side);
            const Score v = side * plain<eval>(s, static_cast<std::int16_t>(step + 1),
                                               static_cast<std::int16_t>(depth - 1));
            removeStone(s.position, x, y, side);
            if (v < best) continue;
            best = v;
            s.bestX[step] = x;
            s.bestY[step] = y;
            if (meetsStop(s.position, side, v)) return side * v;
        }
    return side * best;
}

// The literal searches as a set a game can be given in place of the production one.
inline SearchSet literalSearchSet() {
    return {&plain<evalA>, &plain<evalB>, &literalOpponentModel<evalA, evalB, aKnowsB>,
            &literalOpponentModel<evalB, evalA, bKnowsA>};
}

}  // namespace quintline::reference

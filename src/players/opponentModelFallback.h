#pragma once
// The opponent-model search node by node, for the one case the fast search does
// not take: player kinds that break its callers' promise (exactly one colour is
// the modeller, and it is to move at the root). No caller does that; the
// results stay defined all the same.

#include <cstdint>
#include <cstdlib>

#include "players/evaluation.h"
#include "players/searchState.h"

namespace quintline {

namespace fallback {

// The stop rule for a score s at a node of `side`: a win, or a sure value while
// the side to move holds no four in the node's position.
inline bool meetsStopRule(const Position& pos, Side side, Score s) {
    const std::int64_t product = std::int64_t{s} * side;
    return product >= winScore || (product >= sureScore && pos.census(side, 4) == 0);
}

inline bool isBetter(Side side, Score candidate, Score best) {
    return side == black ? candidate > best : candidate < best;
}

}  // namespace fallback

// Scores of the node with `step` stones and `depth` plies left. Leaves the
// position tables as it found them; writes bestX/bestY[step] at the modeller's
// nodes only; leaves stepNum at the stone count of the last node entered.
template <Evaluator ownEval, Evaluator modelEval, PlayerKind modeller>
nodeScores opponentModelNodeByNode(SearchState& s, std::int16_t step, std::int16_t depth) {
    // 1-3. Both scores; the node is finished only when both show a five.
    s.stepNum = step;
    const Score own = ownEval(s.position, step, depth);
    const Score model = modelEval(s.position, step, depth);
    if (depth == 0 || step == maxStones ||
        (std::abs(own) >= winScore && std::abs(model) >= winScore))
        return {0, static_cast<Score>((depth + 1) * std::int64_t{own}),
                static_cast<Score>((depth + 1) * std::int64_t{model})};

    // 4-5.
    const Side side = (step / 2) * 2 == step ? black : white;
    const bool modellerToMove = (side == black ? s.blackSide : s.whiteSide) == modeller;
    const bool modellerWaits = (side == black ? s.whiteSide : s.blackSide) == modeller;
    bool ownDone = false;
    bool modelDone = false;
    Score bestOwn = side == black ? -scoreInfinity : scoreInfinity;
    Score bestModel = bestOwn;

    // 6. Every candidate in scan order; the first of equal scores stays.
    for (std::int16_t x = 1; x <= boardSize; ++x) {
        for (std::int16_t y = 1; y <= boardSize; ++y) {
            if (!s.position.isCandidate(x, y)) continue;
            nodeScores child;
            {
                TrialStone stone(s.position, x, y, side);
                child = opponentModelNodeByNode<ownEval, modelEval, modeller>(
                    s, static_cast<std::int16_t>(step + 1), static_cast<std::int16_t>(depth - 1));
            }
            // 6.4 Own update, at the modeller's nodes.
            if (modellerToMove && !ownDone && fallback::isBetter(side, child.ownScore, bestOwn)) {
                bestOwn = child.ownScore;
                s.bestX[step] = x;
                s.bestY[step] = y;
                if (fallback::meetsStopRule(s.position, side, child.ownScore)) {
                    ownDone = true;
                    if (modelDone) return {0, bestOwn, bestModel};
                }
            }
            // 6.5 Model update, at every node; at the opponent's nodes the modeller
            // takes its own score of the reply it expects.
            if (!modelDone && fallback::isBetter(side, child.modelScore, bestModel)) {
                bestModel = child.modelScore;
                if (modellerWaits) {
                    bestOwn = child.ownScore;
                    ownDone = true;
                }
                if (fallback::meetsStopRule(s.position, side, child.modelScore)) {
                    modelDone = true;
                    if (ownDone) return {0, bestOwn, bestModel};
                }
            }
        }
    }
    // 7.
    return {0, bestOwn, bestModel};
}

}  // namespace quintline

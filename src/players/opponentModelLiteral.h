#pragma once
// The opponent-model search exactly as its node procedure reads, with no
// shortcut: every node scans all 225 points, places and removes a stone per
// candidate and calls both evaluators itself. The fast search hands it the
// seatings it does not take (the modeller not to move at the root, or on both
// colours), and the tests hold the fast search against it.

#include <cstdint>

#include "players/evaluation.h"
#include "players/searchState.h"

namespace quintline {

namespace literal {

inline bool atLeastAWin(Score score) {
    return score >= winScore || score <= -winScore;
}

inline Score scaled(std::int16_t depth, Score score) {
    return static_cast<Score>(std::int64_t{depth + 1} * score);
}

// The stop rule for a score seen from the mover's side: a win, or a sure score
// while the mover holds no four in the node's position.
inline bool meetsStop(const Position& pos, Side side, std::int64_t moversScore) {
    return moversScore >= winScore || (moversScore >= sureScore && pos.census(side, 4) == 0);
}

}  // namespace literal

// Scores of the node with `step` stones and `depth` plies left, both from
// black's view, for the modeller of player kind `modeller`, scoring with
// ownEval and expecting the opponent to play what modelEval prefers. Leaves the
// position tables as it found them; writes bestX/bestY[step] at the modeller's
// nodes only; leaves stepNum at the stone count of the last node entered.
// The literal procedure is kept whole, to be read beside the one it reproduces.
template <Evaluator ownEval, Evaluator modelEval, PlayerKind modeller>
nodeScores literalOpponentModel(  // NOLINT(readability-function-cognitive-complexity)
    SearchState& s, std::int16_t step, std::int16_t depth) {
    using namespace literal;
    // Score the node with both evaluators; it is a leaf at the horizon, on a
    // full board, or where both evaluators see a five.
    s.stepNum = step;
    const Score own = ownEval(s.position, s.stepNum, depth);
    const Score mod = modelEval(s.position, s.stepNum, depth);
    if (depth == 0 || step == maxStones || (atLeastAWin(own) && atLeastAWin(mod)))
        return {0, scaled(depth, own), scaled(depth, mod)};

    // Who moves, and who of the two is the modeller; nothing found yet.
    const Side side = (step / 2) * 2 == step ? black : white;
    const bool modellerMoves = (side == black ? s.blackSide : s.whiteSide) == modeller;
    const bool modellerWaits = (side == black ? s.whiteSide : s.blackSide) == modeller;
    bool ownDone = false;
    bool modelDone = false;
    Score bestOwn = side == black ? -scoreInfinity : scoreInfinity;
    Score bestModel = bestOwn;
    auto better = [side](Score a, Score b) { return side == black ? a > b : a < b; };

    // Every empty point beside a stone, in scan order; the first of equal scores stays.
    for (std::int16_t x = 1; x <= boardSize; ++x)
        for (std::int16_t y = 1; y <= boardSize; ++y) {
            if (s.position.nearCount[x][y] < 1 || s.position.board[x][y] != 0) continue;
            placeStone(s.position, x, y, side);
            const nodeScores child = literalOpponentModel<ownEval, modelEval, modeller>(
                s, static_cast<std::int16_t>(step + 1), static_cast<std::int16_t>(depth - 1));
            removeStone(s.position, x, y, side);

            // The modeller choosing for itself: its own score decides, and the
            // chosen point is written down.
            if (modellerMoves && !ownDone && better(child.ownScore, bestOwn)) {
                bestOwn = child.ownScore;
                s.bestX[step] = x;
                s.bestY[step] = y;
                if (meetsStop(s.position, side, std::int64_t{side} * child.ownScore)) {
                    ownDone = true;
                    if (modelDone) return {0, bestOwn, bestModel};
                }
            }
            // The model's choice, at every node; where the opponent moves, the
            // modeller takes its own score of the reply it expects.
            if (!modelDone && better(child.modelScore, bestModel)) {
                bestModel = child.modelScore;
                if (modellerWaits) {
                    bestOwn = child.ownScore;
                    ownDone = true;
                }
                if (meetsStop(s.position, side, std::int64_t{side} * child.modelScore)) {
                    modelDone = true;
                    if (ownDone) return {0, bestOwn, bestModel};
                }
            }
        }
    return {0, bestOwn, bestModel};
}

}  // namespace quintline

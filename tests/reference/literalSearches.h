#pragma once
// The four searches exactly as their node procedures read, step by step, with
// no shortcut of any kind: every node scans all 225 points, places and removes
// a stone per candidate and calls the evaluators itself. Slow on purpose; the
// tests and benchmarks hold the production searches against these.

#include <cstdint>

#include "players/playerA.h"
#include "players/playerB.h"
#include "players/searchSet.h"

namespace quintline::reference {

inline bool atLeastAWin(Score score) {
    return score >= winScore || score <= -winScore;
}

inline Score scaled(std::int16_t depth, Score score) {
    return static_cast<Score>(std::int64_t{depth + 1} * score);
}

// The stop rule for a score seen from the mover's side: a win, or a sure score
// while the mover holds no four in the node's position.
inline bool meetsStop(const Position& pos, Side side, std::int64_t moversScore) {
    return moversScore >= winScore ||
           (moversScore >= sureScore && pos.lineCensus[side + 1][4] == 0);
}

// Depth-limited search: value from black's view, chosen point at bestX/bestY[step].
template <Evaluator eval>
Score plain(SearchState& s, std::int16_t step, std::int16_t depth) {
    s.stepNum = step;                                                                  // 1
    const Score score = eval(s.position, s.stepNum, depth);                            // 2
    if (atLeastAWin(score) || depth == 0 || step == 225) return scaled(depth, score);  // 3
    const Side side = (step / 2) * 2 == step ? black : white;                          // 4
    Score best = -2147483647;                                                          // 5
    for (std::int16_t x = 1; x <= 15; ++x)                                             // 6
        for (std::int16_t y = 1; y <= 15; ++y) {
            if (s.position.nearCount[x][y] < 1 || s.position.board[x][y] != 0) continue;  // 6.1
            placeStone(s.position, x, y, side);                                           // 6.2
            const Score v = side * plain<eval>(s, static_cast<std::int16_t>(step + 1),
                                               static_cast<std::int16_t>(depth - 1));  // 6.3
            removeStone(s.position, x, y, side);                                       // 6.4
            if (v < best) continue;                                                    // 6.5
            best = v;                                                                  // 6.6
            s.bestX[step] = x;
            s.bestY[step] = y;
            if (meetsStop(s.position, side, v)) return side * v;  // 6.7
        }
    return side * best;  // 7
}

// Opponent-model search for the modeller of player kind `modeller`.
template <Evaluator ownEval, Evaluator modelEval, PlayerKind modeller>
nodeScores model(SearchState& s, std::int16_t step, std::int16_t depth) {
    s.stepNum = step;                                         // 1
    const Score own = ownEval(s.position, s.stepNum, depth);  // 2
    const Score mod = modelEval(s.position, s.stepNum, depth);
    if (depth == 0 || step == 225 || (atLeastAWin(own) && atLeastAWin(mod)))  // 3
        return {0, scaled(depth, own), scaled(depth, mod)};
    const Side side = (step / 2) * 2 == step ? black : white;  // 4
    bool ownDone = false;                                      // 5
    bool modelDone = false;
    Score bestOwn = side == black ? -2147483647 : 2147483647;
    Score bestModel = bestOwn;
    const bool modellerMoves = (side == black ? s.blackSide : s.whiteSide) == modeller;
    const bool modellerWaits = (side == black ? s.whiteSide : s.blackSide) == modeller;
    auto better = [side](Score a, Score b) { return side == black ? a > b : a < b; };
    for (std::int16_t x = 1; x <= 15; ++x)  // 6
        for (std::int16_t y = 1; y <= 15; ++y) {
            if (s.position.nearCount[x][y] < 1 || s.position.board[x][y] != 0) continue;
            placeStone(s.position, x, y, side);  // 6.1
            const nodeScores child =
                model<ownEval, modelEval, modeller>(s, static_cast<std::int16_t>(step + 1),
                                                    static_cast<std::int16_t>(depth - 1));  // 6.2
            removeStone(s.position, x, y, side);                                            // 6.3
            if (modellerMoves && !ownDone && better(child.ownScore, bestOwn)) {             // 6.4
                bestOwn = child.ownScore;
                s.bestX[step] = x;
                s.bestY[step] = y;
                if (meetsStop(s.position, side, std::int64_t{side} * child.ownScore)) {
                    ownDone = true;
                    if (modelDone) return {0, bestOwn, bestModel};
                }
            }
            if (!modelDone && better(child.modelScore, bestModel)) {  // 6.5
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
    return {0, bestOwn, bestModel};  // 7
}

inline constexpr auto searchA = &plain<evalA>;
inline constexpr auto searchB = &plain<evalB>;
inline constexpr auto searchAKnowsB = &model<evalA, evalB, aKnowsB>;
inline constexpr auto searchBKnowsA = &model<evalB, evalA, bKnowsA>;

// The literal searches as a set a game can be given in place of the production one.
inline SearchSet literalSearchSet() {
    return {searchA, searchB, searchAKnowsB, searchBKnowsA};
}

}  // namespace quintline::reference

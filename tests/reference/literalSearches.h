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

namespace detail {

constexpr Score startingBest = -2147483647;

inline Side colourOfCount(std::int16_t step) {
    return (step / 2) * 2 == step ? black : white;
}

inline bool emptyBesideAStone(const Position& pos, int x, int y) {
    return pos.nearCount[x][y] >= 1 && pos.board[x][y] == 0;
}

inline bool holdsAFour(const Position& pos, Side side) {
    return pos.lineCensus[side + 1][4] != 0;
}

inline Score scaled(std::int16_t depth, Score score) {
    return static_cast<Score>(std::int64_t{depth + 1} * score);
}

inline bool atLeastAWin(Score score) {
    return score >= winScore || score <= -winScore;
}

}  // namespace detail

// Depth-limited search: value from black's view, chosen point at bestX/bestY[step].
template <Evaluator evaluator>
Score literalPlain(SearchState& s, std::int16_t step, std::int16_t depth) {
    using namespace detail;
    s.stepNum = step;                                             // 1
    const Score score = evaluator(s.position, s.stepNum, depth);  // 2
    if (atLeastAWin(score) || depth == 0 || step == 225)          // 3
        return scaled(depth, score);
    const Side side = colourOfCount(step);    // 4
    Score best = startingBest;                // 5
    for (std::int16_t x = 1; x <= 15; ++x) {  // 6
        for (std::int16_t y = 1; y <= 15; ++y) {
            if (!emptyBesideAStone(s.position, x, y)) continue;  // 6.1
            placeStone(s.position, x, y, side);                  // 6.2
            const Score v =
                side * literalPlain<evaluator>(s, static_cast<std::int16_t>(step + 1),
                                               static_cast<std::int16_t>(depth - 1));  // 6.3
            removeStone(s.position, x, y, side);                                       // 6.4
            if (v < best) continue;                                                    // 6.5
            best = v;                                                                  // 6.6
            s.bestX[step] = x;
            s.bestY[step] = y;
            if (v >= winScore || (v >= sureScore && !holdsAFour(s.position, side)))  // 6.7
                return side * v;
        }
    }
    return side * best;  // 7
}

// Opponent-model search for the modeller of player kind `modeller`.
template <Evaluator ownEvaluator, Evaluator modelEvaluator, PlayerKind modeller>
nodeScores literalModel(SearchState& s, std::int16_t step, std::int16_t depth) {
    using namespace detail;
    s.stepNum = step;                                              // 1
    const Score own = ownEvaluator(s.position, s.stepNum, depth);  // 2
    const Score model = modelEvaluator(s.position, s.stepNum, depth);
    if (depth == 0 || step == 225 || (atLeastAWin(own) && atLeastAWin(model)))  // 3
        return {0, scaled(depth, own), scaled(depth, model)};
    const Side side = colourOfCount(step);  // 4
    bool ownDone = false;                   // 5
    bool modelDone = false;
    Score bestOwn = side == black ? startingBest : -startingBest;
    Score bestModel = bestOwn;
    const PlayerKind mover = side == black ? s.blackSide : s.whiteSide;
    const PlayerKind waiting = side == black ? s.whiteSide : s.blackSide;
    auto better = [side](Score a, Score b) { return side == black ? a > b : a < b; };
    auto meetsStop = [&](Score score) {
        const std::int64_t product = std::int64_t{score} * side;
        return product >= winScore || (product >= sureScore && !holdsAFour(s.position, side));
    };
    for (std::int16_t x = 1; x <= 15; ++x) {  // 6
        for (std::int16_t y = 1; y <= 15; ++y) {
            if (!emptyBesideAStone(s.position, x, y)) continue;
            placeStone(s.position, x, y, side);  // 6.1
            const nodeScores child = literalModel<ownEvaluator, modelEvaluator, modeller>(
                s, static_cast<std::int16_t>(step + 1),
                static_cast<std::int16_t>(depth - 1));  // 6.2
            removeStone(s.position, x, y, side);        // 6.3
            if (mover == modeller) {                    // 6.4
                if (!ownDone && better(child.ownScore, bestOwn)) {
                    bestOwn = child.ownScore;
                    s.bestX[step] = x;
                    s.bestY[step] = y;
                    if (meetsStop(child.ownScore)) {
                        ownDone = true;
                        if (modelDone) return {0, bestOwn, bestModel};
                    }
                }
            }
            if (!modelDone && better(child.modelScore, bestModel)) {  // 6.5
                bestModel = child.modelScore;
                if (waiting == modeller) {
                    bestOwn = child.ownScore;
                    ownDone = true;
                }
                if (meetsStop(child.modelScore)) {
                    modelDone = true;
                    if (ownDone) return {0, bestOwn, bestModel};
                }
            }
        }
    }
    return {0, bestOwn, bestModel};  // 7
}

inline Score searchA(SearchState& s, std::int16_t step, std::int16_t depth) {
    return literalPlain<evalA>(s, step, depth);
}
inline Score searchB(SearchState& s, std::int16_t step, std::int16_t depth) {
    return literalPlain<evalB>(s, step, depth);
}
inline nodeScores searchAKnowsB(SearchState& s, std::int16_t step, std::int16_t depth) {
    return literalModel<evalA, evalB, aKnowsB>(s, step, depth);
}
inline nodeScores searchBKnowsA(SearchState& s, std::int16_t step, std::int16_t depth) {
    return literalModel<evalB, evalA, bKnowsA>(s, step, depth);
}

// The literal searches as a set a game can be given in place of the production one.
inline SearchSet literalSearchSet() {
    SearchSet set;
    set.searchA = &reference::searchA;
    set.searchB = &reference::searchB;
    set.searchAKnowsB = &reference::searchAKnowsB;
    set.searchBKnowsA = &reference::searchBKnowsA;
    return set;
}

}  // namespace quintline::reference

#pragma once
// Opponent-model search: the modeller scores with its own evaluator and expects
// the opponent to play the move the opponent's evaluator prefers. Written once,
// instantiated for A knowing B and B knowing A.
//
// Both scores come out exactly as the literal procedure (opponentModelLiteral.h)
// gives them. What makes it fast is what that procedure never reads:
// - At an opponent's node only the child with the best model score (the first
//   of equals) passes its own score up. Each child is first searched for its
//   model score alone, with the best so far as a bound, so children that cannot
//   become the choice are cut off early; the own score is then worked out for
//   the chosen child only.
// - The model score is plain minimax with stop thresholds, so wherever the own
//   score is not needed the windowed nodes of the plain searches serve.

#include <cassert>
#include <cstdint>

#include "players/opponentModelLiteral.h"
#include "players/plainSearch.h"

namespace quintline {

namespace search {

template <class Own, class Model>
struct OpponentModel {
    using Rules = ModelRules<Own, Model>;

    // Both scores of a node, from its mover's view.
    struct Scores {
        Score own;
        Score model;
    };

    static bool isLeaf(const Position& pos, std::int16_t step, std::int16_t depth) {
        return depth == 0 || step == maxStones ||
               (reachesWin(Own::score(pos, step, depth)) &&
                reachesWin(Model::score(pos, step, depth)));
    }

    // Both evaluator scores of a leaf, from its mover's view.
    static Scores leafScores(const Position& pos, std::int16_t step, std::int16_t depth) {
        const Side side = moverAt(step);
        return {side * scaledScore(depth, Own::score(pos, step, depth)),
                side * scaledScore(depth, Model::score(pos, step, depth))};
    }

    // A node with the opponent to move: its exact model score, and the own score
    // of its first child with the best model score. Kept whole, as boundedNode.
    template <NodeKind kind>
    static Scores opponentNode(  // NOLINT(readability-function-cognitive-complexity)
        SearchState& s, std::int16_t step, std::int16_t depth) {
        Position& pos = s.position;
        ++s.nodesSearched;
        if (isLeaf(pos, step, depth)) return leafScores(pos, step, depth);
        const Side side = moverAt(step);
        const Score stop = stopThreshold(pos, side);
        CandidateList list;
        findCandidates(pos, list);
        Score best = -scoreInfinity;  // model score
        int chosen = -1;
        if (list.count == 0) return {best, best};  // only ever an empty board
        if constexpr (kind == NodeKind::frontier) {
            const CensusSummary summary = summarize<Model>(pos);
            s.nodesSearched += static_cast<std::uint64_t>(list.count);
            for (int i = 0; i < list.count; ++i) {
                const Score v = leafValue<Model>(pos, summary, list.points[i], side, step);
                if (v > best) {
                    best = v;
                    chosen = i;
                    if (v >= stop) break;
                }
            }
            if (chosen < 0) return {-scoreInfinity, best};
            const Point p = list.points[chosen];
            return {leafValue<Own>(pos, summarize<Own>(pos), p, side, step), best};
        } else {
            // The child the model's leaf score likes best, searched first and
            // exactly, gives a floor for the choice: children below it are cut off
            // early. A child before it in scan order that equals it is the choice.
            const int probe = favourite<Model>(pos, side, step, list);
            const CensusSummary modelSummary = summarize<Model>(pos);
            Point killer{};
            Score floor;
            {
                const Point p = list.points[probe];
                TrialStone stone(pos, p.x, p.y, side);
                floor = -windowValue<Rules>(s, oneMore(step), oneLess(depth), -scoreInfinity,
                                            scoreInfinity, &killer);
            }
            for (int i = 0; i < list.count; ++i) {
                const Score lower = std::max(childLowerBound(best, Ties::keepFirst, stop),
                                             childLowerBound(floor, Ties::takeLast, stop));
                assert(lower < stop);
                Score v = floor;
                if (i != probe) {
                    const Point p = list.points[i];
                    if (kind == NodeKind::beforeFrontier &&
                        killerCutsChild<Rules>(s, modelSummary, p, side, step, -lower, killer))
                        continue;
                    TrialStone stone(pos, p.x, p.y, side);
                    v = -windowValue<Rules>(s, oneMore(step), oneLess(depth), -scoreInfinity,
                                            -lower, &killer);
                }
                if (v > lower && v > best) {
                    best = v;
                    chosen = i;
                    if (v >= stop) break;
                }
            }
            if (chosen < 0) return {-scoreInfinity, best};
            const Point p = list.points[chosen];
            TrialStone stone(pos, p.x, p.y, side);
            return {-ownAtModeller(s, oneMore(step), oneLess(depth)), best};
        }
    }

    static Scores atOpponent(SearchState& s, std::int16_t step, std::int16_t depth) {
        return byKind(depth, [&](auto kind) { return opponentNode<kind.value>(s, step, depth); });
    }

    // The own score of a node below the root with the modeller to move.
    template <NodeKind kind>
    static Score modellerNode(SearchState& s, std::int16_t step, std::int16_t depth) {
        Position& pos = s.position;
        ++s.nodesSearched;
        if (isLeaf(pos, step, depth)) return leafScores(pos, step, depth).own;
        const Side side = moverAt(step);
        const Score stop = stopThreshold(pos, side);
        CandidateList list;
        findCandidates(pos, list);
        Score best = -scoreInfinity;
        const CensusSummary summary = summarize<Own>(pos);
        for (int i = 0; i < list.count; ++i) {
            const Point p = list.points[i];
            Score v;
            if constexpr (kind == NodeKind::frontier) {
                ++s.nodesSearched;
                v = leafValue<Own>(pos, summary, p, side, step);
            } else {
                TrialStone stone(pos, p.x, p.y, side);
                v = -atOpponent(s, oneMore(step), oneLess(depth)).own;
            }
            if (v > best) {
                best = v;
                if (v >= stop) break;
            }
        }
        return best;
    }

    static Score ownAtModeller(SearchState& s, std::int16_t step, std::int16_t depth) {
        return byKind(depth, [&](auto kind) { return modellerNode<kind.value>(s, step, depth); });
    }

    // Both scores of the root's child at p, from the root mover's view; only the
    // model score once `ownDone`, and that only where it is above `modelLower`.
    template <NodeKind kind>
    static Scores rootChild(SearchState& s, Point p, Side side, std::int16_t step,
                            std::int16_t depth, bool ownDone, Score modelLower) {
        Position& pos = s.position;
        if constexpr (kind == NodeKind::frontier) {
            s.nodesSearched += 1;
            const Score model = leafValue<Model>(pos, summarize<Model>(pos), p, side, step);
            if (ownDone) return {0, model};
            return {leafValue<Own>(pos, summarize<Own>(pos), p, side, step), model};
        } else {
            TrialStone stone(pos, p.x, p.y, side);
            if (!ownDone) {
                const Scores child = atOpponent(s, oneMore(step), oneLess(depth));
                return {-child.own, -child.model};
            }
            return {0, -windowValue<Rules>(s, oneMore(step), oneLess(depth), -scoreInfinity,
                                           -modelLower)};
        }
    }

    // The root, with the modeller to move; both scores from black's view.
    template <NodeKind kind>
    static nodeScores root(SearchState& s, std::int16_t step, std::int16_t depth) {
        Position& pos = s.position;
        s.stepNum = step;
        ++s.nodesSearched;
        if (isLeaf(pos, step, depth))
            return {0, scaledScore(depth, Own::score(pos, step, depth)),
                    scaledScore(depth, Model::score(pos, step, depth))};
        const Side side = moverAt(step);
        const Score stop = stopThreshold(pos, side);
        CandidateList list;
        findCandidates(pos, list);
        Score bestOwn = -scoreInfinity;
        Score bestModel = -scoreInfinity;
        bool ownDone = false;
        bool modelDone = false;
        int last = -1;
        for (int i = 0; i < list.count && !(ownDone && modelDone); ++i) {
            const Point p = list.points[i];
            last = i;
            const Score modelLower = childLowerBound(bestModel, Ties::keepFirst, stop);
            const Scores child = rootChild<kind>(s, p, side, step, depth, ownDone, modelLower);
            if (!ownDone && child.own > bestOwn) {
                bestOwn = child.own;
                s.bestX[step] = p.x;
                s.bestY[step] = p.y;
                ownDone = bestOwn >= stop;
            }
            if (!modelDone && child.model > bestModel) {
                bestModel = child.model;
                modelDone = bestModel >= stop;
            }
        }
        leaveStepNum(s, step, side, last < 0 ? nullptr : &list.points[last], [&] {
            return modelLastLine<OpponentModel>(s, oneMore(step), oneLess(depth), side);
        });
        return {0, side * bestOwn, side * bestModel};
    }
};

}  // namespace search

// Scores of the position with `step` stones searched `depth` plies deep for the
// modeller of player kind `modeller`, scoring with Own and modelling with Model.
// Leaves the position tables as it found them; writes the chosen point to
// bestX/bestY[step] as the literal procedure does; leaves stepNum at the stone
// count of the last node that procedure would enter. The fast search assumes
// the modeller is to move and the opponent is not a modeller of the same kind;
// other seatings go to the literal procedure.
template <class Own, class Model, PlayerKind modeller>
nodeScores opponentModelSearch(SearchState& s, std::int16_t step, std::int16_t depth) {
    assert(censusOk(s.position));
    const bool blackMoves = search::moverAt(step) == black;
    const PlayerKind mover = blackMoves ? s.blackSide : s.whiteSide;
    const PlayerKind waiting = blackMoves ? s.whiteSide : s.blackSide;
    if (mover != modeller || waiting == modeller)
        return literalOpponentModel<Own::score, Model::score, modeller>(s, step, depth);
    return search::byKind(depth, [&](auto kind) {
        return search::OpponentModel<Own, Model>::template root<kind.value>(s, step, depth);
    });
}

}  // namespace quintline

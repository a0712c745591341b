#pragma once
// Opponent-model search: the modeller scores with its own evaluator and expects
// the opponent to play the move the opponent's evaluator prefers. Written once,
// instantiated for A knowing B and B knowing A.
//
// Both scores come out exactly as the node-by-node procedure gives them. What
// makes it fast is what that procedure never reads:
// - At an opponent's node only the child with the best model score (the first
//   of equals) passes its own score up. Each child is first searched for its
//   model score alone, with the best so far as a bound, so children that cannot
//   become the choice are cut off early; the own score is then worked out for
//   the chosen child only.
// - The model score is plain minimax with stop thresholds, so wherever the own
//   score is not needed the windowed search of the plain searches serves.

#include <cstdint>

#include "players/opponentModelFallback.h"
#include "players/windowSearch.h"

namespace quintline {

namespace search {

template <class Own, class Model>
struct OpponentModel {
    using Rules = ModelRules<Own, Model>;

    // Both scores from black's view.
    struct Scores {
        Score own;
        Score model;
    };

    static bool isLeaf(std::int16_t step, std::int16_t depth, Score own, Score model) {
        return depth == 0 || step == maxStones || (reachesWin(own) && reachesWin(model));
    }

    // Starting value of a node's best score, from black's view.
    static Score worstFor(Side side) { return side == black ? -scoreInfinity : scoreInfinity; }

    // The node with the opponent to move: exact model score, and the own score of
    // the first child with the best model score.
    static Scores atOpponent(SearchState& s, std::int16_t step, std::int16_t depth) {
        Position& pos = s.position;
        ++s.nodesSearched;
        const Score own = Own::score(pos, step, depth);
        const Score model = Model::score(pos, step, depth);
        if (isLeaf(step, depth, own, model))
            return {scaledScore(depth, own), scaledScore(depth, model)};
        const Side side = moverAt(step);
        const Score stop = stopThreshold(pos, side);
        CandidateList list;
        findCandidates(pos, list);
        Score best = -scoreInfinity;  // model score, mover's view
        int chosen = -1;
        if (list.count == 0) return {worstFor(side), side * best};  // only ever an empty board
        if (depth == 1) {
            const CensusSummary summary = summarize<Model>(pos);
            s.nodesSearched += static_cast<std::uint64_t>(list.count);
            for (int i = 0; i < list.count; ++i) {
                const Point p = list.points[i];
                const Score v =
                    side * leafScoreAfter<Model>(pos, summary, p.x, p.y, side, oneMore(step));
                if (v > best) {
                    best = v;
                    chosen = i;
                    if (v >= stop) break;
                }
            }
            if (chosen < 0) return {worstFor(side), side * best};
            const Point p = list.points[chosen];
            return {leafScoreAfter<Own>(pos, summarize<Own>(pos), p.x, p.y, side, oneMore(step)),
                    side * best};
        }
        // The child the model's leaf score likes best, searched first and exactly,
        // gives a floor for the choice: children below it are cut off early.
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
            // Only a strictly better child can become the choice.
            const Score lower = std::min(std::max(best, floor - 1), stop - 1);
            Score v = floor;
            if (i != probe) {
                const Point p = list.points[i];
                if (depth == 2 &&
                    killerCutsChild<Rules>(s, modelSummary, p, side, step, -lower, killer))
                    continue;
                TrialStone stone(pos, p.x, p.y, side);
                v = -windowValue<Rules>(s, oneMore(step), oneLess(depth), -scoreInfinity, -lower,
                                        &killer);
            }
            if (v > lower && v > best) {
                best = v;
                chosen = i;
                if (v >= stop) break;
            }
        }
        if (chosen < 0) return {worstFor(side), side * best};
        const Point p = list.points[chosen];
        TrialStone stone(pos, p.x, p.y, side);
        return {ownAtModeller(s, oneMore(step), oneLess(depth)), side * best};
    }

    // The own score of a node with the modeller to move.
    static Score ownAtModeller(SearchState& s, std::int16_t step, std::int16_t depth) {
        Position& pos = s.position;
        ++s.nodesSearched;
        const Score own = Own::score(pos, step, depth);
        const Score model = Model::score(pos, step, depth);
        if (isLeaf(step, depth, own, model)) return scaledScore(depth, own);
        const Side side = moverAt(step);
        const Score stop = stopThreshold(pos, side);
        CandidateList list;
        findCandidates(pos, list);
        Score best = -scoreInfinity;  // own score, mover's view
        const CensusSummary summary = summarize<Own>(pos);
        for (int i = 0; i < list.count; ++i) {
            const Point p = list.points[i];
            Score v;
            if (depth == 1) {
                ++s.nodesSearched;
                v = side * leafScoreAfter<Own>(pos, summary, p.x, p.y, side, oneMore(step));
            } else {
                TrialStone stone(pos, p.x, p.y, side);
                v = side * atOpponent(s, oneMore(step), oneLess(depth)).own;
            }
            if (v > best) {
                best = v;
                if (v >= stop) break;
            }
        }
        return side * best;
    }

    // Both scores of a child of the root (the modeller's node) at point p, and
    // only the model score once `ownDone`.
    static Scores rootChild(SearchState& s, Point p, Side side, std::int16_t step,
                            std::int16_t depth, bool ownDone, Score bestModel) {
        Position& pos = s.position;
        if (depth == 1) {
            s.nodesSearched += 1;
            const Score model =
                leafScoreAfter<Model>(pos, summarize<Model>(pos), p.x, p.y, side, oneMore(step));
            if (ownDone) return {0, model};
            return {leafScoreAfter<Own>(pos, summarize<Own>(pos), p.x, p.y, side, oneMore(step)),
                    model};
        }
        TrialStone stone(pos, p.x, p.y, side);
        if (!ownDone) return atOpponent(s, oneMore(step), oneLess(depth));
        return {0, -side * windowValue<Rules>(s, oneMore(step), oneLess(depth), -scoreInfinity,
                                              -bestModel)};
    }

    // Stones the literal procedure's last line of play adds below the node with
    // `step` stones (its stone already placed); see plainPathLength. At the
    // modeller's nodes the scan ends once both scores have met the stop rule.
    static int pathLength(SearchState& s, std::int16_t step, std::int16_t depth, Side modeller) {
        Position& pos = s.position;
        const Score own = Own::score(pos, step, depth);
        const Score model = Model::score(pos, step, depth);
        if (isLeaf(step, depth, own, model)) return 0;
        if (depth == 1 || noFiveWithin(pos, step, depth)) return depth;
        const Side side = moverAt(step);
        const Score stop = stopThreshold(pos, side);
        CandidateList list;
        findCandidates(pos, list);
        bool ownDone = side != modeller;
        bool modelDone = false;
        for (int i = 0; i < list.count; ++i) {
            const Point p = list.points[i];
            TrialStone stone(pos, p.x, p.y, side);
            if (!ownDone) ownDone = side * atOpponent(s, oneMore(step), oneLess(depth)).own >= stop;
            if (!modelDone)
                modelDone = -windowValue<Rules>(s, oneMore(step), oneLess(depth), -stop,
                                                -(stop - 1)) >= stop;
            if (i + 1 == list.count || (ownDone && modelDone))
                return 1 + pathLength(s, oneMore(step), oneLess(depth), modeller);
        }
        return 0;
    }

    // The root, with the modeller to move.
    static nodeScores root(SearchState& s, std::int16_t step, std::int16_t depth) {
        Position& pos = s.position;
        s.stepNum = step;
        ++s.nodesSearched;
        const Score own = Own::score(pos, step, depth);
        const Score model = Model::score(pos, step, depth);
        if (isLeaf(step, depth, own, model))
            return {0, scaledScore(depth, own), scaledScore(depth, model)};
        const Side side = moverAt(step);
        const Score stop = stopThreshold(pos, side);
        CandidateList list;
        findCandidates(pos, list);
        Score bestOwn = -scoreInfinity;  // mover's view, like bestModel
        Score bestModel = -scoreInfinity;
        bool ownDone = false;
        bool modelDone = false;
        int last = -1;
        for (int i = 0; i < list.count && !(ownDone && modelDone); ++i) {
            const Point p = list.points[i];
            last = i;
            const Scores child = rootChild(s, p, side, step, depth, ownDone, bestModel);
            if (!ownDone && side * child.own > bestOwn) {
                bestOwn = side * child.own;
                s.bestX[step] = p.x;
                s.bestY[step] = p.y;
                ownDone = bestOwn >= stop;
            }
            if (!modelDone && side * child.model > bestModel) {
                bestModel = side * child.model;
                modelDone = bestModel >= stop;
            }
        }
        if (last >= 0) {
            const Point p = list.points[last];
            TrialStone stone(pos, p.x, p.y, side);
            s.stepNum = static_cast<std::int16_t>(
                step + 1 + pathLength(s, oneMore(step), oneLess(depth), side));
        }
        return {0, side * bestOwn, side * bestModel};
    }
};

}  // namespace search

// Scores of the position with `step` stones searched `depth` plies deep for the
// modeller of player kind `modeller`, scoring with Own and modelling with Model.
// Leaves the position tables as it found them; writes the chosen point to
// bestX/bestY[step] as the node-by-node procedure does; leaves stepNum at the
// stone count of the last node that procedure would enter.
template <class Own, class Model, PlayerKind modeller>
nodeScores opponentModelSearch(SearchState& s, std::int16_t step, std::int16_t depth) {
    const bool blackMoves = search::moverAt(step) == black;
    const PlayerKind mover = blackMoves ? s.blackSide : s.whiteSide;
    const PlayerKind waiting = blackMoves ? s.whiteSide : s.blackSide;
    if (mover != modeller || waiting == modeller)
        return opponentModelNodeByNode<Own::score, Model::score, modeller>(s, step, depth);
    return search::OpponentModel<Own, Model>::root(s, step, depth);
}

}  // namespace quintline

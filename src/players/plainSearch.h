#pragma once
// Fixed-depth minimax over the empty points beside a stone, written once and
// instantiated per evaluator (searchA with evalA, searchB with evalB).
//
// Gives exactly what the plain node-by-node procedure gives: the same value,
// the same chosen point (the last of equal values, or the first candidate that
// reaches the stop threshold), and the same stepNum afterwards. Below the root
// it searches with windows instead of taking every node's exact value; the
// opponent-model search uses the same windowed nodes for its model score.
//
// A node's value, from the mover's view, is that of the first candidate in scan
// order reaching the node's stop threshold T (winScore when the mover already
// holds a four, sureScore otherwise), or else the largest child value. So a
// node's value is never below its best child so far, which makes cut-offs on
// the upper bound safe; and whether a child reaches T is decided exactly as
// long as every lower bound passed down stays below T.

#include <cassert>
#include <cstdint>

#include "players/lastLine.h"
#include "players/searchNode.h"

namespace quintline {

namespace search {

// Value of a node of `kind` with `step` stones and `depth` plies left, from its
// mover's view, searched with the window (alpha, beta), alpha < beta:
//   result >= beta : the value is at least beta (the result is then beta);
//   result <= alpha: the value is at most the result;
//   otherwise      : the result is the value.
// Leaves the position tables as it found them; writes neither stepNum nor the
// chosen points. `killer`, shared by siblings, remembers a leaf point that
// cut off a frontier node.
//
// With beta at or below the stop threshold the value no longer depends on the
// order of the children: a child reaching the threshold fails high anyway, and
// below it the value is the plain maximum. Then the children most promising
// for the mover go first.
// One node procedure read top-down in the order of its steps, kept whole on
// purpose: split, the steps would no longer read as one node.
template <class Rules, NodeKind kind>
Score boundedNode(  // NOLINT(readability-function-cognitive-complexity)
    SearchState& s, std::int16_t step, std::int16_t depth, Score alpha, Score beta, Point* killer) {
    using Eval = typename Rules::Scorer;
    assert(alpha < beta);
    Position& pos = s.position;
    ++s.nodesSearched;
    const Side side = moverAt(step);
    const Score score = Eval::score(pos, step, depth);
    if (depth == 0 || step == maxStones || Rules::finished(pos, step, depth, score))
        return side * scaledScore(depth, score);
    const Score stop = stopThreshold(pos, side);
    const CensusSummary summary = summarize<Eval>(pos);
    Score best = -scoreInfinity;

    if constexpr (kind == NodeKind::frontier) {
        const CandidateSet candidates = findCandidates(pos);
        auto leaf = [&](Point p) {
            ++s.nodesSearched;
            return leafValue<Eval>(pos, summary, p, side, step);
        };
        // The point that cut off a sibling is tried first, where order is free.
        Point tried{};
        if (killer != nullptr && beta <= stop && candidates.contains(*killer)) {
            tried = *killer;
            best = leaf(tried);
            if (best >= beta) return beta;
        }
        candidates.forEach([&](Point p) {
            if (p == tried) return true;
            const Score v = leaf(p);
            if (v >= beta) {
                best = beta;
                if (killer != nullptr) *killer = p;
                return false;
            }
            if (v > best) best = v;
            return v < stop;  // a leaf reaching the threshold settles the node
        });
        return best;
    } else {
        // One child; false once the node's value is settled.
        Point childKiller{};
        auto tryChild = [&](Point p) {
            const Score lower = childLowerBound(std::max(alpha, best), Ties::keepFirst, stop);
            assert(lower < beta && lower < stop);
            Score v = lower;  // the child reaching -lower makes this an upper bound
            if (kind != NodeKind::beforeFrontier ||
                !killerCutsChild<Rules>(s, summary, p, side, step, -lower, childKiller)) {
                TrialStone stone(pos, p.x, p.y, side);
                v = -windowValue<Rules>(s, oneMore(step), oneLess(depth), -beta, -lower,
                                        &childKiller);
            }
            if (v >= beta) {
                best = beta;
                return false;
            }
            if (v > best) best = v;
            return v < stop;
        };
        if (beta <= stop) {
            OrderedCandidates list;
            orderByLeafScore<Eval>(pos, side, step, list);
            for (int i = 0; i < list.count; ++i)
                if (!tryChild(list.entries[i].point)) break;
        } else {
            findCandidates(pos).forEach(tryChild);
        }
        return best;
    }
}

template <class Rules>
Score windowValue(SearchState& s, std::int16_t step, std::int16_t depth, Score alpha, Score beta,
                  Point* killer) {
    return byKind(depth, [&](auto kind) {
        return boundedNode<Rules, kind.value>(s, step, depth, alpha, beta, killer);
    });
}

// The root: exact value, the chosen point and the stepNum the literal procedure
// leaves; from black's view.
template <class Eval, NodeKind kind>
Score plainRoot(SearchState& s, std::int16_t step, std::int16_t depth) {
    using Rules = PlainRules<Eval>;
    Position& pos = s.position;
    assert(censusOk(pos));
    s.stepNum = step;
    ++s.nodesSearched;
    const Score score = Eval::score(pos, step, depth);
    if (reachesWin(score) || depth == 0 || step == maxStones) return scaledScore(depth, score);

    const Side side = moverAt(step);
    const Score stop = stopThreshold(pos, side);
    CandidateList list;
    findCandidates(pos, list);
    const CensusSummary summary = summarize<Eval>(pos);
    // The child the evaluator likes best as a leaf, searched first and exactly:
    // the root's value is at least its value, so children below it are only
    // proved to be below.
    int probe = -1;
    Score floor = -scoreInfinity;
    Point killer{};
    if (kind != NodeKind::frontier && list.count > 0) {
        probe = favourite<Eval>(pos, side, step, list);
        const Point p = list.points[probe];
        TrialStone stone(pos, p.x, p.y, side);
        floor = -windowValue<Rules>(s, oneMore(step), oneLess(depth), -scoreInfinity, scoreInfinity,
                                    &killer);
    }
    Score best = -scoreInfinity;
    int last = -1;
    for (int i = 0; i < list.count; ++i) {
        const Point p = list.points[i];
        last = i;
        const Score lower = childLowerBound(std::max(best, floor), Ties::takeLast, stop);
        assert(lower < stop);
        Score v = floor;
        if constexpr (kind == NodeKind::frontier) {
            ++s.nodesSearched;
            v = leafValue<Eval>(pos, summary, p, side, step);
        } else if (i != probe) {
            if (kind == NodeKind::beforeFrontier &&
                killerCutsChild<Rules>(s, summary, p, side, step, -lower, killer)) {
                v = lower;
            } else {
                TrialStone stone(pos, p.x, p.y, side);
                v = -windowValue<Rules>(s, oneMore(step), oneLess(depth), -scoreInfinity, -lower,
                                        &killer);
            }
        }
        const bool exact = lower == -scoreInfinity || v > lower;
        if (exact && v >= best) {
            best = v;
            s.bestX[step] = p.x;
            s.bestY[step] = p.y;
        }
        if (v >= stop) break;
    }
    leaveStepNum(s, step, side, last < 0 ? nullptr : &list.points[last],
                 [&] { return plainLastLine<Rules>(s, oneMore(step), oneLess(depth)); });
    return side * best;
}

}  // namespace search

// Value of the position with `step` stones searched `depth` plies deep, from
// black's view. Leaves the position tables as it found them; writes the chosen
// point to bestX/bestY[step] unless the root is a leaf or has no candidate;
// leaves stepNum at the stone count of the last node the literal procedure
// would enter. Entries of bestX/bestY above `step` are left undefined.
template <class Eval>
Score plainSearch(SearchState& s, std::int16_t step, std::int16_t depth) {
    return search::byKind(
        depth, [&](auto kind) { return search::plainRoot<Eval, kind.value>(s, step, depth); });
}

}  // namespace quintline

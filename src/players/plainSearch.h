#pragma once
// Fixed-depth minimax over the empty points beside a stone, written once and
// instantiated per evaluator (searchA with evalA, searchB with evalB).
//
// Gives exactly what the plain node-by-node procedure gives: the same value,
// the same chosen point (the last of equal values, or the first candidate that
// reaches the stop threshold), and the same stepNum afterwards. Below the root
// it searches with windows instead of taking every node's exact value.

#include <cstdint>

#include "players/windowSearch.h"

namespace quintline {

namespace search {

// Stones the literal procedure's last line of play adds below the node with
// `step` stones and `depth` plies left (the node's stone already placed): at
// each node that line continues into the candidate where the scan stopped,
// or else into the last candidate.
template <class Rules>
int plainPathLength(SearchState& s, std::int16_t step, std::int16_t depth) {
    using Eval = typename Rules::Scorer;
    Position& pos = s.position;
    const Score score = Eval::score(pos, step, depth);
    if (depth == 0 || step == maxStones || Rules::finished(pos, step, depth, score)) return 0;
    if (depth == 1 || noFiveWithin(pos, step, depth)) return depth;
    const Side side = moverAt(step);
    const Score stop = stopThreshold(pos, side);
    CandidateList list;
    findCandidates(pos, list);
    for (int i = 0; i < list.count; ++i) {
        const Point p = list.points[i];
        TrialStone stone(pos, p.x, p.y, side);
        if (i + 1 == list.count ||
            -windowValue<Rules>(s, oneMore(step), oneLess(depth), -stop, -(stop - 1)) >= stop)
            return 1 + plainPathLength<Rules>(s, oneMore(step), oneLess(depth));
    }
    return 0;
}

}  // namespace search

// Value of the position with `step` stones searched `depth` plies deep, from
// black's view. Leaves the position tables as it found them; writes the chosen
// point to bestX/bestY[step] unless the root is a leaf or has no candidate;
// leaves stepNum at the stone count of the last node the literal procedure
// would enter. Entries of bestX/bestY above `step` are left undefined.
template <class Eval>
Score plainSearch(SearchState& s, std::int16_t step, std::int16_t depth) {
    using namespace search;
    using Rules = PlainRules<Eval>;
    Position& pos = s.position;
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
    const int probe = depth == 1 || list.count == 0 ? -1 : favourite<Eval>(pos, side, step, list);
    Score floor = -scoreInfinity;
    Point killer{};
    if (probe >= 0) {
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
        // One below the larger of best and floor: a later equal value must be seen
        // exactly, as the last of equals is chosen; below the stop threshold, so
        // that the first child reaching it is seen exactly too.
        const Score atLeast = std::max(best, floor);
        const Score lower =
            atLeast == -scoreInfinity ? -scoreInfinity : std::min(atLeast - 1, stop - 1);
        Score v = floor;
        if (depth == 1) {
            ++s.nodesSearched;
            v = side * leafScoreAfter<Eval>(pos, summary, p.x, p.y, side, oneMore(step));
        } else if (i != probe) {
            if (depth == 2 && killerCutsChild<Rules>(s, summary, p, side, step, -lower, killer)) {
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
    if (last >= 0) {
        const Point p = list.points[last];
        TrialStone stone(pos, p.x, p.y, side);
        s.stepNum = static_cast<std::int16_t>(
            step + 1 + plainPathLength<Rules>(s, oneMore(step), oneLess(depth)));
    }
    return side * best;
}

}  // namespace quintline

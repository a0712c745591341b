#pragma once
// What every node of the fast searches shares: the mover and its stop
// threshold, the kinds of node by remaining depth, the lower bound a child is
// searched with, the rules that end a search early, and the move orderings.
//
// Inside a node every score is from the mover's view: evaluator scores (black's
// view) are turned round where a node reads them, and a search's public entry
// turns its result back to black's view. A child's value is the negation of
// the value the child returns.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <type_traits>

#include "players/candidates.h"
#include "players/leafScore.h"
#include "players/searchState.h"

namespace quintline::search {

inline Side moverAt(std::int16_t step) {
    return sideToMove(static_cast<std::int16_t>(step + 1));
}

// Mover's values at or above this end a node's scan.
inline Score stopThreshold(const Position& pos, Side side) {
    return pos.census(side, 4) == 0 ? sureScore : winScore;
}

inline Score scaledScore(std::int16_t depth, Score score) {
    return static_cast<Score>(std::int64_t{depth + 1} * score);
}

inline bool reachesWin(Score score) {
    return score >= winScore || score <= -winScore;
}

inline std::int16_t oneMore(std::int16_t n) {
    return static_cast<std::int16_t>(n + 1);
}
inline std::int16_t oneLess(std::int16_t n) {
    return static_cast<std::int16_t>(n - 1);
}

// Nodes by what their children are. Chosen once from the remaining depth where
// a node is entered, so the procedures never test the depth themselves.
enum class NodeKind {
    frontier,        // depth 1: the children are leaves, scored from the census
    beforeFrontier,  // depth 2: a child may be settled by one remembered leaf
    inner,           // deeper
};

template <NodeKind kind>
using KindTag = std::integral_constant<NodeKind, kind>;

// Calls node(KindTag<kind>{}) with the kind of a node with `depth` plies left;
// depth 0 goes to `inner`, whose leaf test ends it at once.
template <class Node>
decltype(auto) byKind(std::int16_t depth, Node&& node) {
    switch (depth) {
        case 1:
            return node(KindTag<NodeKind::frontier>{});
        case 2:
            return node(KindTag<NodeKind::beforeFrontier>{});
        default:
            return node(KindTag<NodeKind::inner>{});
    }
}

// Which of equal child values a node chooses.
enum class Ties {
    keepFirst,  // a later child must be strictly better
    takeLast,   // a later equal child replaces the choice
};

// The lower bound a child is searched with when `seen` (mover's view) is the
// value the child has to beat: a child at or below the bound only proves it
// does not beat it. Under takeLast an equal child has to be seen exactly, so the
// bound is one lower. The bound stays below the stop threshold so that the
// first child reaching the threshold is seen exactly too.
inline Score childLowerBound(Score seen, Ties ties, Score stop) {
    if (seen == -scoreInfinity) return -scoreInfinity;
    const Score beaten = ties == Ties::takeLast ? seen - 1 : seen;
    return std::min(beaten, stop - 1);
}

// When a node is finished before its depth runs out: a search over one
// evaluator stops at a five of that evaluator.
template <class Eval>
struct PlainRules {
    using Scorer = Eval;
    static bool finished(const Position&, std::int16_t, std::int16_t, Score score) {
        return reachesWin(score);
    }
};

// The opponent-model search stops only where both evaluators see a five.
template <class Own, class Model>
struct ModelRules {
    using Scorer = Model;
    static bool finished(const Position& pos, std::int16_t step, std::int16_t depth, Score score) {
        return reachesWin(score) && reachesWin(Own::score(pos, step, depth));
    }
};

// True when the child reached by a stone of `side` at p, a frontier node,
// reaches `childBeta` (its mover's view) by the leaf at `killer` alone. Worked
// out from the census without placing either stone; `node` summarizes the
// current position for the rules' evaluator. False proves nothing: the child
// has to be searched.
template <class Rules>
bool killerCutsChild(SearchState& s, const CensusSummary& node, Point p, Side side,
                     std::int16_t step, Score childBeta, Point killer) {
    using Eval = typename Rules::Scorer;
    Position& pos = s.position;
    if (killer.x == 0 || killer == p || step + 1 >= maxStones) return false;
    if (pos.board[killer.x][killer.y] != empty) return false;
    const bool beside = std::abs(killer.x - p.x) <= 1 && std::abs(killer.y - p.y) <= 1;
    if (pos.nearCount[killer.x][killer.y] == 0 && !beside) return false;
    const CensusSummary child = summaryAfter<Eval>(pos, node, p.x, p.y, side);
    // A five may finish the child before its depth runs out.
    if (child.five[0] != 0 || child.five[2] != 0) return false;
    // Past the stop threshold the order of the leaves matters.
    const Side mover = static_cast<Side>(-side);
    if (childBeta > (child.four[sideRow(mover)] == 0 ? sureScore : winScore)) return false;
    LineCodesWith first(pos, p.x, p.y, side);
    const Score v =
        mover * leafScoreAfter<Eval>(pos, child, killer.x, killer.y, mover, oneMore(oneMore(step)));
    if (v < childBeta) return false;
    s.nodesSearched += 2;
    return true;
}

// The mover's score of the leaf reached by a stone at p.
template <class Eval>
Score leafValue(const Position& pos, const CensusSummary& node, Point p, Side side,
                std::int16_t step) {
    return side * leafScoreAfter<Eval>(pos, node, p.x, p.y, side, oneMore(step));
}

// Candidates with the mover's score of each child as a leaf, best first.
struct OrderedCandidates {
    struct Entry {
        Score key;
        Point point;
    };
    Entry entries[maxStones];
    int count = 0;
};

template <class Eval>
void orderByLeafScore(const Position& pos, Side side, std::int16_t step, OrderedCandidates& list) {
    const CensusSummary summary = summarize<Eval>(pos);
    list.count = 0;
    findCandidates(pos).forEach([&](Point p) {
        list.entries[list.count++] = {leafValue<Eval>(pos, summary, p, side, step), p};
        return true;
    });
    std::sort(list.entries, list.entries + list.count,
              [](const OrderedCandidates::Entry& a, const OrderedCandidates::Entry& b) {
                  return a.key > b.key;
              });
}

// Index in `list` of the first candidate whose child has the mover's best score
// as a leaf.
template <class Eval>
int favourite(const Position& pos, Side side, std::int16_t step, const CandidateList& list) {
    const CensusSummary summary = summarize<Eval>(pos);
    int best = 0;
    Score bestKey = -scoreInfinity;
    for (int i = 0; i < list.count; ++i) {
        const Score key = leafValue<Eval>(pos, summary, list.points[i], side, step);
        if (key > bestKey) {
            bestKey = key;
            best = i;
        }
    }
    return best;
}

}  // namespace quintline::search

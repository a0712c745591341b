#pragma once
// The value of a node searched with a window, shared by the plain searches and
// by the opponent-model search wherever only the model's score is needed.
//
// A node's value, from the mover's view, is that of the first candidate in scan
// order reaching the node's stop threshold T (winScore when the mover already
// holds a four, sureScore otherwise), or else the largest child value. So a
// node's value is never below its best child so far, which makes cut-offs on
// the upper bound safe; and whether a child reaches T is decided exactly as
// long as every lower bound passed down stays below T.

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "players/candidates.h"
#include "players/leafScore.h"
#include "players/searchState.h"

namespace quintline::search {

inline Side moverAt(std::int16_t step) {
    return (step / 2) * 2 == step ? black : white;
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

// True when no node strictly between this one and the depth horizon can be a
// finished one: no five stands, none can be completed by the stones each side
// still places before the horizon, and the board cannot fill up. Then the last
// line of play a literal scan enters runs the full depth.
inline bool noFiveWithin(const Position& pos, std::int16_t step, std::int16_t depth) {
    if (pos.census(black, 5) != 0 || pos.census(white, 5) != 0) return false;
    if (step + depth - 1 >= maxStones) return false;
    // Stones each side places at the nodes above the horizon: the mover the odd
    // plies, the other side the even ones.
    const int plies = depth - 1;
    const Side mover = moverAt(step);
    const Side sides[2] = {mover, static_cast<Side>(-mover)};
    const int moves[2] = {(plies + 1) / 2, plies / 2};
    for (int i = 0; i < 2; ++i) {
        if (moves[i] >= lineLength) return false;
        for (int k = lineLength - moves[i]; k < lineLength; ++k)
            if (pos.census(sides[i], k) != 0) return false;
    }
    return true;
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

// True when the child reached by a stone of `side` at p, a node with depth 1,
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
        list.entries[list.count++] = {
            static_cast<Score>(side *
                               leafScoreAfter<Eval>(pos, summary, p.x, p.y, side, oneMore(step))),
            p};
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
        const Point p = list.points[i];
        const Score key = side * leafScoreAfter<Eval>(pos, summary, p.x, p.y, side, oneMore(step));
        if (key > bestKey) {
            bestKey = key;
            best = i;
        }
    }
    return best;
}

// Value of the node with `step` stones and `depth` plies left, from its mover's
// view, searched with the window (alpha, beta), alpha < beta:
//   result >= beta : the value is at least beta (the result is then beta);
//   result <= alpha: the value is at most the result;
//   otherwise      : the result is the value.
// Leaves the position tables as it found them; writes neither stepNum nor the
// chosen points. `killer`, shared by siblings, remembers a leaf point that
// cut off a node with depth 1.
//
// With beta at or below the stop threshold the value no longer depends on the
// order of the children: a child reaching the threshold fails high anyway, and
// below it the value is the plain maximum. Then the children most promising
// for the mover go first.
template <class Rules>
Score windowValue(SearchState& s, std::int16_t step, std::int16_t depth, Score alpha, Score beta,
                  Point* killer = nullptr) {
    using Eval = typename Rules::Scorer;
    Position& pos = s.position;
    ++s.nodesSearched;
    const Side side = moverAt(step);
    const Score score = Eval::score(pos, step, depth);
    if (depth == 0 || step == maxStones || Rules::finished(pos, step, depth, score))
        return side * scaledScore(depth, score);
    const Score stop = stopThreshold(pos, side);
    Score best = -scoreInfinity;

    if (depth == 1) {
        // Children are leaves: scored from the census without placing a stone.
        const CensusSummary summary = summarize<Eval>(pos);
        const CandidateSet candidates = findCandidates(pos);
        auto leafValue = [&](Point p) {
            ++s.nodesSearched;
            return side * leafScoreAfter<Eval>(pos, summary, p.x, p.y, side, oneMore(step));
        };
        // The point that cut off a sibling is tried first, where order is free.
        Point tried{};
        if (killer != nullptr && beta <= stop && candidates.contains(*killer)) {
            tried = *killer;
            best = leafValue(tried);
            if (best >= beta) return beta;
        }
        candidates.forEach([&](Point p) {
            if (p == tried) return true;
            const Score v = leafValue(p);
            if (v >= beta) {
                best = beta;
                if (killer != nullptr) *killer = p;
                return false;
            }
            if (v > best) best = v;
            return v < stop;
        });
        return best;
    }

    // One child; false once the node's value is settled.
    Point childKiller{};
    const CensusSummary summary = summarize<Eval>(pos);
    auto tryChild = [&](Point p) {
        const Score lower = std::min(std::max(alpha, best), stop - 1);
        Score v = lower;  // the child reaching -lower makes this an upper bound
        if (depth != 2 || !killerCutsChild<Rules>(s, summary, p, side, step, -lower, childKiller)) {
            TrialStone stone(pos, p.x, p.y, side);
            v = -windowValue<Rules>(s, oneMore(step), oneLess(depth), -beta, -lower, &childKiller);
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

}  // namespace quintline::search

#pragma once
// The stone count a search leaves in stepNum: that of the last node the literal
// procedure enters. That node ends the procedure's last line of play: at each
// node the line goes on into the candidate where the scan stopped, or else into
// the last candidate. The fast searches retrace that line after their own scan,
// with null-window probes where the literal scan would have stopped early.

#include <cstdint>

#include "players/searchNode.h"

namespace quintline::search {

template <class Rules>
Score windowValue(SearchState& s, std::int16_t step, std::int16_t depth, Score alpha, Score beta,
                  Point* killer = nullptr);

// True when no node strictly between this one and the depth horizon can be a
// finished one: no five stands, none can be completed by the stones each side
// still places before the horizon, and the board cannot fill up. Then the last
// line of play runs the full depth.
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

// True when the mover's value of the child on the board reaches `stop`.
template <class Rules>
bool childReaches(SearchState& s, std::int16_t childStep, std::int16_t childDepth, Score stop) {
    return -windowValue<Rules>(s, childStep, childDepth, -stop, -(stop - 1)) >= stop;
}

// Stones the plain procedure's last line adds below the node with `step` stones
// and `depth` plies left (the node's stone already placed).
template <class Rules>
int plainLastLine(SearchState& s, std::int16_t step, std::int16_t depth) {
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
        if (i + 1 == list.count || childReaches<Rules>(s, oneMore(step), oneLess(depth), stop))
            return 1 + plainLastLine<Rules>(s, oneMore(step), oneLess(depth));
    }
    return 0;
}

// The same for the opponent-model procedure of `Search`: at the modeller's
// nodes its scan ends only once both scores have met the stop rule.
template <class Search>
int modelLastLine(SearchState& s, std::int16_t step, std::int16_t depth, Side modeller) {
    using Rules = typename Search::Rules;
    Position& pos = s.position;
    if (Search::isLeaf(pos, step, depth)) return 0;
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
        if (!ownDone) ownDone = -Search::atOpponent(s, oneMore(step), oneLess(depth)).own >= stop;
        if (!modelDone) modelDone = childReaches<Rules>(s, oneMore(step), oneLess(depth), stop);
        if (i + 1 == list.count || (ownDone && modelDone))
            return 1 + modelLastLine<Search>(s, oneMore(step), oneLess(depth), modeller);
    }
    return 0;
}

// Sets stepNum after a root with `step` stones whose scan ended at `last` (none
// when it had no candidate); `below` gives the stones the last line adds under
// the root's child, with that child's stone placed.
template <class Below>
void leaveStepNum(SearchState& s, std::int16_t step, Side side, const Point* last, Below&& below) {
    if (last == nullptr) return;
    TrialStone stone(s.position, last->x, last->y, side);
    s.stepNum = static_cast<std::int16_t>(step + 1 + below());
}

}  // namespace quintline::search

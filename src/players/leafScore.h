#pragma once
// The score of a child that is a leaf (depth 0), worked out from the lines
// through its point without placing the stone: a stone changes only the census
// entries of those lines, so the node's base sum and its counts of fours and
// fives are adjusted line by line. Gives exactly what placeStone followed by
// the evaluator gives.

#include <array>
#include <cstdint>

#include "players/evaluation.h"

namespace quintline {

// What a node's position contributes to the score of each of its children.
struct CensusSummary {
    std::int64_t base = 0;
    int four[3] = {};  // by sideRow
    int five[3] = {};
};

template <class Eval>
CensusSummary summarize(const Position& pos) {
    CensusSummary sum;
    sum.base = Eval::baseSum(pos);
    for (int row = 0; row <= 2; row += 2) {
        sum.four[row] = pos.lineCensus[row][4];
        sum.five[row] = pos.lineCensus[row][5];
    }
    return sum;
}

namespace leaf {

// Effect of the mover's stone on one line through an empty point, by the
// stones the line already holds: the change of the base sum from the mover's
// view, and the changes of the mover's fours and fives and the other side's
// fours, one byte each (added up over the lines, then read back with a bias).
struct LineEffect {
    std::int32_t gain = 0;
    std::int32_t counts = 0;
};

inline constexpr int ownFours = 0, ownFives = 8, otherFours = 16;
inline constexpr std::int32_t countBias = (64 << ownFours) | (64 << ownFives) | (64 << otherFours);

inline constexpr int countField(std::int32_t biasedSum, int field) {
    return ((biasedSum >> field) & 0xFF) - 64;
}

// What a stone does to a line holding `mine` stones of its side and `theirs` of
// the other's.
template <class Eval>
constexpr LineEffect effectOf(int mine, int theirs) {
    LineEffect e{};
    if (theirs == 0) {
        e.gain = Eval::weight(mine + 1) - Eval::weight(mine);
        if (mine == 3) e.counts = 1 << ownFours;
        if (mine == 4) e.counts = (1 << ownFives) - (1 << ownFours);
    } else if (mine == 0) {
        // Their line becomes opposed and leaves the census.
        e.gain = Eval::weight(theirs);
        if (theirs == 4) e.counts = -(1 << otherFours);
    }
    return e;
}

// effects[row][code] for a line with code = 8 * black stones + white stones,
// row 0 for a white stone, row 1 for a black one. A line through an empty point
// holds at most four stones of either side.
template <class Eval>
constexpr std::array<std::array<LineEffect, 40>, 2> lineEffects() {
    std::array<std::array<LineEffect, 40>, 2> effects{};
    for (int row = 0; row <= 1; ++row)
        for (int blacks = 0; blacks <= 4; ++blacks)
            for (int whites = 0; whites <= 4; ++whites) {
                const int mine = row == 1 ? blacks : whites;
                const int theirs = row == 1 ? whites : blacks;
                effects[row][8 * blacks + whites] = effectOf<Eval>(mine, theirs);
            }
    return effects;
}

template <class Eval>
inline constexpr std::array<std::array<LineEffect, 40>, 2> effectsOf = lineEffects<Eval>();

}  // namespace leaf

// The summary of the position with a stone of `side` added at the empty point
// (x, y), from the summary `node` of the position as it stands. Leaves `pos`
// untouched.
template <class Eval>
CensusSummary summaryAfter(const Position& pos, const CensusSummary& node, int x, int y,
                           Side side) {
    const auto& effects = leaf::effectsOf<Eval>[side == black ? 1 : 0];
    const int ownRow = sideRow(side);
    const int otherRow = 2 - ownRow;
    const std::int16_t* codes = pos.lineCode;
    const std::int16_t* ids = &pointLines().entries[x][y][1];
    const int count = pointLines().count(x, y);
    std::int32_t gain = 0;
    std::int32_t counts = leaf::countBias;
    for (int n = 0; n < count; ++n) {
        const leaf::LineEffect& e = effects[codes[ids[n]]];
        gain += e.gain;
        counts += e.counts;
    }
    CensusSummary after = node;
    after.four[ownRow] += leaf::countField(counts, leaf::ownFours);
    after.five[ownRow] += leaf::countField(counts, leaf::ownFives);
    after.four[otherRow] += leaf::countField(counts, leaf::otherFours);
    after.base = node.base + std::int64_t{side} * gain;
    return after;
}

inline Score scoreOf(const CensusSummary& sum, std::int16_t stepNum, std::int16_t depth) {
    return finishScore(sum.base, sum.four[2], sum.four[0], sum.five[2], sum.five[0], stepNum,
                       depth);
}

// Score with depth 0 and stepNum `stepAfter` of the position with a stone of
// `side` added at the empty point (x, y). Leaves `pos` untouched.
template <class Eval>
Score leafScoreAfter(const Position& pos, const CensusSummary& node, int x, int y, Side side,
                     std::int16_t stepAfter) {
    return scoreOf(summaryAfter<Eval>(pos, node, x, y, side), stepAfter, 0);
}

// Adds a stone at (x, y) to the line codes only, for the life of the guard, so
// that the leaf scores of a second stone can be worked out without placing the
// first one. Nothing but summaryAfter and leafScoreAfter may look at `pos`
// meanwhile.
class LineCodesWith {
  public:
    LineCodesWith(Position& pos, int x, int y, Side side)
        : pos_(pos), x_(x), y_(y), step_(side == black ? 8 : 1) {
        shift(step_);
    }
    ~LineCodesWith() { shift(-step_); }
    LineCodesWith(const LineCodesWith&) = delete;
    LineCodesWith& operator=(const LineCodesWith&) = delete;

  private:
    void shift(int by) {
        const std::int16_t* ids = &pointLines().entries[x_][y_][1];
        for (int n = 0; n < pointLines().count(x_, y_); ++n)
            pos_.lineCode[ids[n]] = static_cast<std::int16_t>(pos_.lineCode[ids[n]] + by);
    }
    Position& pos_;
    int x_, y_;
    int step_;
};

}  // namespace quintline

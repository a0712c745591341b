// The opponent-model search's last line of play at a modeller's node goes on
// into the first candidate whose own score meets the stop threshold, exactly on
// it included, as the literal procedure's stop rule has it.

#include <gtest/gtest.h>

#include "players/lastLine.h"

namespace quintline::search {
namespace {

constexpr Point exactlyOnStop{2, 2}, finishing{4, 2};

// Below a node where black holds a four (its threshold is winScore): the child
// at exactlyOnStop scores winScore for black, the one at finishing ends the
// game, every other one scores less; the model meets the threshold everywhere.
struct Scripted {
    struct Rules {};
    struct Scores {
        Score own;  // from the child's mover's view
    };
    static bool stoneAt(const Position& pos, Point p) { return pos.board[p.x][p.y] != empty; }
    static bool isLeaf(const Position& pos, std::int16_t, std::int16_t) {
        return stoneAt(pos, finishing);
    }
    static Scores atOpponent(const SearchState& s, std::int16_t, std::int16_t) {
        return {stoneAt(s.position, exactlyOnStop) ? -winScore
                : stoneAt(s.position, finishing)   ? -2 * winScore
                                                   : 0};
    }
};

}  // namespace

template <>
Score windowValue<Scripted::Rules>(SearchState&, std::int16_t, std::int16_t, Score, Score, Point*) {
    return -winScore;
}

TEST(LastLine, AnOwnScoreExactlyOnTheStopThresholdEndsTheModellersScan) {
    SearchState s;
    for (std::int16_t x = 1; x <= 4; ++x) placeStone(s.position, x, 1, black);
    // Into exactlyOnStop, then one more stone to the horizon; not into finishing.
    EXPECT_EQ(modelLastLine<Scripted>(s, 4, 2, black), 2);
}

}  // namespace quintline::search

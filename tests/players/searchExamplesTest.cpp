// The worked examples of the four searches: values or scores and chosen points.

#include <gtest/gtest.h>

#include <vector>

#include "players/playerA.h"
#include "players/playerB.h"
#include "support/positionBuilder.h"

namespace quintline {
namespace {

using testing::Stone;

const std::vector<Stone> loneStone{{8, 8, black}};
const std::vector<Stone> threeStones{{8, 8, black}, {7, 6, black}, {9, 8, white}};
const std::vector<Stone> blackThree{{5, 5, black}, {6, 5, black}, {7, 5, black},
                                    {5, 6, white}, {6, 6, white}, {12, 12, white}};
const std::vector<Stone> blackFour{{5, 5, black}, {6, 5, black}, {7, 5, black}, {8, 5, black},
                                   {5, 6, white}, {6, 6, white}, {7, 6, white}, {12, 12, white}};
const std::vector<Stone> blackFourWhiteToMove{{5, 5, black}, {6, 5, black}, {7, 5, black},
                                              {8, 5, black}, {5, 6, white}, {6, 6, white},
                                              {7, 6, white}};
const std::vector<Stone> whiteFour{{5, 5, white}, {6, 5, white},   {7, 5, white},
                                   {8, 5, white}, {5, 6, black},   {6, 6, black},
                                   {7, 6, black}, {12, 12, black}, {1, 1, black}};

struct Example {
    const std::vector<Stone>* stones;
    PlayerKind kind;
    PlayerKind opponent;  // seated on the colour not to move
    std::int16_t depth;
    Score own;    // the plain searches' value
    Score model;  // 0 for the plain searches
    Point chosen;
};

TEST(Searches, WorkedExamples) {
    const std::vector<Stone> none;
    const Example examples[] = {
        // The empty board has no candidate: nothing is chosen.
        {&none, computerA, userKind, 2, -2147483647, 0, {0, 0}},
        // Equal values: the plain searches take the last, the others keep the first.
        {&loneStone, computerA, userKind, 1, 0, 0, {9, 9}},
        {&loneStone, computerB, userKind, 1, 0, 0, {9, 9}},
        {&loneStone, aKnowsB, computerB, 1, 0, 0, {7, 7}},
        {&loneStone, bKnowsA, computerA, 1, 0, 0, {7, 7}},
        // The model score is the other computer's plain value.
        {&threeStones, aKnowsB, computerB, 2, 145, 75, {9, 9}},
        {&threeStones, bKnowsA, computerA, 2, 75, 160, {9, 9}},
        {&threeStones, computerA, userKind, 2, 160, 0, {10, 7}},
        {&threeStones, computerB, userKind, 2, 75, 0, {9, 9}},
        // A five one ply later counts twice; a sure score does not stop a side that
        // holds a four, a win found first does.
        {&blackFour, computerA, userKind, 1, 10749853, 0, {4, 5}},
        {&blackFour, computerA, userKind, 2, 21499706, 0, {4, 5}},
        {&blackFour, computerA, userKind, 3, 10745913, 0, {4, 4}},
        {&blackFour, aKnowsB, computerB, 2, 21499706, 21497086, {4, 5}},
        {&whiteFour, aKnowsB, computerB, 1, -10749838, -10748543, {4, 5}},
        {&whiteFour, aKnowsB, computerB, 2, -21499676, -21497086, {4, 5}},
        {&whiteFour, aKnowsB, computerB, 3, -10745863, -10745193, {1, 2}},
        // Without a four a sure score ends the scan before (8, 5) is seen.
        {&blackThree, computerA, userKind, 2, 1082517, 0, {4, 5}},
        {&blackThree, computerB, userKind, 2, 1081917, 0, {4, 5}},
        {&blackThree, computerA, userKind, 1, 1525, 0, {8, 5}},
        {&blackThree, computerB, userKind, 1, 600, 0, {7, 6}},
        {&blackFourWhiteToMove, computerA, userKind, 1, 1082162, 0, {4, 5}},
        {&blackFourWhiteToMove, computerA, userKind, 2, 10745913, 0, {4, 5}},
    };
    for (const Example& e : examples) {
        SearchState s;
        for (const Stone& stone : *e.stones)
            placeStone(s.position, static_cast<std::int16_t>(stone.x),
                       static_cast<std::int16_t>(stone.y), stone.side);
        const auto step = static_cast<std::int16_t>(e.stones->size());
        const bool blackMoves = step % 2 == 0;
        s.blackSide = blackMoves ? e.kind : e.opponent;
        s.whiteSide = blackMoves ? e.opponent : e.kind;
        nodeScores got{};
        switch (e.kind) {
            case computerA:
                got.ownScore = searchA(s, step, e.depth);
                break;
            case computerB:
                got.ownScore = searchB(s, step, e.depth);
                break;
            case aKnowsB:
                got = searchAKnowsB(s, step, e.depth);
                break;
            default:
                got = searchBKnowsA(s, step, e.depth);
                break;
        }
        SCOPED_TRACE(::testing::Message()
                     << "kind " << e.kind << ", " << step << " stones, depth " << e.depth);
        EXPECT_EQ(got, (nodeScores{0, e.own, e.model}));
        EXPECT_EQ((Point{s.bestX[step], s.bestY[step]}), e.chosen);
    }
}

}  // namespace
}  // namespace quintline

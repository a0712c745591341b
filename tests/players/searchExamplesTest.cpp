// Worked examples: the evaluators' exact integers from a census, a parity and
// a depth; the four searches' scores and chosen points on small positions.

#include <gtest/gtest.h>

#include <vector>

#include "game/seatedSearch.h"
#include "support/gameRecords.h"

namespace quintline {
namespace {

struct EvalCase {
    int b[5], w[5];  // lines of 1..5 stones of black, of white
    std::int16_t stepNum, depth;
    Score a, b_;
};

Position withCensus(const int (&b)[5], const int (&w)[5]) {
    Position p;
    for (int k = 1; k <= 5; ++k) {
        p.lineCensus[sideRow(black)][k] = static_cast<std::int16_t>(b[k - 1]);
        p.lineCensus[sideRow(white)][k] = static_cast<std::int16_t>(w[k - 1]);
    }
    return p;
}

TEST(Evaluators, WorkedExamples) {
    const EvalCase cases[] = {
        {{}, {}, 5, 0, 0, 0},
        {{}, {}, 6, 3, 0, 0},
        {{3, 1}, {2}, 5, 2, 30, 25},
        {{10, 2, 1}, {4, 0, 3}, 7, 0, -170, -200},
        {{0, 0, 0, 2}, {0, 0, 0, 1}, 10, 0, 1085617, 1084992},
        {{0, 0, 0, 2}, {0, 0, 0, 1}, 10, 1, 625, 0},
        {{0, 0, 0, 2}, {0, 0, 0, 1}, 11, 0, -1081242, -1081867},
        {{0, 0, 0, 1}, {}, 11, 0, 625, 0},
        {{0, 0, 0, 1}, {}, 10, 0, 1082492, 1081867},
        {{0, 0, 1}, {0, 0, 0, 1}, 10, 0, -500, 125},
        {{0, 0, 1}, {0, 0, 0, 1}, 11, 0, -1082367, -1081742},
        {{0, 0, 0, 1, 1}, {0, 0, 2}, 10, 0, 10745918, 10745293},
        {{0, 0, 0, 1, 1}, {0, 0, 2}, 11, 3, 10745918, 10745293},
        {{0, 0, 2}, {0, 0, 0, 1, 1}, 11, 0, -10745918, -10745293},
        {{0, 0, 0, 0, 1}, {0, 0, 0, 0, 1}, 4, 0, -10742418, -10742418},
        {{0, 0, 0, 0, 1}, {0, 0, 0, 0, 1}, 9, 2, -10742418, -10742418},
        {{0, 0, 0, 0, 1}, {0, 0, 0, 9}, 10, 0, 10736793, 10742418},
    };
    for (const EvalCase& c : cases) {
        const Position p = withCensus(c.b, c.w);
        EXPECT_EQ(evalA(p, c.stepNum, c.depth), c.a) << c.stepNum << " " << c.depth;
        EXPECT_EQ(evalB(p, c.stepNum, c.depth), c.b_) << c.stepNum << " " << c.depth;
    }
}

struct Example {
    std::vector<Point> moves;  // black first, colours alternate
    PlayerKind kind;
    std::int16_t depth;
    Score own, model;  // model 0 for the plain kinds
    Point chosen;
};

TEST(Searches, WorkedExamples) {
    using Moves = std::vector<Point>;
    const Moves lone{{8, 8}}, three{{8, 8}, {9, 8}, {7, 6}},
        blackThree{{5, 5}, {5, 6}, {6, 5}, {6, 6}, {7, 5}, {12, 12}},
        blackFourWhiteMoves{{5, 5}, {5, 6}, {6, 5}, {6, 6}, {7, 5}, {7, 6}, {8, 5}},
        whiteFour{{5, 6}, {5, 5}, {6, 6}, {6, 5}, {7, 6}, {7, 5}, {12, 12}, {8, 5}, {1, 1}};
    Moves blackFour = blackFourWhiteMoves;
    blackFour.push_back({12, 12});
    const Example examples[] = {
        // The empty board has no candidate: nothing is chosen.
        {Moves{}, computerA, 2, -2147483647, 0, {0, 0}},
        // Equal values: the plain searches take the last, the others keep the first.
        {lone, computerA, 1, 0, 0, {9, 9}},
        {lone, aKnowsB, 1, 0, 0, {7, 7}},
        // The model score is the other computer's plain value.
        {three, aKnowsB, 2, 145, 75, {9, 9}},
        {three, bKnowsA, 2, 75, 160, {9, 9}},
        {three, computerA, 2, 160, 0, {10, 7}},
        {three, computerB, 2, 75, 0, {9, 9}},
        // A five one ply later counts twice; a sure score does not stop a side
        // that holds a four, a win found first does.
        {blackFour, computerA, 1, 10749853, 0, {4, 5}},
        {blackFour, computerA, 2, 21499706, 0, {4, 5}},
        {blackFour, computerA, 3, 10745913, 0, {4, 4}},
        {blackFour, aKnowsB, 2, 21499706, 21497086, {4, 5}},
        {whiteFour, aKnowsB, 1, -10749838, -10748543, {4, 5}},
        {whiteFour, aKnowsB, 2, -21499676, -21497086, {4, 5}},
        {whiteFour, aKnowsB, 3, -10745863, -10745193, {1, 2}},
        // Without a four a sure score ends the scan before (8, 5) is seen.
        {blackThree, computerA, 2, 1082517, 0, {4, 5}},
        {blackThree, computerB, 2, 1081917, 0, {4, 5}},
        {blackThree, computerA, 1, 1525, 0, {8, 5}},
        {blackThree, computerB, 1, 600, 0, {7, 6}},
        {blackFourWhiteMoves, computerA, 1, 1082162, 0, {4, 5}},
        {blackFourWhiteMoves, computerA, 2, 10745913, 0, {4, 5}},
    };
    for (const Example& e : examples) {
        SearchState s = testing::positionAfter({e.moves}, e.moves.size());
        seatSides(s, e.kind);
        const std::int16_t step = s.stepNum;
        SCOPED_TRACE(::testing::Message() << "example " << &e - examples);
        EXPECT_EQ(SearchSet{}.run(e.kind, s, e.depth), (nodeScores{0, e.own, e.model}));
        EXPECT_EQ((Point{s.bestX[step], s.bestY[step]}), e.chosen);
    }
}

}  // namespace
}  // namespace quintline

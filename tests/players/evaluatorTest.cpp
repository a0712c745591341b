// The evaluators' worked examples: exact integers from a census, a parity and a depth.

#include <gtest/gtest.h>

#include "players/playerA.h"
#include "players/playerB.h"

namespace quintline {
namespace {

struct Census {
    int b[6] = {};
    int w[6] = {};
};

Position positionWith(const Census& c) {
    Position p;
    for (int k = 1; k <= 5; ++k) {
        p.lineCensus[sideRow(black)][k] = static_cast<std::int16_t>(c.b[k]);
        p.lineCensus[sideRow(white)][k] = static_cast<std::int16_t>(c.w[k]);
    }
    return p;
}

struct Case {
    Census census;
    std::int16_t stepNum;
    std::int16_t depth;
    Score a;
    Score b;
};

TEST(Evaluators, WorkedExamples) {
    const Case cases[] = {
        {{}, 5, 0, 0, 0},
        {{}, 6, 3, 0, 0},
        {{{0, 3, 1}, {0, 2}}, 5, 2, 30, 25},
        {{{0, 10, 2, 1}, {0, 4, 0, 3}}, 7, 0, -170, -200},
        {{{0, 0, 0, 0, 2}, {0, 0, 0, 0, 1}}, 10, 0, 1085617, 1084992},
        {{{0, 0, 0, 0, 2}, {0, 0, 0, 0, 1}}, 10, 1, 625, 0},
        {{{0, 0, 0, 0, 2}, {0, 0, 0, 0, 1}}, 11, 0, -1081242, -1081867},
        {{{0, 0, 0, 0, 1}, {}}, 11, 0, 625, 0},
        {{{0, 0, 0, 0, 1}, {}}, 10, 0, 1082492, 1081867},
        {{{0, 0, 0, 1}, {0, 0, 0, 0, 1}}, 10, 0, -500, 125},
        {{{0, 0, 0, 1}, {0, 0, 0, 0, 1}}, 11, 0, -1082367, -1081742},
        {{{0, 0, 0, 0, 1, 1}, {0, 0, 0, 2}}, 10, 0, 10745918, 10745293},
        {{{0, 0, 0, 0, 1, 1}, {0, 0, 0, 2}}, 11, 3, 10745918, 10745293},
        {{{0, 0, 0, 0, 0, 1}, {0, 0, 0, 0, 0, 1}}, 4, 0, -10742418, -10742418},
        {{{0, 0, 0, 0, 0, 1}, {0, 0, 0, 0, 0, 1}}, 9, 2, -10742418, -10742418},
        {{{0, 0, 0, 0, 0, 1}, {0, 0, 0, 0, 9}}, 10, 0, 10736793, 10742418},
    };
    for (const Case& c : cases) {
        const Position p = positionWith(c.census);
        SCOPED_TRACE(::testing::Message()
                     << "stepNum " << c.stepNum << " depth " << c.depth << " expecting A " << c.a);
        EXPECT_EQ(evalA(p, c.stepNum, c.depth), c.a);
        EXPECT_EQ(evalB(p, c.stepNum, c.depth), c.b);
    }
}

TEST(Evaluators, ColourSwapWithParityFlipNegates) {
    // Without fives of both colours the two colours are treated alike.
    Census c{{0, 7, 3, 2, 1}, {0, 5, 4, 1, 2}};
    Census swapped{{0, 5, 4, 1, 2}, {0, 7, 3, 2, 1}};
    for (std::int16_t depth : {0, 1}) {
        EXPECT_EQ(evalA(positionWith(c), 10, depth), -evalA(positionWith(swapped), 11, depth));
        EXPECT_EQ(evalB(positionWith(c), 10, depth), -evalB(positionWith(swapped), 11, depth));
    }
}

}  // namespace
}  // namespace quintline

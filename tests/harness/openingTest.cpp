#include <gtest/gtest.h>

#include <map>

#include "harness/fakes.h"
#include "harness/opening.h"

namespace quintline {
namespace {

using testing::ScriptedUniform;

TEST(Opening, EachNumberPairGivesAPointOfTheFiveByFourArea) {
    // r picks x = floor(5r + 1) + 5, s picks y = floor(4s + 1) + 6.
    ScriptedUniform uniform({0.0, 0.0, 0.999999, 0.999999, 0.2, 0.5, 0.79, 0.26, 0.6, 0.0});
    const Opening o = drawOpening(uniform);
    const std::array<Point, 5> expected{{{6, 7}, {10, 10}, {7, 9}, {9, 8}, {9, 7}}};
    EXPECT_EQ(o.stones, expected);
    EXPECT_EQ(uniform.drawn(), 10);
}

TEST(Opening, ATakenPointRedrawsBothCoordinates) {
    ScriptedUniform uniform({
        0.4,
        0.25,  // (8, 8): the centre stone is always refused
        0.0,
        0.0,  // (6, 7)
        0.0,
        0.0,  // (6, 7) again: taken
        0.9,
        0.0,  // (10, 7): x comes from the fresh pair too
        0.2,
        0.5,
        0.79,
        0.26,
        0.6,
        0.0,
    });
    const Opening o = drawOpening(uniform);
    const std::array<Point, 5> expected{{{6, 7}, {10, 7}, {7, 9}, {9, 8}, {9, 7}}};
    EXPECT_EQ(o.stones, expected);
    EXPECT_EQ(uniform.drawn(), 14);
}

TEST(Opening, SeededDrawsCoverTheAreaEvenlyAndRepeatWithTheSeed) {
    SeededUniform a(12345);
    SeededUniform b(12345);
    SeededUniform c(54321);
    std::map<std::pair<int, int>, int> hits;
    bool differs = false;
    for (int i = 0; i < 4000; ++i) {
        const Opening oa = drawOpening(a);
        EXPECT_EQ(oa.stones, drawOpening(b).stones);
        differs = differs || oa.stones != drawOpening(c).stones;
        for (const Point& p : oa.stones) {
            ASSERT_GE(p.x, 6);
            ASSERT_LE(p.x, 10);
            ASSERT_GE(p.y, 7);
            ASSERT_LE(p.y, 10);
            ASSERT_FALSE(p == openingCentre);
            ++hits[{p.x, p.y}];
        }
    }
    EXPECT_TRUE(differs);
    // 19 free points share 20000 stones: about 1053 each.
    EXPECT_EQ(hits.size(), 19u);
    for (const auto& [point, count] : hits) {
        EXPECT_GT(count, 850) << point.first << "," << point.second;
        EXPECT_LT(count, 1250) << point.first << "," << point.second;
    }
    for (int i = 0; i < 1000; ++i) {
        const double u = a.next();
        ASSERT_GE(u, 0.0);
        ASSERT_LT(u, 1.0);
    }
}

}  // namespace
}  // namespace quintline

#include <gtest/gtest.h>

#include <map>

#include "harness/fakes.h"
#include "harness/opening.h"

namespace quintline {
namespace {

TEST(Opening, ATakenPointRedrawsBothCoordinates) {
    // r gives x = floor(5r + 1) + 5, s gives y = floor(4s + 1) + 6.
    testing::ScriptedUniform uniform({
        0.4, 0.25,            // (8, 8): the centre stone is always refused
        0.0, 0.0,             // (6, 7)
        0.0, 0.0,             // (6, 7) again: taken
        0.9, 0.0,             // (10, 7): x comes from the fresh pair too
        0.999999, 0.999999,   // (10, 10)
        0.79, 0.26, 0.6, 0.5  // (9, 8), (9, 9)
    });
    const std::array<Point, 5> expected{{{6, 7}, {10, 7}, {10, 10}, {9, 8}, {9, 9}}};
    EXPECT_EQ(drawOpening(uniform).stones, expected);
    EXPECT_EQ(uniform.drawn(), 14);
}

TEST(Opening, SeededDrawsCoverTheAreaEvenlyAndRepeatWithTheSeed) {
    SeededUniform a(12345), b(12345), c(54321);
    std::map<std::pair<int, int>, int> hits;
    bool differs = false;
    for (int i = 0; i < 4000; ++i) {
        const Opening oa = drawOpening(a);
        EXPECT_EQ(oa.stones, drawOpening(b).stones);
        differs = differs || oa.stones != drawOpening(c).stones;
        for (const Point& p : oa.stones) ++hits[{p.x, p.y}];
    }
    EXPECT_TRUE(differs);
    // 20000 stones over the 19 free points of x 6..10, y 7..10: about 1053 each.
    EXPECT_EQ(hits.size(), 19u);
    EXPECT_EQ(hits.count({8, 8}), 0u);
    for (const auto& [point, count] : hits) {
        EXPECT_TRUE(point.first >= 6 && point.first <= 10 && point.second >= 7 &&
                    point.second <= 10);
        EXPECT_TRUE(count > 850 && count < 1250) << point.first << "," << point.second;
    }
}

}  // namespace
}  // namespace quintline

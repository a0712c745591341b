// What a batch run plays: the fourteen pairings and the random openings.

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <tuple>

#include "harness/fakes.h"
#include "harness/opening.h"
#include "harness/schedule.h"

namespace quintline {
namespace {

TEST(Schedule, LabelsMakeTheHeaderAndNeighboursSwapColours) {
    std::string labels, header(headerLiteral);
    for (const Pairing& p : schedule) labels.append(labels.empty() ? "" : ",").append(p.label);
    std::erase(header, ' ');
    EXPECT_EQ(header, labels);

    for (std::size_t n = 0; n < schedule.size(); n += 2) {
        const Pairing &odd = schedule[n], &even = schedule[n + 1];
        EXPECT_TRUE(isAFamily(odd.black) && !isAFamily(odd.white)) << odd.label;
        EXPECT_EQ(std::tuple(even.black, even.white, even.depthA, even.depthB),
                  std::tuple(odd.white, odd.black, odd.depthA, odd.depthB));
    }
    // The captions as the windows have always shown them.
    EXPECT_EQ(schedule[7].whiteCaption, "Computer A 2 ");
    EXPECT_EQ(schedule[13].blackCaption, "Computer B Know A 3");
    EXPECT_EQ(schedule[3].whiteCaption, "Computer A know B 3");
}

TEST(Opening, ATakenPointRedrawsBothCoordinatesAndSeededDrawsAreEven) {
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

    SeededUniform a(12345), b(12345);
    std::map<std::pair<int, int>, int> hits;
    for (int i = 0; i < 4000; ++i) {
        const Opening opening = drawOpening(a);
        EXPECT_EQ(opening.stones, drawOpening(b).stones);
        for (const Point& p : opening.stones) ++hits[{p.x, p.y}];
    }
    // 20000 stones over the 19 free points of the area: about 1053 each.
    EXPECT_EQ(hits.size(), 19u);
    for (const auto& [point, count] : hits)
        EXPECT_TRUE(count > 850 && count < 1250) << point.first << "," << point.second;
}

}  // namespace
}  // namespace quintline

// The suggestion's depth by stone count, and that asking for it changes nothing
// but the chosen point.

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "game/suggestionDepth.h"
#include "gameFixture.h"

namespace quintline {
namespace {

using namespace testing;

TEST(Suggestion, DepthByStoneCountAndASearchThatLeavesTheGameAsItWas) {
    const std::tuple<int, int, int> depthTable[] = {
        {0, 0, 1},     {1, 187, 2},   {188, 208, 3}, {209, 214, 4}, {215, 216, 5},
        {217, 217, 8}, {218, 218, 7}, {219, 219, 6}, {220, 220, 5}, {221, 221, 4},
        {222, 222, 3}, {223, 223, 2}, {224, 224, 1}, {225, 225, 0}};
    const std::vector<Point> order = fullBoardWithoutFive();
    int covered = 0;
    for (const auto& [first, last, depth] : depthTable) {
        for (int n = first; n <= last; ++n, ++covered)
            EXPECT_EQ(suggestionDepth(static_cast<std::int16_t>(n)), depth) << n;
        for (int stones : {first, last}) {
            Session session({}, stones == 0 ? black : white);
            GameState& s = session.s;
            lay(session.game, order, static_cast<std::size_t>(stones));
            session.toolkit.forget();
            const GameState before = s;
            session.game.showSuggestion();
            EXPECT_TRUE(sameTables(s.position, before.position)) << stones;
            EXPECT_EQ(std::tie(s.stepNum, s.moveRecord),
                      std::tie(before.stepNum, before.moveRecord));
            EXPECT_EQ(session.toolkit.captionsOf(Control::Label1),
                      std::vector<std::string>{std::to_string(depth)});
            // No mark where the search has nothing to choose: the empty board, or depth 0.
            const auto marks = session.toolkit.of(Request::suggestionMark);
            ASSERT_EQ(marks.size(), stones == 0 || stones == 225 ? 0u : 1u) << stones;
            for (const Call& mark : marks)
                EXPECT_TRUE(s.position.isCandidate(mark.point.x, mark.point.y)) << stones;
        }
    }
    EXPECT_EQ(covered, 226);
}

}  // namespace
}  // namespace quintline

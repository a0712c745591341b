// The suggested point: its depth by stone count, its mark, and that asking for
// it leaves the game as it was.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "game/suggestionDepth.h"
#include "gameFixture.h"

namespace quintline {
namespace {

using testing::Request;
using testing::Session;

struct DepthRow {
    int first, last;
    std::int16_t depth;
};
constexpr DepthRow depthTable[] = {
    {0, 0, 1},     {1, 187, 2},   {188, 208, 3}, {209, 214, 4}, {215, 216, 5},
    {217, 217, 8}, {218, 218, 7}, {219, 219, 6}, {220, 220, 5}, {221, 221, 4},
    {222, 222, 3}, {223, 223, 2}, {224, 224, 1}, {225, 225, 0},
};

TEST(Suggestion, DepthForEveryStoneCount) {
    int covered = 0;
    for (const DepthRow& row : depthTable)
        for (int n = row.first; n <= row.last; ++n, ++covered)
            EXPECT_EQ(suggestionDepth(static_cast<std::int16_t>(n)), row.depth) << n;
    EXPECT_EQ(covered, 226);
}

// Everything but the chosen points, which the search may write.
void expectSameGame(const GameState& a, const GameState& b) {
    EXPECT_TRUE(testing::sameTables(a.position, b.position));
    EXPECT_EQ(a.moveRecord, b.moveRecord);
    EXPECT_EQ(a.stepNum, b.stepNum);
    EXPECT_EQ(a.movesAhead, b.movesAhead);
    EXPECT_EQ(a.gameResult, b.gameResult);
    EXPECT_EQ(a.clickAllowed, b.clickAllowed);
    EXPECT_EQ(a.userColour, b.userColour);
    EXPECT_EQ(a.suggestionOn, b.suggestionOn);
    EXPECT_EQ(a.blackSide, b.blackSide);
    EXPECT_EQ(a.whiteSide, b.whiteSide);
}

TEST(Suggestion, EachDepthRowSearchedWithoutChangingTheGame) {
    const auto order = testing::fullBoardWithoutFive();
    for (const DepthRow& row : depthTable) {
        for (int stones : {row.first, row.last}) {
            Session session;
            GameState& s = session.s;
            auto& tk = session.toolkit;
            if (stones == 0) {
                s.userColour = black;
                session.game.newGame();
            }
            for (int n = s.stepNum; n < stones; ++n)
                session.game.Putchess(order[n].x, order[n].y,
                                      sideToMove(static_cast<std::int16_t>(n + 1)));
            ASSERT_EQ(s.stepNum, stones);
            const GameState before = s;
            tk.forget();
            session.game.showSuggestion();

            expectSameGame(s, before);
            EXPECT_EQ(tk.captionsOf(Control::Label1),
                      std::vector<std::string>{std::to_string(row.depth)})
                << stones;
            // No mark where the search has nothing to choose: the empty board, or depth 0.
            const auto marks = tk.of(Request::suggestionMark);
            if (stones == 0 || stones == 225) {
                EXPECT_TRUE(marks.empty()) << stones;
                continue;
            }
            ASSERT_EQ(marks.size(), 1u) << stones;
            EXPECT_EQ(marks[0].point, (Point{s.bestX[stones], s.bestY[stones]}));
            EXPECT_EQ(s.position.board[marks[0].point.x][marks[0].point.y], empty);
            EXPECT_TRUE(s.position.isCandidate(marks[0].point.x, marks[0].point.y));
            EXPECT_EQ(tk.count(Request::repaint), 0u);
        }
    }
}

TEST(Suggestion, SwitchingOnMarksAndSwitchingOffErasesNothing) {
    Session session;
    GameState& s = session.s;
    auto& tk = session.toolkit;
    tk.forget();
    session.game.toggleSuggestion();
    EXPECT_EQ(s.suggestionOn, flagTrue);
    EXPECT_EQ(tk.lastCaption(Control::Command1), "suggestion");
    EXPECT_EQ(tk.lastCaption(Control::Label1), "2");
    EXPECT_EQ(tk.count(Request::suggestionMark), 1u);

    session.game.toggleSuggestion();
    EXPECT_EQ(s.suggestionOn, flagFalse);
    EXPECT_EQ(tk.lastCaption(Control::Command1), "no suggestion");
    EXPECT_EQ(tk.count(Request::suggestionMark), 1u);

    session.game.toggleSuggestion();
    EXPECT_EQ(tk.count(Request::suggestionMark), 2u);
    EXPECT_EQ(tk.count(Request::eraseStone), 0u);
    EXPECT_EQ(tk.count(Request::clearAndGrid), 0u);
    EXPECT_EQ(s.stepNum, 1);

    // A new game switches it off.
    session.game.newGame();
    EXPECT_EQ(s.suggestionOn, flagFalse);
    EXPECT_EQ(tk.lastCaption(Control::Command1), "no suggestion");
}

TEST(Suggestion, OnlyAComputerMoveRefreshesIt) {
    Session session;
    GameState& s = session.s;
    auto& tk = session.toolkit;
    s.depthA = 1;
    session.game.toggleSuggestion();
    tk.forget();

    testing::click(session.game, 9, 9);  // the computer replies
    EXPECT_EQ(tk.count(Request::suggestionMark), 1u);
    // The mark follows the reply's frames, and Label1 ends with its own depth.
    EXPECT_EQ(tk.captionsOf(Control::Label1), (std::vector<std::string>{"1", "2"}));
    EXPECT_LT(tk.find(Request::candidateFrames), tk.find(Request::suggestionMark));
    session.game.stepBack();
    session.game.stepForward();
    s.twoUsers = flagTrue;
    testing::click(session.game, 2, 2);
    EXPECT_EQ(tk.count(Request::suggestionMark), 1u);
    EXPECT_EQ(s.suggestionOn, flagTrue);
}

TEST(Suggestion, NoMarkBesideAStandingFive) {
    Session session;
    GameState& s = session.s;
    auto& tk = session.toolkit;
    for (std::int16_t n = 1; n <= 4; ++n) {
        session.game.Putchess(1, n, white);
        session.game.Putchess(static_cast<std::int16_t>(8 + n), 8, black);
    }
    s.bestX[9] = 3;
    s.bestY[9] = 3;
    tk.forget();
    session.game.showSuggestion();
    EXPECT_EQ(tk.lastCaption(Control::Label1), "2");
    EXPECT_EQ(tk.count(Request::suggestionMark), 0u);
    EXPECT_EQ(s.stepNum, 9);
}

}  // namespace
}  // namespace quintline

// One user against a computer: replies and the ends of a game.

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "gameFixture.h"

namespace quintline {
namespace {

using namespace testing;

TEST(UserAgainstComputer, TheComputerCompletesItsFourAndTakesNoMoreClicks) {
    Session session;
    GameState& s = session.s;
    auto& tk = session.toolkit;
    lay(session.game, {{8, 8}, {1, 1}, {8, 9}, {1, 3}, {8, 10}, {1, 5}, {8, 11}});
    tk.forget();
    click(session.game, 8, 12);
    EXPECT_EQ((s.moveRecord[9]), (MoveRecordEntry{black, 8, 7}));
    EXPECT_EQ(std::tuple(s.gameResult, s.clickAllowed), std::tuple(blackWon, flagFalse));
    EXPECT_EQ(tk.lastCaption(Control::winLab), "Black will win");
    EXPECT_EQ(tk.lastCaption(Control::whoRun), "Game Over! Computer Win.");
    EXPECT_EQ(tk.of(Request::plainStone).at(0).point, (Point{8, 11}));  // black's last ring
    tk.forget();
    click(session.game, 2, 2);
    EXPECT_TRUE(tk.calls.empty());
}

TEST(UserAgainstComputer, TheUserCompletesAnOpenFour) {
    Session session;
    GameState& s = session.s;
    auto& tk = session.toolkit;
    s.depthA = 2;
    lay(session.game, {{8, 8}, {3, 2}, {14, 14}, {3, 3}, {14, 12}, {3, 4}, {12, 14}});
    click(session.game, 3, 5);  // the computer can close one end only
    EXPECT_EQ(tk.lastCaption(Control::winLab), "White will win");
    tk.forget();
    click(session.game, 3, s.position.board[3][1] == empty ? 1 : 6);
    EXPECT_EQ(std::tuple(s.gameResult, s.clickAllowed), std::tuple(whiteWon, flagFalse));
    EXPECT_EQ(tk.messages(), std::vector<std::string>{"GameOver! You Win!"});
    EXPECT_EQ(tk.of(Request::message).at(0).buttons, MessageButtons::ok);
    EXPECT_FALSE(tk.lastCaption(Control::whoRun));  // no computer move followed
    EXPECT_EQ(tk.lastEnabled(Control::cmdBack), true);
}

TEST(UserAgainstComputer, GamesThatFillTheBoardAreDrawn) {
    const std::vector<Point> order = fullBoardWithoutFive();
    // The user's stone is move 224, the computer's the last, predicted "no one
    // win" only by a search that reaches move 225; or the user's is the last.
    for (const auto& [userMove, depth, prediction] :
         {std::tuple(224, 1, "no one win"), {224, 3, "not sure"}, {225, 3, ""}}) {
        Session session;
        GameState& s = session.s;
        auto& tk = session.toolkit;
        lay(session.game, order, userMove - 1);
        s.userColour = sideToMove(static_cast<std::int16_t>(userMove));
        s.depthA = static_cast<std::int16_t>(depth);
        click(session.game, order[userMove - 1].x, order[userMove - 1].y);
        EXPECT_EQ(std::tuple(s.stepNum, s.gameResult), std::tuple(225, gameDrawn)) << userMove;
        if (userMove == 225) {
            EXPECT_EQ(tk.messages(), std::vector<std::string>{"Game Over! No one Win."});
            continue;
        }
        EXPECT_EQ(tk.lastCaption(Control::winLab), prediction);
        EXPECT_EQ(tk.lastCaption(Control::whoRun), "Game Over! No one Win.");
        EXPECT_EQ(tk.lastCaption(Control::checkPos), "0");
        EXPECT_TRUE(tk.messages().empty());
    }
}

}  // namespace
}  // namespace quintline

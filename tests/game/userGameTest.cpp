// One user against a computer, and two users on one board: clicks, replies,
// the end of a game, and the clicks that must not count.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "gameFixture.h"

namespace quintline {
namespace {

using testing::click;
using testing::layAsTwoUsers;
using testing::Request;
using testing::Session;

TEST(UserAgainstComputer, ClickGetsTheReplyOfComputerA) {
    Session session;
    GameState& s = session.s;
    auto& tk = session.toolkit;
    tk.forget();
    click(session.game, 9, 8);

    EXPECT_EQ(s.stepNum, 3);
    EXPECT_EQ((s.moveRecord[2]), (MoveRecordEntry{white, 9, 8}));
    const MoveRecordEntry reply = s.moveRecord[3];
    EXPECT_EQ(reply.colour, black);
    EXPECT_EQ(s.position.board[reply.x][reply.y], black);
    EXPECT_EQ(s.gameResult, gameOpen);
    EXPECT_EQ(s.clickAllowed, flagTrue);
    EXPECT_TRUE(censusOk(s.position));

    // Buttons off first, the ring of the centre stone wiped, then the user's
    // stone without ring, the reply with one.
    ASSERT_GE(tk.calls.size(), 3u);
    EXPECT_EQ(tk.calls[0].request, Request::enabled);
    EXPECT_EQ(tk.calls[0].control, Control::cmdBack);
    EXPECT_FALSE(tk.calls[0].enabled);
    EXPECT_EQ(tk.calls[1].control, Control::cmdForw);
    EXPECT_FALSE(tk.calls[1].enabled);
    const auto plain = tk.of(Request::plainStone);
    ASSERT_EQ(plain.size(), 1u);
    EXPECT_EQ(plain[0].point, (Point{8, 8}));
    EXPECT_EQ(plain[0].colour, black);
    EXPECT_LT(tk.find(Request::plainStone), tk.find(Request::stoneAndRing));
    const auto stones = tk.of(Request::stoneAndRing);
    ASSERT_EQ(stones.size(), 2u);
    EXPECT_EQ(stones[0].colour, white);
    EXPECT_EQ(stones[1].point, (Point{reply.x, reply.y}));
    EXPECT_EQ(stones[1].userColour, white);

    EXPECT_EQ(tk.captionsOf(Control::whoRun), std::vector<std::string>{"Computer A is running"});
    EXPECT_EQ(tk.lastCaption(Control::Label1), "3");
    EXPECT_EQ(tk.lastCaption(Control::winLab), "not sure");
    EXPECT_EQ(tk.captionsOf(Control::stepNumLab), (std::vector<std::string>{"2", "3"}));
    EXPECT_EQ(tk.lastEnabled(Control::cmdBack), true);
    EXPECT_EQ(tk.lastEnabled(Control::cmdForw), false);
    EXPECT_TRUE(tk.messages().empty());

    // The reply marks the candidates and shows their number.
    const auto frames = tk.of(Request::candidateFrames);
    ASSERT_EQ(frames.size(), 1u);
    EXPECT_EQ(frames[0].points, testing::emptyPointsBesideStones(s.position));
    EXPECT_EQ(tk.lastCaption(Control::checkPos), std::to_string(frames[0].points.size()));
    EXPECT_EQ(tk.calls.back().request, Request::enabled);  // cmdBack after the reply
    EXPECT_EQ(tk.find(Request::repaint, tk.find(Request::candidateFrames)),
              tk.find(Request::candidateFrames) + 2);
}

TEST(UserAgainstComputer, ComputerCompletesItsFourAndTakesNoMoreClicks) {
    Session session;
    GameState& s = session.s;
    auto& tk = session.toolkit;
    // Black holds (8, 8) to (8, 11); white is to click.
    layAsTwoUsers(session.game, {{1, 1}, {8, 9}, {1, 3}, {8, 10}, {1, 5}, {8, 11}});
    ASSERT_EQ(s.userColour, white);
    tk.forget();
    click(session.game, 8, 12);

    EXPECT_EQ(s.stepNum, 9);
    EXPECT_EQ((s.moveRecord[9]), (MoveRecordEntry{black, 8, 7}));
    EXPECT_EQ(s.gameResult, blackWon);
    EXPECT_EQ(tk.lastCaption(Control::winLab), "Black will win");
    EXPECT_EQ(tk.lastCaption(Control::whoRun), "Game Over! Computer Win.");
    EXPECT_EQ(s.clickAllowed, flagFalse);
    EXPECT_EQ(tk.lastEnabled(Control::cmdBack), true);
    EXPECT_TRUE(tk.messages().empty());
    // The user's click wiped the ring of black's last stone.
    const auto plain = tk.of(Request::plainStone);
    ASSERT_EQ(plain.size(), 1u);
    EXPECT_EQ(plain[0].point, (Point{8, 11}));

    tk.forget();
    click(session.game, 2, 2);
    EXPECT_TRUE(tk.calls.empty());
    EXPECT_EQ(s.stepNum, 9);
}

TEST(UserAgainstComputer, UserCompletesAnOpenFour) {
    Session session;
    GameState& s = session.s;
    auto& tk = session.toolkit;
    s.depthA = 2;
    layAsTwoUsers(session.game, {{3, 2}, {14, 14}, {3, 3}, {14, 12}, {3, 4}, {12, 14}});
    click(session.game, 3, 5);  // an open four: the computer can close one end only
    ASSERT_EQ(s.gameResult, gameOpen);
    ASSERT_EQ(s.stepNum, 9);
    EXPECT_EQ(tk.lastCaption(Control::winLab), "White will win");
    const int freeEnd = s.position.board[3][1] == empty ? 1 : 6;
    ASSERT_EQ(s.position.board[3][freeEnd], empty);

    tk.forget();
    click(session.game, 3, freeEnd);
    EXPECT_EQ(s.stepNum, 10);
    EXPECT_EQ(s.gameResult, whiteWon);
    const auto boxes = tk.of(Request::message);
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].text, "GameOver! You Win!");
    EXPECT_EQ(boxes[0].buttons, MessageButtons::ok);
    EXPECT_EQ(tk.lastEnabled(Control::cmdBack), true);
    EXPECT_FALSE(tk.lastCaption(Control::whoRun));  // no computer move followed
    EXPECT_EQ(s.clickAllowed, flagFalse);
    EXPECT_EQ(s.userColour, white);
}

TEST(UserAgainstComputer, GamesThatFillTheBoardAreDrawn) {
    const std::vector<Point> order = testing::fullBoardWithoutFive();
    ASSERT_EQ(order.size(), 225u);

    // The computer's stone is the 225th: the user clicks the 224th.
    {
        Session session;
        GameState& s = session.s;
        auto& tk = session.toolkit;
        s.twoUsers = flagTrue;
        for (std::size_t n = 1; n < 223; ++n) session.game.userMove(order[n].x, order[n].y);
        s.twoUsers = flagFalse;
        s.depthA = 1;
        ASSERT_EQ(s.stepNum, 223);
        ASSERT_EQ(s.gameResult, gameOpen);
        ASSERT_TRUE(tk.messages().empty());
        tk.forget();
        click(session.game, order[223].x, order[223].y);
        EXPECT_EQ(s.stepNum, 225);
        EXPECT_EQ(s.gameResult, gameDrawn);
        EXPECT_EQ((s.moveRecord[225]), (MoveRecordEntry{black, 1, 1}));
        EXPECT_EQ(tk.lastCaption(Control::winLab), "no one win");  // 224 stones + depth 1
        EXPECT_EQ(tk.lastCaption(Control::whoRun), "Game Over! No one Win.");
        EXPECT_EQ(tk.lastCaption(Control::checkPos), "0");
        EXPECT_EQ(s.clickAllowed, flagFalse);
        EXPECT_TRUE(tk.messages().empty());
    }
    // The user's black stone is the 225th.
    {
        Session session;
        GameState& s = session.s;
        auto& tk = session.toolkit;
        s.twoUsers = flagTrue;
        for (std::size_t n = 1; n < 224; ++n) session.game.userMove(order[n].x, order[n].y);
        s.twoUsers = flagFalse;
        s.computerKind = computerB;
        ASSERT_EQ(s.userColour, black);
        ASSERT_EQ(s.gameResult, gameOpen);
        tk.forget();
        click(session.game, 1, 1);
        EXPECT_EQ(s.stepNum, 225);
        EXPECT_EQ(s.gameResult, gameDrawn);
        EXPECT_EQ(tk.messages(), std::vector<std::string>{"Game Over! No one Win."});
        EXPECT_FALSE(tk.lastCaption(Control::whoRun));
        EXPECT_EQ(tk.lastEnabled(Control::cmdBack), true);
    }
}

TEST(Clicks, OnlyAnEmptyBoardPointWithTheTurnCounts) {
    Session session;
    GameState& s = session.s;
    auto& tk = session.toolkit;
    const Position before = s.position;
    tk.forget();

    // A stone costs nothing and the turn stays.
    click(session.game, 8, 8);
    EXPECT_EQ(s.clickAllowed, flagTrue);
    // Beside the board: right of and below the fifteen cells, and above and left.
    session.game.boardMouseDown(15 * 533.0f, 100);
    session.game.boardMouseDown(100, 7999);
    session.game.boardMouseDown(-1, 100);
    session.game.boardMouseDown(100, -0.5f);
    EXPECT_EQ(s.clickAllowed, flagTrue);
    // Nobody holds a colour while a board file is watched.
    s.userColour = 0;
    click(session.game, 5, 5);
    EXPECT_EQ(s.clickAllowed, flagTrue);
    s.userColour = white;
    // Without the turn nothing counts.
    s.clickAllowed = flagFalse;
    click(session.game, 5, 5);
    EXPECT_EQ(s.clickAllowed, flagFalse);

    EXPECT_TRUE(tk.calls.empty());
    EXPECT_EQ(s.stepNum, 1);
    EXPECT_TRUE(testing::sameTables(s.position, before));
}

TEST(Clicks, ThePositionIsCutIntoCellsOfCellSize) {
    struct Row {
        float X, Y;
        Point point;
    };
    Session session;
    GameState& s = session.s;
    s.twoUsers = flagTrue;
    Side colour = white;
    for (const Row row : {Row{0, 0, {1, 1}}, Row{532.9f, 533, {1, 2}}, Row{533, 1066, {2, 3}},
                          Row{7994.9f, 7462, {15, 15}}, Row{4000, 10, {8, 1}}}) {
        session.game.boardMouseDown(row.X, row.Y);
        EXPECT_EQ(s.position.board[row.point.x][row.point.y], colour) << row.X << "," << row.Y;
        colour = static_cast<Side>(-colour);
    }
    EXPECT_EQ(s.stepNum, 6);
}

TEST(TwoUsers, ColoursAlternateByClickWithoutReplyOrRing) {
    Session session;
    GameState& s = session.s;
    auto& tk = session.toolkit;
    s.twoUsers = flagTrue;
    tk.forget();
    const Point clicks[] = {{1, 1}, {8, 9}, {1, 3}, {8, 10}, {1, 5}, {8, 11}, {1, 7}};
    Side expected = white;
    for (Point p : clicks) {
        click(session.game, p.x, p.y);
        EXPECT_EQ(s.position.board[p.x][p.y], expected);
        EXPECT_EQ(s.clickAllowed, flagTrue);
        expected = static_cast<Side>(-expected);
    }
    EXPECT_EQ(s.stepNum, 8);
    EXPECT_EQ(s.gameResult, gameOpen);
    for (const auto& stone : tk.of(Request::stoneAndRing))
        EXPECT_EQ(stone.colour, stone.userColour);
    EXPECT_EQ(tk.lastEnabled(Control::cmdBack), false);
    EXPECT_FALSE(tk.lastCaption(Control::whoRun));
    EXPECT_EQ(tk.count(Request::candidateFrames), 0u);

    // Black's five ends the game with a message; the next click is black again,
    // whatever the stone count says.
    click(session.game, 8, 12);
    EXPECT_EQ(s.gameResult, blackWon);
    EXPECT_EQ(tk.messages(), std::vector<std::string>{"GameOver! You Win!"});
    EXPECT_EQ(tk.lastEnabled(Control::cmdBack), true);
    EXPECT_EQ(s.userColour, black);
    EXPECT_EQ(s.clickAllowed, flagTrue);
    click(session.game, 2, 2);
    EXPECT_EQ(s.stepNum, 10);
    EXPECT_EQ(s.position.board[2][2], black);
    // Only the lines through the new stone are judged.
    EXPECT_EQ(s.gameResult, gameOpen);
}

}  // namespace
}  // namespace quintline

// Stepping back and forward through the move record, and the four replay buttons.

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

// A session with three stones: the centre, the user's (9, 8) and the reply.
struct ThreeStones : Session {
    ThreeStones() {
        s.depthA = 1;
        click(game, 9, 8);
        toolkit.forget();
    }
};

TEST(Replay, BackTwiceAndForwardTwiceRestoresThePosition) {
    ThreeStones session;
    GameState& s = session.s;
    auto& tk = session.toolkit;
    const Position three = s.position;
    const MoveRecordEntry second = s.moveRecord[2];
    const MoveRecordEntry third = s.moveRecord[3];

    session.game.cmdBackClick();  // the computer's black stone
    EXPECT_EQ(s.clickAllowed, flagFalse);
    session.game.cmdBackClick();  // the user's white stone
    EXPECT_EQ(s.clickAllowed, flagTrue);
    EXPECT_EQ(s.stepNum, 1);
    EXPECT_EQ(s.movesAhead, 2);
    EXPECT_EQ(s.moveRecord[2], second);
    EXPECT_EQ(s.moveRecord[3], third);
    EXPECT_EQ(s.position.board[9][8], empty);
    EXPECT_TRUE(censusOk(s.position));
    EXPECT_EQ(tk.captionsOf(Control::stepNumLab), (std::vector<std::string>{"2", "1"}));
    const auto erased = tk.of(Request::eraseStone);
    ASSERT_EQ(erased.size(), 2u);
    EXPECT_EQ(erased[0].point, (Point{third.x, third.y}));
    EXPECT_EQ(erased[1].point, (Point{9, 8}));
    EXPECT_EQ(tk.lastEnabled(Control::cmdForw), true);
    EXPECT_EQ(tk.lastEnabled(Control::cmdBack), std::nullopt);  // stepNum never reached 0
    EXPECT_EQ(tk.count(Request::repaint), 0u);
    EXPECT_FALSE(tk.lastCaption(Control::whoRun));

    tk.forget();
    session.game.cmdForwClick();  // white again: the user's own stone
    EXPECT_EQ(s.clickAllowed, flagFalse);
    EXPECT_EQ(tk.lastEnabled(Control::cmdForw), std::nullopt);  // a move still lies ahead
    session.game.cmdForwClick();  // black: the opponent's, the turn goes to the user
    EXPECT_EQ(s.clickAllowed, flagTrue);
    EXPECT_EQ(s.stepNum, 3);
    EXPECT_EQ(s.movesAhead, 0);
    EXPECT_EQ(s.gameResult, gameOpen);
    EXPECT_TRUE(testing::sameTables(s.position, three));
    EXPECT_EQ(s.moveRecord[3], third);
    EXPECT_EQ(tk.lastEnabled(Control::cmdForw), false);
    EXPECT_EQ(tk.lastEnabled(Control::cmdBack), true);
    // The computer's stone came back with its ring and was painted plain at once.
    const std::size_t ringed = tk.findLast(Request::stoneAndRing);
    ASSERT_LT(ringed + 2, tk.calls.size());
    EXPECT_EQ(tk.calls[ringed].point, (Point{third.x, third.y}));
    EXPECT_EQ(tk.calls[ringed].userColour, white);
    EXPECT_EQ(tk.calls[ringed + 1].request, Request::repaint);
    EXPECT_EQ(tk.calls[ringed + 2].request, Request::plainStone);
    EXPECT_EQ(tk.calls[ringed + 2].point, (Point{third.x, third.y}));
    EXPECT_EQ(tk.calls[ringed + 2].colour, black);
    EXPECT_EQ(tk.count(Request::plainStone), 2u);
}

TEST(Replay, AClickAfterSteppingBackGivesUpWhatLayAhead) {
    ThreeStones session;
    GameState& s = session.s;
    auto& tk = session.toolkit;
    session.game.stepBack();
    session.game.stepBack();
    ASSERT_EQ(s.clickAllowed, flagTrue);
    click(session.game, 7, 7);
    EXPECT_EQ(s.stepNum, 3);
    EXPECT_EQ(s.movesAhead, 0);
    EXPECT_EQ((s.moveRecord[2]), (MoveRecordEntry{white, 7, 7}));
    EXPECT_EQ(s.moveRecord[3].colour, black);
    EXPECT_EQ(tk.lastEnabled(Control::cmdForw), false);
    // Before the stone, the ring of the centre stone is painted over.
    EXPECT_EQ(tk.of(Request::plainStone).front().point, (Point{8, 8}));
}

TEST(Replay, EndButtonsRunAtLeastOnceAndStopAtTheRecordEnds) {
    ThreeStones session;
    GameState& s = session.s;
    auto& tk = session.toolkit;
    session.game.backwardEndClick();
    EXPECT_EQ(s.stepNum, 0);
    EXPECT_EQ(s.movesAhead, 3);
    EXPECT_TRUE(testing::sameTables(s.position, Position{}));
    EXPECT_EQ(tk.count(Request::eraseStone), 3u);
    EXPECT_EQ(tk.lastEnabled(Control::cmdBack), false);
    EXPECT_EQ(s.clickAllowed, flagFalse);  // the centre stone was black, the user white

    // At the start there is nothing to take back, but the buttons are set again.
    tk.forget();
    session.game.backwardEndClick();
    EXPECT_EQ(s.movesAhead, 3);
    EXPECT_EQ(tk.count(Request::eraseStone), 0u);
    EXPECT_EQ(tk.lastEnabled(Control::cmdBack), false);
    EXPECT_EQ(tk.lastEnabled(Control::cmdForw), true);

    tk.forget();
    session.game.cmdForwardEndClick();
    EXPECT_EQ(s.stepNum, 3);
    EXPECT_EQ(s.movesAhead, 0);
    EXPECT_TRUE(censusOk(s.position));
    EXPECT_EQ(tk.count(Request::stoneAndRing), 3u);
    EXPECT_EQ(tk.lastEnabled(Control::cmdForw), false);

    // At the end with a colour to play, the step only sets the buttons.
    tk.forget();
    session.game.cmdForwardEndClick();
    EXPECT_EQ(s.stepNum, 3);
    ASSERT_EQ(tk.calls.size(), 2u);
    EXPECT_EQ(tk.lastEnabled(Control::cmdForw), false);
    EXPECT_EQ(tk.lastEnabled(Control::cmdBack), true);
}

TEST(Replay, TurnTableForAUserOnBlack) {
    Session session;
    GameState& s = session.s;
    s.userColour = black;
    s.computerKind = computerB;
    s.whiteSide = computerB;
    s.blackSide = userKind;
    s.depthB = 1;
    session.game.newGame();
    click(session.game, 8, 8);
    click(session.game, 7, 7);
    ASSERT_EQ(s.stepNum, 4);

    session.game.stepBack();  // white
    EXPECT_EQ(s.clickAllowed, flagFalse);
    session.game.stepBack();  // black
    EXPECT_EQ(s.clickAllowed, flagTrue);
    session.game.stepForward();  // black
    EXPECT_EQ(s.clickAllowed, flagFalse);
    session.game.stepForward();  // white
    EXPECT_EQ(s.clickAllowed, flagTrue);
}

TEST(Replay, ResultsOfReplayedStones) {
    // Black's five, then a step back and forward over it.
    {
        Session session;
        GameState& s = session.s;
        auto& tk = session.toolkit;
        s.twoUsers = flagTrue;
        layAsTwoUsers(session.game, {{1, 1}, {8, 9}, {1, 3}, {8, 10}, {1, 5}, {8, 11}, {1, 7}});
        s.twoUsers = flagTrue;
        session.game.userMove(8, 12);
        ASSERT_EQ(s.gameResult, blackWon);
        tk.forget();
        session.game.stepBack();
        EXPECT_EQ(s.gameResult, blackWon);
        EXPECT_FALSE(tk.lastCaption(Control::whoRun));
        session.game.stepForward();
        EXPECT_EQ(s.gameResult, blackWon);
        EXPECT_EQ(tk.lastCaption(Control::whoRun), " Black Win");
        EXPECT_EQ(s.clickAllowed, flagFalse);  // a finished game gives no turn

        // Back over more stones and forward again: the game reopens, then ends.
        session.game.stepBack();
        session.game.stepBack();
        session.game.stepForward();
        EXPECT_EQ(s.gameResult, gameOpen);
        EXPECT_EQ(tk.lastCaption(Control::whoRun), " Black Win");  // kept while open
    }
    // White's five.
    {
        Session session;
        GameState& s = session.s;
        auto& tk = session.toolkit;
        for (std::int16_t n = 1; n <= 5; ++n) {
            session.game.Putchess(2, n, white);
            if (n < 5) session.game.Putchess(static_cast<std::int16_t>(9 + n), 14, black);
        }
        session.game.stepBack();
        tk.forget();
        session.game.stepForward();
        EXPECT_EQ(s.gameResult, whiteWon);
        EXPECT_EQ(tk.lastCaption(Control::whoRun), " White Win");
    }
    // A full board without a five.
    {
        Session session;
        GameState& s = session.s;
        auto& tk = session.toolkit;
        const auto order = testing::fullBoardWithoutFive();
        for (std::size_t n = 1; n < order.size(); ++n)
            session.game.Putchess(order[n].x, order[n].y,
                                  sideToMove(static_cast<std::int16_t>(n + 1)));
        session.game.stepBack();
        tk.forget();
        session.game.stepForward();
        EXPECT_EQ(s.stepNum, 225);
        EXPECT_EQ(s.gameResult, gameDrawn);
        EXPECT_EQ(tk.lastCaption(Control::whoRun), " No one Win");
    }
}

TEST(Replay, WatchingABoardFileStepsIntoComputerMoves) {
    Session session;
    GameState& s = session.s;
    auto& tk = session.toolkit;
    s.userColour = 0;
    s.depthA = 1;
    tk.forget();
    session.game.cmdForwardEndClick();
    EXPECT_EQ(s.stepNum, 2);
    EXPECT_EQ(s.moveRecord[2].colour, white);
    EXPECT_EQ(tk.lastCaption(Control::whoRun), "Computer A is running");
    EXPECT_EQ(tk.lastEnabled(Control::cmdForw), false);
    EXPECT_EQ(tk.lastEnabled(Control::cmdBack), true);
}

TEST(Replay, RecordsOfNoColourAreSteppedOverWithoutTouchingTheModel) {
    Session session;
    GameState& s = session.s;
    auto& tk = session.toolkit;
    const Position centre = s.position;
    s.moveRecord[2] = {0, 4, 4};
    s.moveRecord[3] = {7, 5, 5};
    s.movesAhead = 2;
    session.game.cmdForwardEndClick();
    EXPECT_EQ(s.stepNum, 3);
    EXPECT_TRUE(testing::sameTables(s.position, centre));
    EXPECT_EQ(tk.messages().size(), 2u);
    EXPECT_EQ(tk.count(Request::plainStone), 0u);
    EXPECT_EQ(s.gameResult, gameOpen);
    session.game.backwardEndClick();
    EXPECT_EQ(s.stepNum, 0);
    EXPECT_TRUE(testing::sameTables(s.position, Position{}));
}

}  // namespace
}  // namespace quintline

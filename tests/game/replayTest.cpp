// A reply stepped back and forward through the move record, the four replay
// buttons, and the results of replayed stones.

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "gameFixture.h"

namespace quintline {
namespace {

using namespace testing;
using enum Request;

TEST(Replay, AReplyWithTheSuggestionOnThenSteppedOverAndGivenUp) {
    Session session;
    GameState& s = session.s;
    auto& tk = session.toolkit;
    session.game.toggleSuggestion();
    EXPECT_EQ(
        std::tuple(s.suggestionOn, tk.lastCaption(Control::Command1), tk.count(suggestionMark)),
        std::tuple(flagTrue, "suggestion", 1u));
    tk.forget();

    click(session.game, 9, 8);
    const MoveRecordEntry reply = s.moveRecord[3];
    const Position three = s.position;
    EXPECT_EQ((s.moveRecord[2]), (MoveRecordEntry{white, 9, 8}));
    EXPECT_EQ(s.position.board[reply.x][reply.y], black);
    EXPECT_EQ(std::tuple(s.stepNum, s.gameResult, s.clickAllowed),
              std::tuple(3, gameOpen, flagTrue));
    // Both replay buttons off, the centre stone's ring painted over, the user's
    // stone; the search, the ringed reply, its candidates, the suggestion's mark;
    // cmdBack on again.
    EXPECT_EQ(tk.requests(),
              (std::vector{enabled, enabled, plainStone, caption, stoneAndRing, repaint, enabled,
                           caption, caption, caption, caption, stoneAndRing, repaint,
                           candidateFrames, caption, repaint, caption, suggestionMark, enabled}));
    EXPECT_EQ(std::tuple(tk.calls.at(0).control, tk.calls.at(1).control, tk.calls.back().control),
              std::tuple(Control::cmdBack, Control::cmdForw, Control::cmdBack));
    EXPECT_EQ(std::tuple(tk.calls.at(2).point, tk.calls.at(2).colour),
              std::tuple(Point{8, 8}, black));
    EXPECT_EQ(tk.of(stoneAndRing).at(1).point, (Point{reply.x, reply.y}));
    EXPECT_EQ(tk.captionsOf(Control::whoRun), std::vector<std::string>{"Computer A is running"});
    EXPECT_EQ(tk.captionsOf(Control::Label1), (std::vector<std::string>{"3", "2"}));
    EXPECT_EQ(tk.lastCaption(Control::winLab), "not sure");
    EXPECT_EQ(tk.captionsOf(Control::stepNumLab), (std::vector<std::string>{"2", "3"}));
    std::vector<Point> candidates;
    for (std::int16_t x = 1; x <= boardSize; ++x)
        for (std::int16_t y = 1; y <= boardSize; ++y)
            if (s.position.isCandidate(x, y)) candidates.push_back({x, y});
    EXPECT_EQ(tk.of(candidateFrames).at(0).points, candidates);
    EXPECT_EQ(tk.lastCaption(Control::checkPos), std::to_string(candidates.size()));
    tk.forget();

    // Back over the reply and the user's own stone; the record stays.
    session.game.cmdBackClick();
    EXPECT_EQ(s.clickAllowed, flagFalse);
    session.game.cmdBackClick();
    EXPECT_EQ(s.clickAllowed, flagTrue);
    EXPECT_EQ(std::tuple(s.stepNum, s.movesAhead, s.moveRecord[3]), std::tuple(1, 2, reply));
    EXPECT_EQ(s.position.board[9][8], empty);
    EXPECT_EQ(tk.captionsOf(Control::stepNumLab), (std::vector<std::string>{"2", "1"}));
    const auto erased = tk.of(eraseStone);
    ASSERT_EQ(erased.size(), 2u);
    EXPECT_EQ(std::tuple(erased[0].point, erased[1].point),
              std::tuple(Point{reply.x, reply.y}, Point{9, 8}));
    // cmdBack goes off only at stepNum 0, cmdForw only once nothing lies ahead.
    EXPECT_EQ(std::tuple(tk.lastEnabled(Control::cmdBack), tk.lastEnabled(Control::cmdForw)),
              std::tuple(std::nullopt, true));
    tk.forget();
    session.game.cmdForwClick();
    EXPECT_EQ(std::tuple(s.clickAllowed, tk.lastEnabled(Control::cmdForw)),
              std::tuple(flagFalse, std::nullopt));
    session.game.cmdForwClick();
    EXPECT_EQ(std::tuple(s.stepNum, s.movesAhead, s.gameResult, s.clickAllowed),
              std::tuple(3, 0, gameOpen, flagTrue));
    EXPECT_TRUE(sameTables(s.position, three));
    EXPECT_EQ(tk.lastEnabled(Control::cmdForw), false);
    // A replayed stone comes back ringed, is shown, then painted plain; no suggestion.
    const std::size_t ringed = tk.findLast(stoneAndRing);
    ASSERT_LT(ringed + 2, tk.calls.size());
    EXPECT_EQ(std::tuple(tk.calls[ringed + 1].request, tk.calls[ringed + 2].request,
                         tk.calls[ringed + 2].point, tk.calls[ringed + 2].colour),
              std::tuple(repaint, plainStone, Point{reply.x, reply.y}, black));
    EXPECT_EQ(tk.count(suggestionMark), 0u);

    // The end buttons run at least once and stop at the ends of the record.
    session.game.backwardEndClick();
    EXPECT_EQ(std::tuple(s.stepNum, s.movesAhead, tk.lastEnabled(Control::cmdBack)),
              std::tuple(0, 3, false));
    EXPECT_TRUE(sameTables(s.position, Position{}));
    tk.forget();
    session.game.backwardEndClick();
    EXPECT_EQ(tk.requests(), (std::vector{enabled, enabled}));
    session.game.cmdForwardEndClick();
    EXPECT_EQ(std::tuple(s.stepNum, s.movesAhead), std::tuple(3, 0));
    EXPECT_TRUE(sameTables(s.position, three));
    tk.forget();
    session.game.cmdForwardEndClick();
    EXPECT_EQ(tk.requests(), (std::vector{enabled, enabled}));

    // Switching the suggestion off only says so: its mark stays on the board.
    tk.forget();
    session.game.toggleSuggestion();
    EXPECT_EQ(std::tuple(s.suggestionOn, tk.calls.size(), tk.lastCaption(Control::Command1)),
              std::tuple(flagFalse, 1u, "no suggestion"));
    // A click after stepping back gives up what lay ahead.
    session.game.stepBack();
    session.game.stepBack();
    click(session.game, 7, 7);
    EXPECT_EQ(std::tuple(s.stepNum, s.movesAhead, s.moveRecord[2]),
              std::tuple(3, 0, MoveRecordEntry{white, 7, 7}));
    EXPECT_EQ(tk.lastEnabled(Control::cmdForw), false);
}

TEST(Replay, TheTurnGoesToTheUserBackOverTheOwnStoneOrForwardOverTheOpponents) {
    for (const auto& [user, x, y] : {std::tuple(white, 9, 8), {black, 8, 8}}) {
        Session session({}, user);
        session.s.depthA = 1;
        click(session.game, x, y);  // and the computer's reply
        void (Game::*const steps[])() = {&Game::stepBack, &Game::stepBack, &Game::stepForward,
                                         &Game::stepForward};
        for (int n = 0; n < 4; ++n) {
            (session.game.*steps[n])();
            EXPECT_EQ(session.s.clickAllowed, n % 2 ? flagTrue : flagFalse) << user << " " << n;
        }
    }
}

TEST(Replay, AReplayedStoneThatEndsTheGameNamesTheResult) {
    const std::vector<Point> blackFive{{8, 8}, {1, 1},  {8, 9}, {1, 3}, {8, 10},
                                       {1, 5}, {8, 11}, {1, 7}, {8, 12}};
    const std::vector<Point> whiteFive{{8, 8}, {2, 1},   {10, 14}, {2, 2},   {11, 14},
                                       {2, 3}, {12, 14}, {2, 4},   {13, 14}, {2, 5}};
    for (const auto& [order, result, caption] :
         {std::tuple(blackFive, blackWon, " Black Win"),
          {whiteFive, whiteWon, " White Win"},
          {fullBoardWithoutFive(), gameDrawn, " No one Win"}}) {
        Session session;
        GameState& s = session.s;
        lay(session.game, order);
        session.game.stepBack();
        session.game.stepForward();
        EXPECT_EQ(std::tuple(s.gameResult, s.clickAllowed), std::tuple(result, flagFalse));
        EXPECT_EQ(session.toolkit.captionsOf(Control::whoRun), std::vector<std::string>{caption});
        // Two back and one forward: open again, the caption kept.
        session.game.stepBack();
        session.game.stepBack();
        session.game.stepForward();
        EXPECT_EQ(s.gameResult, gameOpen);
        EXPECT_EQ(session.toolkit.captionsOf(Control::whoRun).size(), 1u);
    }
}

TEST(Replay, AWatchedBoardFilesRecordsOfNoColourNeverEnterTheModelAndItsEndIsAComputerMove) {
    Session session;
    GameState& s = session.s;
    const Position centre = s.position;
    s.moveRecord[2] = {0, 4, 4};
    s.moveRecord[3] = {7, 5, 5};
    std::tie(s.movesAhead, s.userColour, s.depthA) = std::tuple(2, empty, 1);
    session.game.cmdForwardEndClick();
    EXPECT_EQ(std::tuple(s.stepNum, s.gameResult), std::tuple(3, gameOpen));
    EXPECT_TRUE(sameTables(s.position, centre));
    EXPECT_EQ(session.toolkit.messages(),
              std::vector<std::string>(2, "error in Putchess! press cancle to endGame!"));
    EXPECT_EQ(session.toolkit.of(message).at(0).buttons, MessageButtons::okCancel);
    EXPECT_EQ(session.toolkit.count(plainStone), 0u);
    session.game.backwardEndClick();
    EXPECT_TRUE(sameTables(s.position, Position{}));
    // A step past the end, at move 4, is one computer move.
    session.game.cmdForwardEndClick();
    session.game.cmdForwardEndClick();
    EXPECT_EQ(s.moveRecord[4].colour, white);
    EXPECT_EQ(session.toolkit.lastCaption(Control::whoRun), "Computer A is running");
}

}  // namespace
}  // namespace quintline

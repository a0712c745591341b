// A reply stepped back and forward through the move record, the four replay
// buttons, and the results of replayed stones.

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "gameFixture.h"
#include "support/scriptedSearches.h"

namespace quintline {
namespace {

using namespace testing;
using enum Request;

TEST(Replay, AReplyWithTheSuggestionOnThenSteppedOverAndGivenUp) {
    // Computer A builds its column from (1, 1) at depth 3; the suggestion's
    // search, at depth 2, wanders to (15, 3).
    Session session(scriptedSearches());
    GameState& s = session.s;
    auto& tk = session.toolkit;
    const Position one = s.position;
    session.game.toggleSuggestion();
    EXPECT_EQ(s.suggestionOn, flagTrue);
    EXPECT_EQ(tk.transcript(), "caption Command1 suggestion\ncaption Label1 2\nmark 15,3\n");
    tk.forget();

    click(session.game, 9, 8);
    const Position three = s.position;
    EXPECT_EQ(std::tuple(s.moveRecord[2], s.moveRecord[3], s.position.board[1][1]),
              std::tuple(MoveRecordEntry{white, 9, 8}, MoveRecordEntry{black, 1, 1}, black));
    EXPECT_EQ(std::tuple(s.stepNum, s.gameResult, s.clickAllowed),
              std::tuple(3, gameOpen, flagTrue));
    // The buttons off, the centre stone's ring painted over, the user's stone;
    // the search, the ringed reply, its 13 candidates, the suggestion; cmdBack on.
    EXPECT_EQ(tk.transcript(),
              "enabled cmdBack off\nenabled cmdForw off\nplain 8,8 1\n"
              "caption stepNumLab 2\nstone 9,8 -1 -1\nrepaint\n"
              "enabled cmdForw off\ncaption Label1 3\ncaption whoRun Computer A is running\n"
              "caption winLab not sure\ncaption stepNumLab 3\nstone 1,1 1 -1\nrepaint\n"
              "frames 13\ncaption checkPos 13\nrepaint\n"
              "caption Label1 2\nmark 15,3\nenabled cmdBack on\n");
    std::vector<Point> candidates;  // in scan order
    for (std::int16_t x = 1; x <= boardSize; ++x)
        for (std::int16_t y = 1; y <= boardSize; ++y)
            if (s.position.isCandidate(x, y)) candidates.push_back({x, y});
    EXPECT_EQ(tk.of(candidateFrames).at(0).points, candidates);
    tk.forget();

    // Back over the reply and the user's own stone: the record stays, cmdBack
    // is left alone above stepNum 0.
    session.game.cmdBackClick();
    EXPECT_EQ(s.clickAllowed, flagFalse);
    session.game.cmdBackClick();
    EXPECT_EQ(s.clickAllowed, flagTrue);
    EXPECT_EQ(std::tuple(s.stepNum, s.movesAhead, s.moveRecord[3]),
              std::tuple(1, 2, MoveRecordEntry{black, 1, 1}));
    EXPECT_TRUE(sameTables(s.position, one));
    EXPECT_EQ(tk.transcript(),
              "caption stepNumLab 2\nerase 1,1\nenabled cmdForw on\n"
              "caption stepNumLab 1\nerase 9,8\nenabled cmdForw on\n");
    tk.forget();
    // Forward again: each stone shown ringed, then plain; no suggestion.
    session.game.cmdForwClick();
    EXPECT_EQ(s.clickAllowed, flagFalse);
    session.game.cmdForwClick();
    EXPECT_EQ(std::tuple(s.stepNum, s.movesAhead, s.gameResult, s.clickAllowed),
              std::tuple(3, 0, gameOpen, flagTrue));
    EXPECT_TRUE(sameTables(s.position, three));
    EXPECT_EQ(tk.transcript(),
              "caption stepNumLab 2\nstone 9,8 -1 -1\nrepaint\nplain 9,8 -1\nenabled cmdBack on\n"
              "caption stepNumLab 3\nstone 1,1 1 -1\nrepaint\nplain 1,1 1\n"
              "enabled cmdForw off\nenabled cmdBack on\n");

    // The end buttons run at least once and stop at the ends of the record.
    session.game.backwardEndClick();
    EXPECT_EQ(std::tuple(s.stepNum, s.movesAhead), std::tuple(0, 3));
    EXPECT_TRUE(sameTables(s.position, Position{}));
    tk.forget();
    session.game.backwardEndClick();
    session.game.cmdForwardEndClick();
    EXPECT_TRUE(tk.transcript().starts_with(
        "enabled cmdBack off\nenabled cmdForw on\ncaption stepNumLab 1\n"));
    EXPECT_EQ(std::tuple(s.stepNum, s.movesAhead), std::tuple(3, 0));
    EXPECT_TRUE(sameTables(s.position, three));
    tk.forget();
    session.game.cmdForwardEndClick();
    EXPECT_EQ(tk.transcript(), "enabled cmdForw off\nenabled cmdBack on\n");

    // Switching the suggestion off only says so: its mark stays on the board.
    tk.forget();
    session.game.toggleSuggestion();
    EXPECT_EQ(std::tuple(s.suggestionOn, tk.transcript()),
              std::tuple(flagFalse, "caption Command1 no suggestion\n"));
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

    // Such a record as the 225th stone still fills the board.
    Session full;
    lay(full.game, fullBoardWithoutFive(), 224);
    std::tie(full.s.moveRecord[225], full.s.movesAhead) = std::tuple(MoveRecordEntry{0, 1, 1}, 1);
    full.game.stepForward();
    EXPECT_EQ(full.s.gameResult, gameDrawn);
}

}  // namespace
}  // namespace quintline

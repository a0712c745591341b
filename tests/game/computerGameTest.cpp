// The computer's move, games between two computers, the searches that leave no
// point to play, and the suggestion's search.

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "game/suggestionDepth.h"
#include "gameFixture.h"

namespace quintline {
namespace {

using namespace testing;

// What every finished game between computers shows: alternating colours on
// the board, the last mover as the winner, no turn for the user.
void expectFinished(const GameState& s, const RecordingToolkit& tk) {
    ASSERT_NE(s.gameResult, gameOpen);
    for (int n = 1; n <= s.stepNum; ++n) {
        const MoveRecordEntry& m = s.moveRecord[n];
        EXPECT_EQ(m.colour, sideToMove(static_cast<std::int16_t>(n))) << n;
        EXPECT_EQ(s.position.board[m.x][m.y], m.colour) << n;
    }
    EXPECT_TRUE(s.gameResult == gameDrawn || s.gameResult == s.moveRecord[s.stepNum].colour);
    EXPECT_EQ(std::tuple(s.clickAllowed, s.movesAhead), std::tuple(flagFalse, 0));
    EXPECT_EQ(std::tuple(tk.lastEnabled(Control::cmdBack), tk.lastEnabled(Control::cmdForw)),
              std::tuple(true, false));
}

TEST(ComputerGame, BlackOpensOnTheCentreThenEachKindSearchesInTurnAtItsDepth) {
    // From the empty board (the user on black) black opens without a search;
    // from one stone white searches first.
    const std::tuple<Side, PlayerKind, PlayerKind, int, int, const char*, const char*> rows[] = {
        {black, computerA, computerB, 2, 2, "Computer B is running", "Computer A is running"},
        {white, aKnowsB, bKnowsA, 1, 2, "Computer B(knows A) is running",
         "Computer A(knows B) is running"}};
    for (const auto& [user, blackSide, whiteSide, depthA, depthB, first, second] : rows) {
        Session session({}, user);
        GameState& s = session.s;
        auto& tk = session.toolkit;
        std::tie(s.blackSide, s.whiteSide, s.depthA, s.depthB, s.movesAhead) =
            std::tuple(blackSide, whiteSide, depthA, depthB, 3);
        session.game.computerGame();
        EXPECT_EQ((s.moveRecord[1]), (MoveRecordEntry{black, 8, 8}));
        expectFinished(s, tk);
        // One search and one set of candidate frames for every stone after the opening.
        const auto whoRun = tk.captionsOf(Control::whoRun);
        const auto depths = tk.captionsOf(Control::Label1);
        const std::size_t searches = depths.size();
        EXPECT_EQ(searches, static_cast<std::size_t>(s.stepNum - 1));
        EXPECT_EQ(tk.count(Request::candidateFrames), searches);
        ASSERT_GT(whoRun.size(), searches);
        for (std::size_t n = 0; n < searches; ++n) {
            EXPECT_EQ(whoRun[n], n % 2 ? second : first) << n;
            EXPECT_EQ(depths[n], std::to_string(n % 2 ? depthA : depthB)) << n;
        }
    }
}

TEST(ComputerGame, TheWinnerIsNamedByColourAndFamily) {
    // After eight stones black, after nine white is to move, each holding a four.
    const std::vector<Point> fours{{8, 8}, {1, 1},  {8, 9}, {1, 2},  {8, 10},
                                   {1, 3}, {8, 11}, {1, 4}, {14, 14}};
    const std::tuple<PlayerKind, PlayerKind, std::size_t, const char*> rows[] = {
        {computerB, computerA, 8, "GameOver! B (black) Win!"},
        {aKnowsB, computerB, 8, "GameOver! A (black) Win!"},
        {computerB, computerA, 9, "GameOver! A (white) Win!"},
        {computerA, bKnowsA, 9, "GameOver! B (white) Win!"}};
    for (const auto& [blackSide, whiteSide, stones, winner] : rows) {
        Session session;
        GameState& s = session.s;
        lay(session.game, fours, stones);
        std::tie(s.blackSide, s.whiteSide, s.depthA, s.depthB) =
            std::tuple(blackSide, whiteSide, 1, 1);
        session.toolkit.forget();
        session.game.computerGame();
        EXPECT_EQ(s.stepNum, stones + 1);
        expectFinished(s, session.toolkit);
        // A win against userColour (white) is first announced as the computer's.
        const auto whoRun = session.toolkit.captionsOf(Control::whoRun);
        ASSERT_GE(whoRun.size(), 2u);
        EXPECT_EQ(whoRun.back(), winner);
        EXPECT_EQ(whoRun[whoRun.size() - 2] == "Game Over! Computer Win.", stones == 8);
    }
}

// A search that chooses a fixed point, reports a fixed score and moves stepNum
// as real searches do.
template <Score score, std::int16_t x, std::int16_t y>
Score fixedSearch(SearchState& s, std::int16_t step, std::int16_t) {
    s.bestX[step] = x;
    s.bestY[step] = y;
    s.stepNum = static_cast<std::int16_t>(step + 7);
    return score;
}

template <Score score>
nodeScores fixedModelSearch(SearchState& s, std::int16_t step, std::int16_t depth) {
    return {0, fixedSearch<score, 9, 9>(s, step, depth), -1};
}

TEST(ComputerMove, APredictionOfAWinFromTheWinScoreOn) {
    SearchSet atWin, atLoss;
    atWin.searchA = &fixedSearch<winScore, 9, 9>;
    atLoss.searchAKnowsB = &fixedModelSearch<-winScore>;
    for (const auto& [searches, kind, prediction] :
         {std::tuple(atWin, computerA, "Black will win"), {atLoss, aKnowsB, "White will win"}}) {
        Session session(searches);
        EXPECT_EQ(session.game.computerMove(kind), gameOpen);
        EXPECT_EQ(session.toolkit.lastCaption(Control::winLab), prediction);
        EXPECT_EQ(std::tuple(session.s.stepNum, session.s.moveRecord[2]),
                  std::tuple(2, MoveRecordEntry{white, 9, 9}));
    }
}

TEST(NoPoint, ASearchThatLeavesNoPointCommitsNoStone) {
    SearchSet onStone, offBoard;
    onStone.searchA = &fixedSearch<0, 8, 8>;
    offBoard.searchA = &fixedSearch<0, 16, 3>;
    // Below depth 1 the search only scores; kind 0 has no search at all.
    const std::tuple<SearchSet, PlayerKind, int> rows[] = {{{}, computerA, 0},
                                                           {{}, computerA, -2},
                                                           {onStone, computerA, 3},
                                                           {offBoard, computerA, 3},
                                                           {{}, userKind, 3}};
    for (const auto& [searches, kind, depth] : rows) {
        Session session(searches);
        GameState& s = session.s;
        auto& tk = session.toolkit;
        s.depthA = static_cast<std::int16_t>(depth);
        s.clickAllowed = flagFalse;
        s.bestX[1] = s.bestY[1] = 9;  // left over from an earlier search
        const Position before = s.position;
        EXPECT_EQ(session.game.computerMove(kind), gameDrawn) << kind << " " << depth;
        EXPECT_EQ(std::tuple(s.stepNum, s.gameResult, s.clickAllowed),
                  std::tuple(1, gameDrawn, flagFalse));
        EXPECT_TRUE(sameTables(s.position, before));
        EXPECT_EQ(tk.count(Request::stoneAndRing) + tk.count(Request::candidateFrames), 0u);
        EXPECT_EQ(tk.lastCaption(Control::whoRun), "Game Over! No one Win.");
        EXPECT_EQ(tk.lastCaption(Control::Label1),
                  kind == userKind ? std::nullopt : std::optional(std::to_string(depth)));
    }
}

TEST(NoPoint, AStandingFiveDecidesForItsHolderWhiteBeforeBlack) {
    Session session;
    GameState& s = session.s;
    auto& tk = session.toolkit;
    const std::vector<Point> fives{{8, 8},  {1, 1}, {9, 8},  {1, 2}, {10, 8}, {1, 3},
                                   {11, 8}, {1, 4}, {12, 8}, {1, 5}, {2, 2}};
    lay(session.game, fives, 9);  // black's five, white to move
    s.bestX[9] = 1;               // the point that would give white its five
    s.bestY[9] = 5;
    EXPECT_EQ(session.game.computerMove(computerA), blackWon);
    EXPECT_EQ(std::tuple(s.stepNum, s.position.board[1][5]), std::tuple(9, empty));
    EXPECT_EQ(tk.lastCaption(Control::whoRun), "Game Over! Computer Win.");

    lay(session.game, fives);  // both fives
    s.userColour = black;
    EXPECT_EQ(session.game.computerMove(bKnowsA), whiteWon);
    EXPECT_EQ(tk.lastCaption(Control::whoRun), "Game Over! Computer Win.");
    // The user's colour winning adds no caption to the search's own.
    s.userColour = white;
    tk.forget();
    EXPECT_EQ(session.game.computerMove(computerB), whiteWon);
    EXPECT_EQ(tk.captionsOf(Control::whoRun), std::vector<std::string>{"Computer B is running"});
}

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

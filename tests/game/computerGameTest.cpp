// The computer's move and games between two computers, including the cases in
// which the search leaves no point to play.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "gameFixture.h"

namespace quintline {
namespace {

using testing::layAsTwoUsers;
using testing::RecordingToolkit;
using testing::Request;
using testing::Session;

bool isRunningCaption(const std::string& text) {
    return text.ends_with(" is running");
}

// Checks what every finished game between computers must show.
void expectFinishedComputerGame(const GameState& s, const RecordingToolkit& tk) {
    EXPECT_NE(s.gameResult, gameOpen);
    if (s.gameResult != gameDrawn) {
        EXPECT_EQ(s.gameResult, s.moveRecord[s.stepNum].colour);
    }
    for (int n = 1; n <= s.stepNum; ++n) {
        const MoveRecordEntry& m = s.moveRecord[n];
        EXPECT_EQ(m.colour, sideToMove(static_cast<std::int16_t>(n))) << n;
        EXPECT_EQ(s.position.board[m.x][m.y], m.colour) << n;
    }
    EXPECT_TRUE(censusOk(s.position));
    EXPECT_EQ(s.clickAllowed, flagFalse);
    EXPECT_EQ(s.movesAhead, 0);
    EXPECT_EQ(tk.lastEnabled(Control::cmdBack), true);
    EXPECT_EQ(tk.lastEnabled(Control::cmdForw), false);
    const std::string expected =
        s.gameResult == gameDrawn ? "Game Over! No one Win."
        : s.gameResult == blackWon
            ? (isAFamily(s.blackSide) ? "GameOver! A (black) Win!" : "GameOver! B (black) Win!")
            : (isAFamily(s.whiteSide) ? "GameOver! A (white) Win!" : "GameOver! B (white) Win!");
    EXPECT_EQ(tk.lastCaption(Control::whoRun), expected);
}

TEST(ComputerGame, FromTheEmptyBoardBlackOpensOnTheCentre) {
    Session session;
    GameState& s = session.s;
    auto& tk = session.toolkit;
    s.userColour = black;
    session.game.newGame();
    ASSERT_EQ(s.stepNum, 0);
    s.blackSide = computerA;
    s.whiteSide = computerB;
    s.depthA = 2;
    s.depthB = 2;
    s.movesAhead = 3;
    tk.forget();
    session.game.computerGame();

    EXPECT_EQ((s.moveRecord[1]), (MoveRecordEntry{black, 8, 8}));
    expectFinishedComputerGame(s, tk);
    // One search per stone after the opening, B first, then taking turns.
    std::vector<std::string> running;
    for (const std::string& c : tk.captionsOf(Control::whoRun))
        if (isRunningCaption(c)) running.push_back(c);
    ASSERT_EQ(running.size(), static_cast<std::size_t>(s.stepNum - 1));
    for (std::size_t n = 0; n < running.size(); ++n)
        EXPECT_EQ(running[n], n % 2 == 0 ? "Computer B is running" : "Computer A is running");
    EXPECT_EQ(tk.count(Request::candidateFrames), static_cast<std::size_t>(s.stepNum - 1));
    EXPECT_EQ(tk.count(Request::stoneAndRing), static_cast<std::size_t>(s.stepNum));
    // Stones of the colour other than userColour carry a ring: each asks with userColour.
    for (const auto& stone : tk.of(Request::stoneAndRing)) EXPECT_EQ(stone.userColour, black);
}

TEST(ComputerGame, FromAnOddStoneCountWhiteStartsAndEachKindSearchesItsDepth) {
    Session session;
    GameState& s = session.s;
    auto& tk = session.toolkit;
    ASSERT_EQ(s.stepNum, 1);
    s.blackSide = aKnowsB;
    s.whiteSide = bKnowsA;
    s.depthA = 1;
    s.depthB = 2;
    tk.forget();
    session.game.computerGame();

    EXPECT_EQ(s.moveRecord[2].colour, white);
    expectFinishedComputerGame(s, tk);
    const auto running = tk.captionsOf(Control::whoRun);
    ASSERT_GE(running.size(), 2u);
    EXPECT_EQ(running[0], "Computer B(knows A) is running");
    EXPECT_EQ(running[1], "Computer A(knows B) is running");
    const auto depths = tk.captionsOf(Control::Label1);
    ASSERT_EQ(depths.size(), static_cast<std::size_t>(s.stepNum - 1));
    for (std::size_t n = 0; n < depths.size(); ++n)
        EXPECT_EQ(depths[n], n % 2 == 0 ? "2" : "1") << n;
}

TEST(ComputerGame, WinnerCaptionsByKind) {
    struct Row {
        PlayerKind blackSide, whiteSide;
        bool blackFour;  // otherwise white holds a four
        const char* winner;
    };
    for (const Row row : {Row{computerB, computerA, true, "GameOver! B (black) Win!"},
                          Row{aKnowsB, computerB, true, "GameOver! A (black) Win!"},
                          Row{computerB, computerA, false, "GameOver! A (white) Win!"},
                          Row{computerA, bKnowsA, false, "GameOver! B (white) Win!"}}) {
        Session session;
        GameState& s = session.s;
        auto& tk = session.toolkit;
        if (row.blackFour)  // black to move, holding (8, 8) to (8, 11)
            layAsTwoUsers(session.game,
                          {{1, 1}, {8, 9}, {1, 3}, {8, 10}, {1, 5}, {8, 11}, {14, 14}});
        else  // white to move, holding (1, 1) to (1, 4)
            layAsTwoUsers(session.game,
                          {{1, 1}, {10, 12}, {1, 2}, {12, 10}, {1, 3}, {14, 14}, {1, 4}, {5, 12}});
        s.userColour = white;
        s.blackSide = row.blackSide;
        s.whiteSide = row.whiteSide;
        s.depthA = 1;
        s.depthB = 1;
        const std::int16_t before = s.stepNum;
        tk.forget();
        session.game.computerGame();

        EXPECT_EQ(s.stepNum, before + 1) << row.winner;
        EXPECT_EQ(s.gameResult, row.blackFour ? blackWon : whiteWon);
        expectFinishedComputerGame(s, tk);
        // A win against userColour is first announced as the computer's.
        auto captions = tk.captionsOf(Control::whoRun);
        ASSERT_GE(captions.size(), 2u);
        EXPECT_EQ(captions.back(), row.winner);
        EXPECT_EQ(captions[captions.size() - 2],
                  row.blackFour ? "Game Over! Computer Win." : captions.front());
    }
}

TEST(ComputerGame, TheLastStoneOfAFullBoardDraws) {
    Session session;
    GameState& s = session.s;
    auto& tk = session.toolkit;
    const auto order = testing::fullBoardWithoutFive();
    for (std::size_t n = 1; n < 224; ++n)
        session.game.Putchess(order[n].x, order[n].y, sideToMove(static_cast<std::int16_t>(n + 1)));
    s.blackSide = computerB;
    s.whiteSide = computerB;
    tk.forget();
    session.game.computerGame();
    EXPECT_EQ(s.stepNum, 225);
    EXPECT_EQ(s.gameResult, gameDrawn);
    expectFinishedComputerGame(s, tk);
    EXPECT_EQ(tk.lastCaption(Control::winLab), "not sure");  // 224 stones and depth 3
}

// Searches that choose a fixed point and report a fixed score, and disturb
// stepNum as real searches do.
template <Score score, std::int16_t x, std::int16_t y>
Score fixedSearch(SearchState& s, std::int16_t step, std::int16_t) {
    s.bestX[step] = x;
    s.bestY[step] = y;
    s.stepNum = static_cast<std::int16_t>(step + 7);
    return score;
}

template <Score score, std::int16_t x, std::int16_t y>
nodeScores fixedModelSearch(SearchState& s, std::int16_t step, std::int16_t depth) {
    return {0, fixedSearch<score, x, y>(s, step, depth), -1};
}

TEST(ComputerMove, PredictionFromTheScore) {
    struct Row {
        SearchSet searches;
        PlayerKind kind;
        const char* prediction;
    };
    SearchSet atWin;
    atWin.searchA = &fixedSearch<winScore, 9, 9>;
    SearchSet belowWin;
    belowWin.searchB = &fixedSearch<winScore - 1, 9, 9>;
    SearchSet atLoss;
    atLoss.searchAKnowsB = &fixedModelSearch<-winScore, 9, 9>;
    SearchSet aboveLoss;
    aboveLoss.searchBKnowsA = &fixedModelSearch<-winScore + 1, 9, 9>;
    for (const Row& row :
         {Row{atWin, computerA, "Black will win"}, Row{belowWin, computerB, "not sure"},
          Row{atLoss, aKnowsB, "White will win"}, Row{aboveLoss, bKnowsA, "not sure"}}) {
        RecordingToolkit tk;
        Game game(tk, row.searches);
        game.startSession();
        game.newGame();
        tk.forget();
        EXPECT_EQ(game.computerMove(row.kind), gameOpen);
        EXPECT_EQ(tk.lastCaption(Control::winLab), row.prediction) << row.kind;
        EXPECT_EQ(game.state().stepNum, 2);
        EXPECT_EQ((game.state().moveRecord[2]), (MoveRecordEntry{white, 9, 9}));
        EXPECT_EQ(tk.lastCaption(Control::Label1), "3");
    }
}

TEST(ComputerMove, TheOpeningSearchesNothingButRefreshesTheSuggestion) {
    RecordingToolkit tk;
    Game game(tk);
    GameState& s = game.state();
    game.startSession();
    s.userColour = black;
    game.newGame();
    s.suggestionOn = flagTrue;
    s.movesAhead = 2;
    s.clickAllowed = flagFalse;
    tk.forget();
    EXPECT_EQ(game.computerMove(computerB), gameOpen);
    EXPECT_EQ(s.stepNum, 1);
    EXPECT_EQ((s.moveRecord[1]), (MoveRecordEntry{black, 8, 8}));
    EXPECT_EQ(s.gameResult, gameOpen);
    EXPECT_EQ(s.clickAllowed, flagTrue);
    EXPECT_EQ(s.movesAhead, 0);
    EXPECT_EQ(tk.calls.front().control, Control::cmdForw);
    EXPECT_FALSE(tk.calls.front().enabled);
    EXPECT_FALSE(tk.lastCaption(Control::whoRun));
    EXPECT_FALSE(tk.lastCaption(Control::winLab));
    EXPECT_EQ(tk.count(Request::candidateFrames), 0u);
    // The suggestion follows the stone, at its own depth.
    EXPECT_EQ(tk.captionsOf(Control::Label1), std::vector<std::string>{"2"});
    ASSERT_EQ(tk.count(Request::suggestionMark), 1u);
    EXPECT_LT(tk.find(Request::stoneAndRing), tk.find(Request::suggestionMark));
}

TEST(NoPoint, ADepthBelowOneCommitsNoStone) {
    Session session;
    GameState& s = session.s;
    auto& tk = session.toolkit;
    s.depthA = 0;
    s.clickAllowed = flagFalse;
    s.bestX[1] = 9;  // left over from an earlier search
    s.bestY[1] = 9;
    tk.forget();
    EXPECT_EQ(session.game.computerMove(computerA), gameDrawn);
    EXPECT_EQ(s.stepNum, 1);
    EXPECT_EQ(s.position.board[9][9], empty);
    EXPECT_EQ(s.gameResult, gameDrawn);
    EXPECT_EQ(tk.lastCaption(Control::Label1), "0");
    EXPECT_EQ(tk.lastCaption(Control::whoRun), "Game Over! No one Win.");
    EXPECT_EQ(tk.count(Request::stoneAndRing), 0u);
    EXPECT_EQ(tk.count(Request::candidateFrames), 0u);
    EXPECT_EQ(s.clickAllowed, flagFalse);

    // A game between computers with a negative depth ends at once.
    s.blackSide = computerA;
    s.whiteSide = computerB;
    s.depthB = -2;
    tk.forget();
    session.game.computerGame();
    EXPECT_EQ(s.stepNum, 1);
    EXPECT_EQ(s.gameResult, gameDrawn);
    EXPECT_EQ(tk.lastCaption(Control::Label1), "-2");
    EXPECT_EQ(tk.lastCaption(Control::winLab), "not sure");
    EXPECT_EQ(tk.lastEnabled(Control::cmdBack), true);
}

TEST(NoPoint, AStandingFiveEndsTheGameForItsColour) {
    Session session;
    GameState& s = session.s;
    auto& tk = session.toolkit;
    Game& game = session.game;
    for (std::int16_t n = 1; n <= 4; ++n) {
        game.Putchess(1, n, white);
        game.Putchess(static_cast<std::int16_t>(8 + n), 8, black);
    }
    ASSERT_EQ(s.position.census(black, 5), 1);
    ASSERT_EQ(s.stepNum, 9);  // white to move
    s.bestX[9] = 1;
    s.bestY[9] = 5;  // the point that would give white its five
    tk.forget();
    EXPECT_EQ(game.computerMove(computerA), blackWon);
    EXPECT_EQ(s.stepNum, 9);
    EXPECT_EQ(s.position.board[1][5], empty);
    EXPECT_EQ(tk.lastCaption(Control::whoRun), "Game Over! Computer Win.");
    EXPECT_EQ(tk.count(Request::stoneAndRing), 0u);

    // With fives of both colours white's counts.
    game.Putchess(1, 5, white);
    game.Putchess(2, 2, black);
    s.userColour = black;
    tk.forget();
    EXPECT_EQ(game.computerMove(bKnowsA), whiteWon);
    EXPECT_EQ(s.stepNum, 11);
    EXPECT_EQ(tk.lastCaption(Control::whoRun), "Game Over! Computer Win.");

    // The user's colour winning changes no caption beyond the search's own.
    s.userColour = white;
    tk.forget();
    EXPECT_EQ(game.computerMove(computerB), whiteWon);
    EXPECT_EQ(tk.captionsOf(Control::whoRun), std::vector<std::string>{"Computer B is running"});
}

TEST(NoPoint, NeverOnAStoneNorOffTheBoardNorForAnUnknownKind) {
    SearchSet onStone;
    onStone.searchA = &fixedSearch<0, 8, 8>;
    SearchSet offBoard;
    offBoard.searchA = &fixedSearch<0, 16, 3>;
    for (const SearchSet& searches : {onStone, offBoard}) {
        RecordingToolkit tk;
        Game game(tk, searches);
        game.startSession();
        game.newGame();
        const Position before = game.state().position;
        EXPECT_EQ(game.computerMove(computerA), gameDrawn);
        EXPECT_EQ(game.state().stepNum, 1);
        EXPECT_TRUE(testing::sameTables(game.state().position, before));
    }

    Session session;
    session.toolkit.forget();
    EXPECT_EQ(session.game.computerMove(userKind), gameDrawn);
    EXPECT_EQ(session.s.stepNum, 1);
    EXPECT_FALSE(session.toolkit.lastCaption(Control::Label1));
    EXPECT_EQ(session.toolkit.lastCaption(Control::whoRun), "Game Over! No one Win.");
}

}  // namespace
}  // namespace quintline

// Session start-up, new games, the committing of a stone, and the two plain
// toolkits.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "game/silentToolkit.h"
#include "gameFixture.h"

namespace quintline {
namespace {

using testing::Call;
using testing::Request;
using testing::Session;

TEST(StartUp, OpensWithTheCentreStoneAndTheDesignSettings) {
    Session session;
    const GameState& s = session.s;
    const auto& tk = session.toolkit;

    EXPECT_EQ(s.windowTitle, "Quintline Version 3.5  15*15  ");
    EXPECT_EQ(tk.lastCaption(Control::mainForm), s.windowTitle);
    EXPECT_EQ(s.winScore, 10737418);
    EXPECT_EQ(s.sureScore, 1073742);
    EXPECT_EQ(s.cellSize, 533);
    EXPECT_EQ(s.depthA, 3);
    EXPECT_EQ(s.depthB, 3);
    EXPECT_EQ(s.blackSide, computerA);
    EXPECT_EQ(s.whiteSide, userKind);
    EXPECT_EQ(s.computerKind, computerA);
    EXPECT_EQ(s.computerColour, black);
    EXPECT_EQ(s.userColour, white);
    EXPECT_EQ(s.twoUsers, flagFalse);

    EXPECT_EQ(s.stepNum, 1);
    EXPECT_EQ(s.position.board[8][8], black);
    EXPECT_EQ((s.moveRecord[1]), (MoveRecordEntry{black, 8, 8}));
    EXPECT_EQ(s.position.census(black, 1), 20);
    EXPECT_EQ(s.movesAhead, 0);
    EXPECT_EQ(s.clickAllowed, flagTrue);
    EXPECT_EQ(s.gameResult, gameDrawn);
    EXPECT_EQ(s.suggestionOn, flagFalse);

    EXPECT_EQ(tk.lastCaption(Control::Command1), "no suggestion");
    EXPECT_EQ(tk.captionsOf(Control::stepNumLab), std::vector<std::string>{"1"});
    // The opening stone marks no candidates and starts no search.
    EXPECT_EQ(tk.count(Request::candidateFrames), 0u);
    EXPECT_FALSE(tk.lastCaption(Control::checkPos));
    EXPECT_FALSE(tk.lastCaption(Control::whoRun));
    EXPECT_FALSE(tk.lastCaption(Control::Label1));

    // The lists and the canvas are cleared before the stone, which comes with
    // its ring (the user plays white) and a repaint.
    const std::size_t grid = tk.find(Request::clearAndGrid);
    const std::size_t stone = tk.find(Request::stoneAndRing);
    ASSERT_LT(stone, tk.calls.size());
    EXPECT_LT(grid, stone);
    EXPECT_EQ(tk.count(Request::clearList), 2u);
    EXPECT_LT(tk.find(Request::clearList), grid);
    const Call& drawn = tk.calls[stone];
    EXPECT_EQ(drawn.point, (Point{8, 8}));
    EXPECT_EQ(drawn.colour, black);
    EXPECT_EQ(drawn.userColour, white);
    EXPECT_EQ(tk.find(Request::repaint, stone), stone + 1);
}

TEST(StartUp, ReadsBoardWidthAndDepthBoxes) {
    struct Row {
        double width;
        std::int16_t cellSize;
    };
    // Width / 15 rounded to the nearest, ties to even.
    for (const Row row :
         {Row{7500, 500}, Row{8007.5, 534}, Row{8002.5, 534}, Row{7987.5, 532}, Row{7992.4, 533}}) {
        testing::RecordingToolkit tk;
        tk.width = row.width;
        tk.depthTexts[0] = "2";
        tk.depthTexts[1] = " 1 ";
        Game game(tk);
        game.startSession();
        EXPECT_EQ(game.state().cellSize, row.cellSize) << row.width;
        EXPECT_EQ(game.state().depthA, 2);
        EXPECT_EQ(game.state().depthB, 1);
    }

    // A box whose text is no number leaves the depth as it was.
    testing::RecordingToolkit tk;
    tk.depthTexts[0] = "deep";
    tk.depthTexts[1] = "4";
    Game game(tk);
    game.startSession();
    EXPECT_EQ(game.state().depthA, 3);
    EXPECT_EQ(game.state().depthB, 4);
}

TEST(NewGame, ClearsTheGameAndLeavesResultSidesAndLabels) {
    Session session;
    GameState& s = session.s;
    auto& tk = session.toolkit;
    testing::click(session.game, 9, 9);  // computer A replies
    ASSERT_EQ(s.stepNum, 3);
    s.gameResult = blackWon;
    s.suggestionOn = flagTrue;
    s.blackSide = computerB;
    s.depthA = 2;
    s.movesAhead = 4;
    s.bestX[3] = 6;

    // With the user on black the board stays empty and stepNumLab keeps "3".
    s.userColour = black;
    tk.forget();
    session.game.newGame();
    EXPECT_EQ(s.stepNum, 0);
    EXPECT_TRUE(testing::sameTables(s.position, Position{}));
    for (int n = 1; n <= maxStones; ++n) EXPECT_EQ(s.moveRecord[n], MoveRecordEntry{}) << n;
    EXPECT_EQ(tk.count(Request::stoneAndRing), 0u);
    EXPECT_FALSE(tk.lastCaption(Control::stepNumLab));
    EXPECT_EQ(s.movesAhead, 0);
    EXPECT_EQ(s.suggestionOn, flagFalse);
    EXPECT_EQ(tk.lastCaption(Control::Command1), "no suggestion");
    EXPECT_EQ(s.clickAllowed, flagTrue);
    EXPECT_EQ(s.gameResult, blackWon);
    EXPECT_EQ(s.blackSide, computerB);
    EXPECT_EQ(s.depthA, 2);
    EXPECT_EQ(s.bestX[3], 6);
    EXPECT_EQ(tk.count(Request::enabled), 0u);
    for (Control c : {Control::whoRun, Control::winLab, Control::Label1, Control::checkPos})
        EXPECT_FALSE(tk.lastCaption(c)) << controlName(c);

    // A two-user game with white to click gets black's centre stone.
    s.twoUsers = flagTrue;
    s.userColour = white;
    s.clickAllowed = flagFalse;
    session.game.newGame();
    EXPECT_EQ(s.stepNum, 1);
    EXPECT_EQ(s.position.board[8][8], black);
    EXPECT_EQ(s.clickAllowed, flagTrue);
    EXPECT_EQ(tk.lastCaption(Control::stepNumLab), "1");
}

TEST(Putchess, ABadColourIsShownWithItsMessageButNeverEntersTheModel) {
    for (MessageAnswer answer : {MessageAnswer::ok, MessageAnswer::cancel}) {
        for (Side colour : {Side{0}, Side{2}, Side{-5}}) {
            Session session;
            GameState& s = session.s;
            auto& tk = session.toolkit;
            const Position before = s.position;
            tk.forget();
            tk.answers.push_back(answer);
            session.game.Putchess(5, 5, colour);
            EXPECT_EQ(s.stepNum, 2);
            EXPECT_EQ((s.moveRecord[2]), (MoveRecordEntry{colour, 5, 5}));
            EXPECT_TRUE(testing::sameTables(s.position, before));
            const auto boxes = tk.of(Request::message);
            ASSERT_EQ(boxes.size(), 1u);
            EXPECT_EQ(boxes[0].text, "error in Putchess! press cancle to endGame!");
            EXPECT_EQ(boxes[0].buttons, MessageButtons::okCancel);
            // The message comes before the figure, which is still asked for.
            const std::size_t box = tk.find(Request::message);
            const std::size_t stone = tk.find(Request::stoneAndRing);
            ASSERT_LT(stone, tk.calls.size());
            EXPECT_LT(box, stone);
            EXPECT_EQ(tk.calls[stone].colour, colour);
            EXPECT_EQ(tk.count(Request::repaint), 1u);
        }
    }
}

TEST(SilentToolkit, RunsAGameAndHandsOnItsMessages) {
    std::vector<std::string> heard;
    SilentToolkit silent([&](std::string_view text) { heard.emplace_back(text); });
    Game game(silent);
    game.startSession();
    game.newGame();
    EXPECT_EQ(game.state().windowTitle, "Quintline Version 3.5  15*15  ");
    EXPECT_EQ(game.state().cellSize, 533);
    EXPECT_EQ(game.state().depthB, 3);
    game.state().blackSide = computerB;
    game.state().whiteSide = computerA;
    game.state().depthA = 1;
    game.state().depthB = 1;
    game.computerGame();
    EXPECT_NE(game.state().gameResult, gameOpen);
    EXPECT_TRUE(heard.empty());
    game.Putchess(1, 1, 0);
    EXPECT_EQ(heard, std::vector<std::string>{"error in Putchess! press cancle to endGame!"});
    SilentToolkit deaf;
    EXPECT_EQ(deaf.messageBox("x", MessageButtons::okCancel), MessageAnswer::ok);
}

}  // namespace
}  // namespace quintline

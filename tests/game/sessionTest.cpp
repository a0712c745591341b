// Start-up, new games, the committing of a stone, and the clicks that must not count.

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "game/silentToolkit.h"
#include "gameFixture.h"

namespace quintline {
namespace {

using namespace testing;
using enum Request;

TEST(StartUp, OpensWithTheCentreStoneAndTheDesignSettingsAndANewGameClearsIt) {
    RecordingToolkit recording;
    SilentToolkit silent;
    for (Toolkit* tk : std::vector<Toolkit*>{&recording, &silent}) {
        Game game(*tk);
        game.startSession();
        game.newGame();
        const GameState& s = game.state();
        EXPECT_EQ(s.windowTitle, "Quintline Version 3.5  15*15  ");
        EXPECT_EQ(std::tuple(s.cellSize, s.depthA, s.depthB), std::tuple(533, 3, 3));
        EXPECT_EQ(
            std::tuple(s.blackSide, s.whiteSide, s.computerKind, s.computerColour, s.twoUsers),
            std::tuple(computerA, userKind, computerA, black, flagFalse));
        EXPECT_EQ(std::tuple(s.stepNum, s.movesAhead, s.clickAllowed, s.gameResult, s.suggestionOn),
                  std::tuple(1, 0, flagTrue, gameDrawn, flagFalse));
        EXPECT_EQ((s.moveRecord[1]), (MoveRecordEntry{black, 8, 8}));
        EXPECT_EQ(s.position.board[8][8], black);
    }
    // The title, both lists and the canvas cleared, then the stone, ringed for
    // the white user and shown at once: no search, no candidates.
    EXPECT_EQ(recording.transcript(),
              "caption mainForm Quintline Version 3.5  15*15  \nclear List2\nclear List3\ngrid\n"
              "caption stepNumLab 1\nstone 8,8 1 -1\nrepaint\ncaption Command1 no suggestion\n");

    // With the user on black a new game leaves the board empty; result and sides stay.
    Session session;
    GameState& s = session.s;
    session.game.Putchess(9, 9, white);
    std::tie(s.gameResult, s.blackSide, s.movesAhead, s.clickAllowed, s.suggestionOn,
             s.userColour) = std::tuple(blackWon, computerB, 4, flagFalse, flagTrue, black);
    session.game.newGame();
    EXPECT_TRUE(sameTables(s.position, Position{}));
    EXPECT_EQ(s.moveRecord[2], MoveRecordEntry{});
    EXPECT_EQ(std::tuple(s.stepNum, s.movesAhead, s.clickAllowed, s.suggestionOn, s.gameResult,
                         s.blackSide),
              std::tuple(0, 0, flagTrue, flagFalse, blackWon, computerB));
}

TEST(StartUp, CellSizeRoundsTiesToEvenAndEachDepthBoxBelongsToItsKind) {
    // A box whose text is no number leaves the depth as it was.
    const std::tuple<double, const char*, const char*, int, int, int> rows[] = {
        {8002.5, "2", " 1 ", 534, 2, 1},
        {7987.5, "deep", "4", 532, 3, 4},
        {7992.4, "3", "", 533, 3, 3}};
    for (const auto& [width, box0, box1, cellSize, depthA, depthB] : rows) {
        RecordingToolkit tk;
        tk.width = width;
        tk.depthTexts[0] = box0;
        tk.depthTexts[1] = box1;
        Game game(tk);
        game.startSession();
        const GameState& s = game.state();
        EXPECT_EQ(std::tuple(s.cellSize, s.depthA, s.depthB), std::tuple(cellSize, depthA, depthB));
    }
}

TEST(Clicks, OnlyAnEmptyBoardPointWithTheTurnAndAColourCountsInCellsOfCellSize) {
    Session session;
    GameState& s = session.s;
    const float mid = 4.5f * 533;
    // The centre stone, four points beside the board, nobody holding a colour
    // (watching a board file), and no turn: clickAllowed is as it was.
    const std::tuple<float, float, Side, Flag> rows[] = {
        {3997.5f, 3997.5f, white, flagTrue}, {15 * 533.0f, 100, white, flagTrue},
        {100, 7999, white, flagTrue},        {-1, 100, white, flagTrue},
        {100, -0.5f, white, flagTrue},       {mid, mid, empty, flagTrue},
        {mid, mid, white, flagFalse}};
    for (const auto& [X, Y, user, allowed] : rows) {
        s.userColour = user;
        s.clickAllowed = allowed;
        session.game.boardMouseDown(X, Y);
        EXPECT_EQ(s.clickAllowed, allowed) << X << "," << Y;
    }
    EXPECT_TRUE(session.toolkit.calls.empty());
    EXPECT_EQ(s.stepNum, 1);
}

TEST(TwoUsers, ColoursAlternateByClickInCellsOfCellSizeWithoutReplyOrRing) {
    Session session;
    GameState& s = session.s;
    auto& tk = session.toolkit;
    s.twoUsers = flagTrue;
    const std::tuple<float, float, std::int16_t, std::int16_t> cells[] = {
        {0, 0, 1, 1}, {532.9f, 533, 1, 2}, {533, 1066, 2, 3}, {7994.9f, 7462, 15, 15}};
    for (const auto& [X, Y, x, y] : cells) {
        session.game.boardMouseDown(X, Y);
        EXPECT_EQ(s.moveRecord[s.stepNum], (MoveRecordEntry{sideToMove(s.stepNum), x, y}));
    }
    for (Point p : {Point{1, 5}, {9, 8}, {1, 7}, {10, 8}, {1, 9}, {11, 8}, {1, 11}})
        click(session.game, p.x, p.y);
    EXPECT_EQ(std::tuple(s.stepNum, s.gameResult, s.clickAllowed),
              std::tuple(12, gameOpen, flagTrue));
    for (const Call& stone : tk.of(stoneAndRing)) EXPECT_EQ(stone.colour, stone.userColour);
    EXPECT_FALSE(tk.lastCaption(Control::whoRun));
    // Black's five from (8, 8) ends the game with a message; the next click is black's again.
    click(session.game, 12, 8);
    EXPECT_EQ(s.gameResult, blackWon);
    EXPECT_EQ(tk.messages(), std::vector<std::string>{"GameOver! You Win!"});
    click(session.game, 3, 3);
    EXPECT_EQ(s.position.board[3][3], black);
    EXPECT_EQ(s.gameResult, gameOpen);  // only the lines through the new stone are judged
}

}  // namespace
}  // namespace quintline

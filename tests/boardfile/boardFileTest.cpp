#include "boardfile/boardFile.h"

#include <gtest/gtest.h>

#include <tuple>

#include "support/recordingToolkit.h"
#include "support/scratchDirectory.h"
#include "support/scriptedSearches.h"

namespace quintline {
namespace {

using testing::readBytes;
using testing::RecordingToolkit;
using testing::ScratchDirectory;
using testing::writeBytes;

const std::string head = "Grid Size\r\n 15 \r\nPiece number\r\n 5 \r\nTotal Move\r\n";

// Everything a read may change.
auto readableState(const GameState& s) {
    const auto* board = reinterpret_cast<const char*>(&s.position);
    return std::tuple(s.moveRecord, s.stepNum, s.movesAhead, s.userColour, s.clickAllowed,
                      s.suggestionOn, s.gameResult, std::string(board, board + sizeof s.position));
}

class BoardFileTest : public ::testing::Test {
  protected:
    BoardFileTest() : game(toolkit, testing::scriptedSearches()) {
        game.startSession();
        game.newGame();
    }
    void useFile(const std::string& name) { game.state().boardFilePath = (dir / name).string(); }

    ScratchDirectory dir;
    RecordingToolkit toolkit;
    Game game;
};

TEST_F(BoardFileTest, EmptyBoardSavesNineLinesAndReadsBackEmpty) {
    GameState& s = game.state();
    s.userColour = black;
    game.newGame();
    useFile("empty.txt");
    saveBoardFile(game);
    const std::string bytes = head + " 0 \r\nUserTurn\r\n 1 \r\nend\r\n";
    EXPECT_EQ(readBytes(s.boardFilePath), bytes);

    readBoardFile(game);
    EXPECT_EQ(s.stepNum, 0);
    EXPECT_EQ(s.movesAhead, 0);
    EXPECT_EQ(s.clickAllowed, flagTrue);
    EXPECT_EQ(toolkit.lastEnabled(Control::cmdForw), true);
    saveBoardFile(game);
    EXPECT_EQ(readBytes(s.boardFilePath), bytes);
    EXPECT_TRUE(toolkit.messages().empty());
}

TEST_F(BoardFileTest, SavedGameReadAndReplayedSavesTheSameBytes) {
    GameState& s = game.state();
    // Two builders from the centre stone: white has five down column 2 at stone 10.
    s.blackSide = s.whiteSide = computerA;
    s.userColour = black;
    game.newGame();
    game.computerGame();
    useFile("game.txt");
    saveBoardFile(game);
    const std::string bytes = readBytes(s.boardFilePath);
    EXPECT_EQ(bytes, head +
                         " 10 \r\n"
                         " 1   8   8 \r\n-1   2   1 \r\n 1   1   1 \r\n-1   2   2 \r\n"
                         " 1   1   2 \r\n-1   2   3 \r\n 1   1   3 \r\n-1   2   4 \r\n"
                         " 1   1   4 \r\n-1   2   5 \r\nUserTurn\r\n 1 \r\nend\r\n");

    // Into a fresh game: nothing of the old one can leak into the second file.
    RecordingToolkit otherToolkit;
    Game other(otherToolkit);
    other.startSession();
    other.newGame();
    other.state().boardFilePath = s.boardFilePath;
    otherToolkit.forget();
    readBoardFile(other);
    EXPECT_EQ(other.state().movesAhead, 10);
    EXPECT_EQ(other.state().position.board[8][8], empty);
    // No stone is placed, so stepNumLab keeps its number.
    EXPECT_TRUE(otherToolkit.captionsOf(Control::stepNumLab).empty());
    other.cmdForwardEndClick();
    EXPECT_EQ(other.state().moveRecord, s.moveRecord);
    EXPECT_EQ(other.state().gameResult, whiteWon);
    other.state().boardFilePath = (dir / "again.txt").string();
    saveBoardFile(other);
    EXPECT_EQ(readBytes(other.state().boardFilePath), bytes);
}

TEST_F(BoardFileTest, SavesOnlyTheStonesOnTheBoardAndChangesNothing) {
    GameState& s = game.state();
    s.twoUsers = flagTrue;
    game.userMove(7, 7);
    game.userMove(9, 9);
    game.userMove(6, 6);
    game.stepBack();
    game.stepBack();
    useFile("back.txt");
    const auto before = readableState(s);
    saveBoardFile(game);
    EXPECT_EQ(readableState(s), before);
    EXPECT_EQ(readBytes(s.boardFilePath),
              head + " 2 \r\n 1   8   8 \r\n-1   7   7 \r\nUserTurn\r\n 1 \r\nend\r\n");

    s.boardFilePath = (dir / "no-such-dir" / "x.txt").string();
    saveBoardFile(game);
    EXPECT_EQ(
        toolkit.messages(),
        std::vector<std::string>{s.boardFilePath + ": board file cannot be written! Not saved"});
    EXPECT_FALSE(std::filesystem::exists(dir / "no-such-dir"));
}

TEST_F(BoardFileTest, ReadSetsTheTurnFromUserTurn) {
    GameState& s = game.state();
    struct Case {
        std::string tail;
        Side userColour;
        Flag clickAllowed;
    };
    const Case cases[] = {
        {"UserTurn\r\n-1 \r\nend\r\n", white, flagFalse},
        {"UserTurn\r\n 1 \r\nend\r\n", black, flagTrue},
        {"UserTurn\r\n 0 \r\nend\r\n", empty, flagTrue},
        {"end\r\n", black, flagTrue},
    };
    useFile("turn.txt");
    for (const Case& c : cases) {
        writeBytes(s.boardFilePath, head + " 1 \r\n 1   8   9 \r\n" + c.tail);
        s.userColour = white;  // a new game at -1 would put black on the centre
        readBoardFile(game);
        EXPECT_EQ(s.userColour, c.userColour) << c.tail;
        EXPECT_EQ(s.clickAllowed, c.clickAllowed) << c.tail;
        EXPECT_EQ(s.position.board[8][8], empty) << c.tail;
        EXPECT_EQ(s.moveRecord[1], (MoveRecordEntry{black, 8, 9})) << c.tail;
        EXPECT_EQ(s.movesAhead, 1) << c.tail;
    }
}

TEST_F(BoardFileTest, RefusedFileChangesNothingAndNamesFileAndFault) {
    GameState& s = game.state();
    s.twoUsers = flagTrue;
    game.userMove(7, 7);
    game.stepBack();
    const std::pair<std::string, std::string> cases[] = {
        {"Grid Size\r\n 19 \r\nPiece number\r\n 5 \r\nTotal Move\r\n 0 \r\nUserTurn\r\n 1 \r\n",
         "the gird size or the piece number is not suitable! Not loaded"},
        {head + " 3 \r\n 1   8   8 \r\n-1   9   9 \r\n 1   16   3 \r\nUserTurn\r\n 1 \r\n",
         "PATH: board file broken at line 9: point (16, 3) is off the board! Not loaded"},
        {"", "PATH: board file broken at line 1: the file ends early! Not loaded"},
        {"missing", "PATH: board file cannot be opened! Not loaded"},
    };
    for (const auto& [text, message] : cases) {
        useFile(text == "missing" ? "missing.txt" : "bad.txt");
        if (text != "missing") writeBytes(s.boardFilePath, text);
        const auto before = readableState(s);
        toolkit.forget();
        readBoardFile(game);
        EXPECT_EQ(readableState(s), before) << text;
        std::string expected = message;
        if (expected.starts_with("PATH")) expected.replace(0, 4, s.boardFilePath);
        EXPECT_EQ(toolkit.messages(), std::vector<std::string>{expected});
        EXPECT_EQ(toolkit.calls.size(), 1u) << text;  // no drawing, caption or button
    }
    useFile("good.txt");
    writeBytes(s.boardFilePath, head + " 1 \r\n 1   8   8 \r\nUserTurn\r\n 1 \r\nend\r\n");
    readBoardFile(game);
    EXPECT_EQ(s.movesAhead, 1);
}

}  // namespace
}  // namespace quintline

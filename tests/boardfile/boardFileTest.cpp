#include "boardfile/boardFile.h"

#include <gtest/gtest.h>

#include <cstring>

#include "support/recordingToolkit.h"
#include "support/scratchDirectory.h"
#include "support/scriptedSearches.h"

namespace quintline {
namespace {

using testing::readBytes;
using testing::RecordingToolkit;
using testing::ScratchDirectory;
using testing::writeBytes;

// Everything a read may change.
struct Snapshot {
    explicit Snapshot(const GameState& s)
        : moveRecord(s.moveRecord),
          stepNum(s.stepNum),
          movesAhead(s.movesAhead),
          userColour(s.userColour),
          clickAllowed(s.clickAllowed),
          suggestionOn(s.suggestionOn),
          gameResult(s.gameResult) {
        std::memcpy(&position, &s.position, sizeof position);
    }
    bool operator==(const Snapshot& o) const {
        return moveRecord == o.moveRecord && stepNum == o.stepNum && movesAhead == o.movesAhead &&
               userColour == o.userColour && clickAllowed == o.clickAllowed &&
               suggestionOn == o.suggestionOn && gameResult == o.gameResult &&
               std::memcmp(&position, &o.position, sizeof position) == 0;
    }
    std::array<MoveRecordEntry, maxStones + 1> moveRecord;
    std::int16_t stepNum, movesAhead;
    Side userColour;
    Flag clickAllowed, suggestionOn;
    GameCode gameResult;
    Position position;
};

class BoardFileTest : public ::testing::Test {
  protected:
    BoardFileTest() : game(toolkit, testing::scriptedSearches()) {
        game.startSession();
        game.newGame();
    }
    void useFile(const std::string& name) { game.state().boardFilePath = (dir / name).string(); }
    // Replays the whole record, as the button >| does.
    void replayAll() { game.cmdForwardEndClick(); }

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
    const std::string bytes = readBytes(s.boardFilePath);
    EXPECT_EQ(bytes,
              "Grid Size\r\n 15 \r\nPiece number\r\n 5 \r\nTotal Move\r\n 0 \r\n"
              "UserTurn\r\n 1 \r\nend\r\n");

    toolkit.forget();
    readBoardFile(game);
    EXPECT_EQ(s.stepNum, 0);
    EXPECT_EQ(s.movesAhead, 0);
    EXPECT_EQ(s.userColour, black);
    EXPECT_EQ(s.clickAllowed, flagTrue);
    EXPECT_EQ(toolkit.lastEnabled(Control::cmdForw), true);
    EXPECT_TRUE(toolkit.messages().empty());
    saveBoardFile(game);
    EXPECT_EQ(readBytes(s.boardFilePath), bytes);
}

TEST_F(BoardFileTest, SavedGameReadAndReplayedSavesTheSameBytes) {
    GameState& s = game.state();
    // A computer game from the centre stone: a builder wins in column 2 at stone 10.
    s.blackSide = computerA;
    s.whiteSide = computerA;
    s.depthA = 3;
    s.userColour = black;
    game.newGame();
    game.computerGame();
    ASSERT_EQ(s.stepNum, 10);
    ASSERT_EQ(s.gameResult, whiteWon);
    const auto playedRecord = s.moveRecord;
    useFile("game.txt");
    saveBoardFile(game);
    const std::string bytes = readBytes(s.boardFilePath);
    // Black builds down column 1, white down column 2 and has five first.
    EXPECT_EQ(bytes,
              "Grid Size\r\n 15 \r\nPiece number\r\n 5 \r\nTotal Move\r\n 10 \r\n"
              " 1   8   8 \r\n-1   2   1 \r\n 1   1   1 \r\n-1   2   2 \r\n 1   1   2 \r\n"
              "-1   2   3 \r\n 1   1   3 \r\n-1   2   4 \r\n 1   1   4 \r\n-1   2   5 \r\n"
              "UserTurn\r\n 1 \r\nend\r\n");

    // Read into a different game: nothing of the old one may leak into the file.
    RecordingToolkit otherToolkit;
    Game other(otherToolkit);
    other.startSession();
    other.newGame();
    other.state().boardFilePath = s.boardFilePath;
    otherToolkit.forget();
    readBoardFile(other);
    EXPECT_EQ(other.state().stepNum, 0);
    EXPECT_EQ(other.state().movesAhead, 10);
    EXPECT_EQ(other.state().position.board[8][8], empty);
    // Reading places no stone, so stepNumLab keeps its number.
    EXPECT_EQ(otherToolkit.captionsOf(Control::stepNumLab).size(), 0u);
    other.cmdForwardEndClick();
    EXPECT_EQ(other.state().stepNum, 10);
    EXPECT_EQ(other.state().moveRecord, playedRecord);
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
    const Snapshot before(s);
    useFile("back.txt");
    saveBoardFile(game);
    EXPECT_EQ(Snapshot(s), before);
    EXPECT_EQ(readBytes(s.boardFilePath),
              "Grid Size\r\n 15 \r\nPiece number\r\n 5 \r\nTotal Move\r\n 2 \r\n"
              " 1   8   8 \r\n-1   7   7 \r\nUserTurn\r\n 1 \r\nend\r\n");
}

TEST_F(BoardFileTest, ReadSetsTheTurnFromUserTurn) {
    GameState& s = game.state();
    const std::string head = "Grid Size\r\n 15 \r\nPiece number\r\n 5 \r\nTotal Move\r\n 1 \r\n";
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
        {"userturn\r\n-1 \r\nend\r\n", black, flagTrue},
    };
    for (const Case& c : cases) {
        useFile("turn.txt");
        writeBytes(s.boardFilePath, head + " 1   8   9 \r\n" + c.tail);
        s.userColour = white;  // a new game at -1 would put black on the centre
        s.clickAllowed = c.clickAllowed == flagTrue ? flagFalse : flagTrue;
        readBoardFile(game);
        EXPECT_EQ(s.userColour, c.userColour) << c.tail;
        EXPECT_EQ(s.clickAllowed, c.clickAllowed) << c.tail;
        EXPECT_EQ(s.position.board[8][8], empty) << c.tail;
        EXPECT_EQ(s.moveRecord[1], (MoveRecordEntry{black, 8, 9})) << c.tail;
        EXPECT_EQ(s.movesAhead, 1) << c.tail;
        EXPECT_EQ(s.stepNum, 0) << c.tail;
    }
    // The game settings the file does not hold are left alone.
    EXPECT_EQ(s.blackSide, computerA);
    EXPECT_EQ(s.whiteSide, userKind);
}

TEST_F(BoardFileTest, RefusedFileChangesNothingAndNamesFileAndFault) {
    GameState& s = game.state();
    s.twoUsers = flagTrue;
    game.userMove(7, 7);
    game.stepBack();
    const std::string head = "Grid Size\r\n 15 \r\nPiece number\r\n 5 \r\nTotal Move\r\n";
    const std::pair<std::string, std::string> cases[] = {
        {"Grid Size\r\n 19 \r\nPiece number\r\n 5 \r\nTotal Move\r\n 0 \r\nUserTurn\r\n 1 \r\n",
         "the gird size or the piece number is not suitable! Not loaded"},
        {head + " 3 \r\n 1   8   8 \r\n-1   9   9 \r\n 1   16   3 \r\nUserTurn\r\n 1 \r\n",
         "PATH: board file broken at line 9: point (16, 3) is off the board! Not loaded"},
        {head + " 2 \r\n 1   8   8 \r\n-1   8   8 \r\nUserTurn\r\n 1 \r\n",
         "PATH: board file broken at line 8: point (8, 8) is taken twice! Not loaded"},
        {head + " 226 \r\n",
         "PATH: board file broken at line 6: total of moves 226 is outside "
         "0 to 225! Not loaded"},
        {head + " 1 \r\n 1   8   8 \r\n",
         "PATH: board file broken at line 8: the file ends "
         "early! Not loaded"},
        {head + " 0 \r\nUserTurn\r\n 5 \r\n",
         "PATH: board file broken at line 8: UserTurn value 5 is not -1, 0 or 1! Not loaded"},
        {head + " 1 \r\n 3   8   8 \r\n",
         "PATH: board file broken at line 7: colour 3 is "
         "neither 1 nor -1! Not loaded"},
        {head + " 1 \r\n 1   8   70000 \r\n",
         "PATH: board file broken at line 7: 70000 does "
         "not fit 16 bits! Not loaded"},
    };
    useFile("bad.txt");
    for (const auto& [text, message] : cases) {
        writeBytes(s.boardFilePath, text);
        const Snapshot before(s);
        toolkit.forget();
        readBoardFile(game);
        EXPECT_EQ(Snapshot(s), before) << text;
        std::string expected = message;
        if (expected.starts_with("PATH")) expected.replace(0, 4, s.boardFilePath);
        EXPECT_EQ(toolkit.messages(), std::vector<std::string>{expected});
        // A message box and nothing else: no drawing, no caption, no button.
        EXPECT_EQ(toolkit.calls.size(), 1u) << text;
        EXPECT_EQ(s.boardFilePath, (dir / "bad.txt").string());
    }

    useFile("missing.txt");
    toolkit.forget();
    const Snapshot before(s);
    readBoardFile(game);
    EXPECT_EQ(Snapshot(s), before);
    EXPECT_EQ(
        toolkit.messages(),
        std::vector<std::string>{s.boardFilePath + ": board file cannot be opened! Not loaded"});

    // The next good file reads normally.
    useFile("good.txt");
    writeBytes(s.boardFilePath, head + " 1 \r\n 1   8   8 \r\nUserTurn\r\n 1 \r\nend\r\n");
    readBoardFile(game);
    EXPECT_EQ(s.movesAhead, 1);
    EXPECT_EQ(s.stepNum, 0);
}

TEST_F(BoardFileTest, UnwritableSaveShowsAMessageAndLeavesTheOldFile) {
    GameState& s = game.state();
    s.boardFilePath = (dir / "no-such-dir" / "x.txt").string();
    saveBoardFile(game);
    EXPECT_EQ(
        toolkit.messages(),
        std::vector<std::string>{s.boardFilePath + ": board file cannot be written! Not saved"});
    EXPECT_FALSE(std::filesystem::exists(dir / "no-such-dir"));

    // A file that exists is replaced whole, with no partial file left beside it.
    useFile("old.txt");
    writeBytes(s.boardFilePath,
               "old content that is longer than a fresh board file would be....."
               "..............................................................");
    saveBoardFile(game);
    EXPECT_EQ(readBytes(s.boardFilePath), formatBoardFile(s));
    EXPECT_FALSE(std::filesystem::exists(s.boardFilePath + ".part"));
}

}  // namespace
}  // namespace quintline

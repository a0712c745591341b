#include "harness/testSuite.h"

#include <regex>

#include "batchFixture.h"
#include "boardfile/boardFileFormat.h"
#include "harness/schedule.h"

namespace quintline::testing {
namespace {

std::string boardFile(const std::vector<MoveRecordEntry>& moves, Side userColour) {
    GameState state;
    for (const MoveRecordEntry& m : moves)
        state.moveRecord[static_cast<std::size_t>(++state.stepNum)] = m;
    state.userColour = userColour;
    return formatBoardFile(state);
}

const std::vector<MoveRecordEntry> sevenStones{{black, 8, 8},  {white, 7, 7},   {black, 8, 10},
                                               {white, 10, 8}, {black, 11, 11}, {white, 7, 11},
                                               {black, 11, 7}};

// 223 stones of a pattern with no two neighbours of one colour beyond a pair in
// any direction: every line already holds both colours, so the next stone draws.
std::vector<MoveRecordEntry> blockedBoard() {
    std::vector<MoveRecordEntry> blacks, whites, moves;
    for (std::int16_t x = 1; x <= boardSize; ++x)
        for (std::int16_t y = 1; y <= boardSize; ++y) {
            if ((x == 1 && y == 1) || (x == 15 && y == 15)) continue;
            if ((x + 2 * y) % 4 < 2)
                blacks.push_back({black, x, y});
            else
                whites.push_back({white, x, y});
        }
    for (std::size_t i = 0; i < blacks.size(); ++i) {
        moves.push_back(blacks[i]);
        if (i < whites.size()) moves.push_back(whites[i]);
    }
    return moves;
}

using TestSuiteTest = BatchTest;

TEST_F(TestSuiteTest, TwoFilesReportByteForByteAndLeaveTheLastGame) {
    writeBytes(dir / "empty.txt", boardFile({}, black));
    writeBytes(dir / "seven.txt", boardFile(sevenStones, white));
    writeBytes(dir / "testsuit.txt", "2\r\nempty.txt\r\nseven.txt\r\nnot-read.txt\r\n");
    ScriptedClock clock({"11:00:00", "11:00:09"}, {39600.0f, 39609.125f});
    runTestSuite(game, clock, "testsuit.txt", "result.txt");

    // From the empty board black's first stone is the centre, so white builds
    // five at stone 10 and black at 11. Seven stones give white the first move:
    // white at 16, black at 17.
    EXPECT_EQ(report(),
              "start Time: 11:00:00\r\n" + reportHeader +
                  "empty.txt A 11 A 10 A 11 A 10 B 10 B 11 B 10 B 11 B 10 A 10 B 10 A 10 B 10 A 10 "
                  "\r\n"
                  "seven.txt A 17 A 16 A 17 A 16 B 16 B 17 B 16 B 17 B 16 A 16 B 16 A 16 B 16 A 16 "
                  "\r\n"
                  " 2 , 2 , 2 , 2 , 0 , 0 , 0 , 0 , 0 , 2 , 0 , 2 , 0 , 2 \r\n"
                  "seven.txtEnd Time: 11:00:09\r\n"
                  "seven.txtUsed Time (second):  9.125 \r\n");
    EXPECT_TRUE(toolkit.messages().empty());

    const GameState& s = game.state();
    for (std::size_t k = 0; k < sevenStones.size(); ++k)
        EXPECT_EQ(s.moveRecord[k + 1], sevenStones[k]);
    EXPECT_EQ(s.stepNum, 16);
    EXPECT_EQ(s.gameResult, whiteWon);
    EXPECT_EQ(s.boardFilePath, "seven.txt");
    EXPECT_EQ(s.userColour, white);
    EXPECT_EQ(s.twoUsers, flagFalse);
    EXPECT_EQ(s.clickAllowed, flagFalse);
    EXPECT_EQ(s.blackSide, bKnowsA);
    EXPECT_EQ(s.whiteSide, computerA);
    EXPECT_EQ(s.depthA, 3);
    EXPECT_EQ(s.depthB, 3);
    EXPECT_EQ(toolkit.captionsOf(Control::mainForm),
              (std::vector<std::string>{"Quintline Version 3.5  15*15        empty.txt",
                                        "Quintline Version 3.5  15*15        seven.txt"}));
    EXPECT_EQ(toolkit.lastCaption(Control::blackSideLabel), std::string(schedule[13].blackCaption));
    EXPECT_EQ(toolkit.captionsOf(Control::whiteSideLabel).size(), 28u);
}

TEST_F(TestSuiteTest, DrawsCreditWhiteFamilyAndRefusedOrMissingEntriesAreSkipped) {
    writeBytes(dir / "draw.txt", boardFile(blockedBoard(), black));
    writeBytes(
        dir / "broken.txt",
        "Grid Size\r\n 19 \r\nPiece number\r\n 5 \r\nTotal Move\r\n 0 \r\nUserTurn\r\n 1 \r\n");
    // Four entries promised, two given; the refused one plays nothing.
    writeBytes(dir / "testsuit.txt", " 4 \r\nbroken.txt\r\n\"draw.txt\"\r\n");
    ScriptedClock clock({}, {});
    runTestSuite(game, clock, "testsuit.txt", "result.txt");

    EXPECT_EQ(
        toolkit.messages(),
        std::vector<std::string>{"the gird size or the piece number is not suitable! Not loaded"});
    const std::string text = report();
    EXPECT_NE(
        text.find(reportHeader +
                  "draw.txt B 224 A 224 B 224 A 224 B 224 A 224 B 224 A 224 B 224 A 224 B 224 "
                  "A 224 B 224 A 224 \r\n"
                  " 0 , 1 , 0 , 1 , 0 , 1 , 0 , 1 , 0 , 1 , 0 , 1 , 0 , 1 \r\n"
                  "draw.txtEnd Time: "),
        std::string::npos)
        << text;
    EXPECT_EQ(game.state().gameResult, gameDrawn);
    EXPECT_EQ(toolkit.captionsOf(Control::mainForm).size(), 2u);
}

TEST_F(TestSuiteTest, ZeroEntriesWriteTheFrameAndTwoRunsAppendTwoBlocks) {
    GameState& s = game.state();
    s.boardFilePath = "kept.txt";
    writeBytes(dir / "testsuit.txt", "0\r\nnever.txt\r\n");
    ScriptedClock clock({"12:00:00", "12:00:00", "12:30:00", "12:30:01"},
                        {43200.0f, 43200.0f, 45000.0f, 45001.5f});
    runTestSuite(game, clock, "testsuit.txt", "result.txt");
    runTestSuite(game, clock, "testsuit.txt", "result.txt");
    const std::string block1 = "kept.txtstart Time: 12:00:00\r\nkept.txt" + reportHeader +
                               zeroSummary +
                               "kept.txtEnd Time: 12:00:00\r\nkept.txtUsed Time (second):  0 \r\n";
    const std::string block2 =
        "kept.txtstart Time: 12:30:00\r\nkept.txt" + reportHeader + zeroSummary +
        "kept.txtEnd Time: 12:30:01\r\nkept.txtUsed Time (second):  1.5 \r\n";
    EXPECT_EQ(report(), block1 + block2);
    EXPECT_EQ(s.boardFilePath, "kept.txt");
    EXPECT_EQ(s.stepNum, 1);
    EXPECT_EQ(s.position.board[8][8], black);
    EXPECT_EQ(s.twoUsers, flagFalse);
    EXPECT_EQ(s.clickAllowed, flagFalse);
}

TEST_F(TestSuiteTest, MissingListOrUnwritableReportStartsNothing) {
    GameState& s = game.state();
    s.twoUsers = flagTrue;
    ScriptedClock clock({}, {});
    runTestSuite(game, clock, "testsuit.txt", "result.txt");
    EXPECT_EQ(toolkit.messages(),
              std::vector<std::string>{"testsuit.txt can not be opened! Not started"});
    EXPECT_FALSE(std::filesystem::exists(dir / "result.txt"));

    toolkit.forget();
    writeBytes(dir / "testsuit.txt", "1\r\nx.txt\r\n");
    std::filesystem::create_directory(dir / "result.txt");
    runTestSuite(game, clock, "testsuit.txt", "result.txt");
    EXPECT_EQ(toolkit.messages(),
              std::vector<std::string>{"result.txt can not be written! Not started"});
    EXPECT_EQ(s.twoUsers, flagTrue);
    EXPECT_EQ(s.clickAllowed, flagTrue);
    EXPECT_EQ(s.boardFilePath, "");
    EXPECT_EQ(toolkit.captionsOf(Control::mainForm).size(), 0u);
}

TEST_F(TestSuiteTest, MenuEntryPointUsesTheCurrentDirectory) {
    writeBytes(dir / "testsuit.txt", "0\r\n");
    runTestSuite(game);
    const std::regex block(
        "start Time: \\d\\d:\\d\\d:\\d\\d\\r\\n    A\\(3\\):B\\(2\\) ,[^\\r\\n]*\\r\\n" +
        zeroSummary +
        "End Time: \\d\\d:\\d\\d:\\d\\d\\r\\nUsed Time \\(second\\):  [0-9.]+ \\r\\n");
    EXPECT_TRUE(std::regex_match(report(), block)) << report();
}

}  // namespace
}  // namespace quintline::testing

#include "harness/testSuite.h"

#include <regex>

#include "batchFixture.h"
#include "boardfile/boardFileFormat.h"
#include "harness/schedule.h"
#include "harness/tournament.h"

namespace quintline::testing {
namespace {

std::string boardFile(const std::vector<MoveRecordEntry>& moves, Side userColour) {
    GameState state;
    for (const MoveRecordEntry& m : moves) state.moveRecord[++state.stepNum] = m;
    state.userColour = userColour;
    return formatBoardFile(state);
}

const std::vector<MoveRecordEntry> sevenStones{{black, 8, 8},  {white, 7, 7},   {black, 8, 10},
                                               {white, 10, 8}, {black, 11, 11}, {white, 7, 11},
                                               {black, 11, 7}};

// 223 stones coloured by (x + 2y) mod 4, which never puts three of a colour in
// a row: every line already holds both colours, so the next stone draws.
std::vector<MoveRecordEntry> blockedBoard() {
    std::vector<MoveRecordEntry> byColour[2], moves;
    for (std::int16_t x = 1; x <= boardSize; ++x)
        for (std::int16_t y = 1; y <= boardSize; ++y)
            if ((x != 1 || y != 1) && (x != 15 || y != 15)) {
                const bool isBlack = (x + 2 * y) % 4 < 2;
                byColour[isBlack ? 0 : 1].push_back({isBlack ? black : white, x, y});
            }
    for (std::size_t i = 0; i < byColour[0].size(); ++i) {
        moves.push_back(byColour[0][i]);
        if (i < byColour[1].size()) moves.push_back(byColour[1][i]);
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

    // From the empty board black's first stone is the centre, so a white builder
    // has five at stone 10 and a black one at 11. Seven stones give white the
    // first move: white at 16, black at 17.
    EXPECT_EQ(report(),
              "start Time: 11:00:00\r\n" + reportHeader +
                  "empty.txt A 11 A 10 A 11 A 10 B 10 B 11 B 10 B 11 B 10 A 10 B 10 A 10 B 10 A 10 "
                  "\r\nseven.txt A 17 A 16 A 17 A 16 B 16 B 17 B 16 B 17 B 16 A 16 B 16 A 16 B 16 "
                  "A 16 \r\n"
                  " 2 , 2 , 2 , 2 , 0 , 0 , 0 , 0 , 0 , 2 , 0 , 2 , 0 , 2 \r\n"
                  "seven.txtEnd Time: 11:00:09\r\nseven.txtUsed Time (second):  9.125 \r\n");
    EXPECT_TRUE(toolkit.messages().empty());

    const GameState& s = game.state();
    for (std::size_t k = 0; k < sevenStones.size(); ++k)
        EXPECT_EQ(s.moveRecord[k + 1], sevenStones[k]);
    EXPECT_EQ(std::tuple(s.stepNum, s.gameResult, s.blackSide, s.whiteSide, s.depthA, s.depthB),
              std::tuple(16, whiteWon, bKnowsA, computerA, 3, 3));
    EXPECT_EQ(std::tuple(s.boardFilePath, s.userColour, s.twoUsers, s.clickAllowed),
              std::tuple("seven.txt", white, flagFalse, flagFalse));
    EXPECT_EQ(toolkit.captionsOf(Control::mainForm),
              (std::vector<std::string>{"Quintline Version 3.5  15*15        empty.txt",
                                        "Quintline Version 3.5  15*15        seven.txt"}));
    EXPECT_EQ(toolkit.lastCaption(Control::blackSideLabel), std::string(schedule[13].blackCaption));
}

TEST_F(TestSuiteTest, DrawsCreditWhiteFamilyAndRefusedOrMissingEntriesAreSkipped) {
    writeBytes(dir / "draw.txt", boardFile(blockedBoard(), black));
    writeBytes(dir / "broken.txt",
               "Grid Size\r\n 19 \r\nPiece number\r\n 5 \r\nTotal Move\r\n 0 \r\n");
    // Four entries promised, two given; the refused one plays nothing.
    writeBytes(dir / "testsuit.txt", " 4 \r\nbroken.txt\r\n\"draw.txt\"\r\n");
    ScriptedClock clock({}, {});
    runTestSuite(game, clock, "testsuit.txt", "result.txt");

    EXPECT_EQ(
        toolkit.messages(),
        std::vector<std::string>{"the gird size or the piece number is not suitable! Not loaded"});
    EXPECT_NE(report().find(reportHeader +
                            "draw.txt B 224 A 224 B 224 A 224 B 224 A 224 B 224 A 224 B 224 A 224 "
                            "B 224 A 224 B 224 A 224 \r\n"
                            " 0 , 1 , 0 , 1 , 0 , 1 , 0 , 1 , 0 , 1 , 0 , 1 , 0 , 1 \r\n"
                            "draw.txtEnd Time: "),
              std::string::npos)
        << report();
    EXPECT_EQ(toolkit.captionsOf(Control::mainForm).size(), 2u);
}

TEST_F(TestSuiteTest, MissingListStartsNothing) {
    ScriptedClock clock({}, {});
    game.state().twoUsers = flagTrue;
    runTestSuite(game, clock, "testsuit.txt", "result.txt");
    EXPECT_EQ(toolkit.messages(),
              std::vector<std::string>{"testsuit.txt can not be opened! Not started"});
    EXPECT_FALSE(std::filesystem::exists(dir / "result.txt"));
    EXPECT_EQ(game.state().twoUsers, flagTrue);
}

TEST_F(TestSuiteTest, MenuRunsWithNothingToPlayAppendTwoBlocksInTheCurrentDirectory) {
    GameState& s = game.state();
    s.boardFilePath = "kept.txt";
    writeBytes(dir / "testsuit.txt", "0\r\nnever.txt\r\n");
    runTestSuite(game);
    runTournament(game);  // cycleCount 0

    const std::string head =
        "kept\\.txtstart Time: \\d\\d:\\d\\d:\\d\\d\\r\\nkept\\.txt    A\\(3\\)[^\\r\\n]*\\r\\n";
    const std::string tail =
        "kept\\.txtEnd Time: \\d\\d:\\d\\d:\\d\\d\\r\\nkept\\.txtUsed Time \\(second\\):  [0-9.]+ "
        "\\r\\n";
    const std::regex twoBlocks(head + zeroSummary + tail + head + zeroSummary + tail);
    EXPECT_TRUE(std::regex_match(report(), twoBlocks)) << report();
    EXPECT_EQ(std::tuple(s.boardFilePath, s.stepNum, s.twoUsers, s.clickAllowed),
              std::tuple("kept.txt", 1, flagFalse, flagFalse));
}

}  // namespace
}  // namespace quintline::testing

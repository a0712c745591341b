#include "harness/tournament.h"

#include <regex>

#include "batchFixture.h"
#include "harness/schedule.h"

namespace quintline::testing {
namespace {

// Stones 2 to 6 at (6, 7), (10, 10), (7, 9), (9, 8), (9, 7).
const std::deque<double> firstOpening{0.0, 0.0, 0.999999, 0.999999, 0.2, 0.5, 0.79, 0.26, 0.6, 0.0};

using TournamentTest = BatchTest;

TEST_F(TournamentTest, OneCycleReportByteForByte) {
    GameState& s = game.state();
    s.boardFilePath = "old/board.txt";
    s.cycleCount = 1;
    ScriptedUniform uniform(firstOpening);
    ScriptedClock clock({"10:00:00", "10:00:05"}, {36000.0f, 36004.5f});
    runTournament(game, uniform, clock, "result.txt");

    // Builders win with their fifth stone: black at 15, white at 16. The plain
    // kinds wander at depth 2, so one side builds in pairings 1 to 8 and both
    // build, black first, in 9 to 14.
    EXPECT_EQ(
        report(),
        "old/board.txtstart Time: 10:00:00\r\n"
        "old/board.txt" +
            reportHeader +
            "old/board.txt A 15 A 16 A 15 A 16 B 16 B 15 B 16 B 15 A 15 B 15 A 15 B 15 A 15 B 15 "
            "\r\n"
            " 1 , 1 , 1 , 1 , 0 , 0 , 0 , 0 , 1 , 0 , 1 , 0 , 1 , 0 \r\n"
            "old/board.txtEnd Time: 10:00:05\r\n"
            "old/board.txtUsed Time (second):  4.5 \r\n");
    EXPECT_EQ(uniform.drawn(), 10);
    EXPECT_TRUE(toolkit.messages().empty());
}

TEST_F(TournamentTest, EveryGameStartsFromTheCycleOpeningAndTheRunLeavesItsLastGame) {
    GameState& s = game.state();
    s.cycleCount = 2;
    std::deque<double> numbers = firstOpening;
    // The second opening: (10, 7), (6, 10), (8, 9), (7, 8), (10, 9).
    for (double u : {0.9, 0.0, 0.0, 0.9, 0.5, 0.6, 0.3, 0.3, 0.9, 0.6}) numbers.push_back(u);
    ScriptedUniform uniform(numbers);
    ScriptedClock clock({}, {});
    runTournament(game, uniform, clock, "result.txt");
    EXPECT_EQ(uniform.drawn(), 20);

    // Both game lines, and two A credits wherever one cycle gave one.
    const std::string text = report();
    const std::string line =
        " A 15 A 16 A 15 A 16 B 16 B 15 B 16 B 15 A 15 B 15 A 15 B 15 A 15 B 15 \r\n";
    EXPECT_NE(text.find(reportHeader + line + line +
                        " 2 , 2 , 2 , 2 , 0 , 0 , 0 , 0 , 2 , 0 , 2 , 0 , 2 , 0 \r\n"),
              std::string::npos);

    // The last game is pairing 14 of the second cycle, opening included in the record.
    const std::array<MoveRecordEntry, 6> opening{{{black, 8, 8},
                                                  {white, 10, 7},
                                                  {black, 6, 10},
                                                  {white, 8, 9},
                                                  {black, 7, 8},
                                                  {white, 10, 9}}};
    for (std::size_t k = 0; k < opening.size(); ++k) EXPECT_EQ(s.moveRecord[k + 1], opening[k]);
    EXPECT_EQ(s.stepNum, 15);
    EXPECT_EQ(s.gameResult, blackWon);
    EXPECT_EQ(s.blackSide, bKnowsA);
    EXPECT_EQ(s.whiteSide, computerA);
    EXPECT_EQ(s.depthA, 3);
    EXPECT_EQ(s.depthB, 3);
    EXPECT_EQ(s.twoUsers, flagTrue);
    EXPECT_EQ(s.userColour, black);
    EXPECT_EQ(s.clickAllowed, flagFalse);
    EXPECT_EQ(s.movesAhead, 0);
    EXPECT_EQ(toolkit.lastEnabled(Control::cmdBack), true);
    EXPECT_EQ(s.boardFilePath, "");

    // Each pairing shows its own captions, in schedule order, cycle after cycle.
    std::vector<std::string> blackCaptions, whiteCaptions;
    for (int cycle = 0; cycle < 2; ++cycle)
        for (const Pairing& p : schedule) {
            blackCaptions.emplace_back(p.blackCaption);
            whiteCaptions.emplace_back(p.whiteCaption);
        }
    EXPECT_EQ(toolkit.captionsOf(Control::blackSideLabel), blackCaptions);
    EXPECT_EQ(toolkit.captionsOf(Control::whiteSideLabel), whiteCaptions);
    EXPECT_EQ(toolkit.captionsOf(Control::mainForm).size(), 0u);
}

TEST_F(TournamentTest, ZeroCyclesWriteTheFrameOnlyAndTwoRunsAppendTwoBlocks) {
    GameState& s = game.state();
    s.cycleCount = 0;
    const auto recordBefore = s.moveRecord;
    ScriptedUniform uniform({});
    ScriptedClock clock({"08:00:00", "08:00:01", "09:00:00", "09:00:00"},
                        {28800.0f, 28800.25f, 32400.0f, 32400.0f});
    runTournament(game, uniform, clock, "result.txt");
    s.boardFilePath = "p";
    runTournament(game, uniform, clock, "result.txt");
    EXPECT_EQ(report(), "start Time: 08:00:00\r\n" + reportHeader + zeroSummary +
                            "End Time: 08:00:01\r\nUsed Time (second):  0.25 \r\n"
                            "pstart Time: 09:00:00\r\np" +
                            reportHeader + zeroSummary +
                            "pEnd Time: 09:00:00\r\npUsed Time (second):  0 \r\n");
    EXPECT_EQ(uniform.drawn(), 0);
    EXPECT_EQ(s.moveRecord, recordBefore);
    EXPECT_EQ(s.stepNum, 1);
}

TEST_F(TournamentTest, UnwritableReportStopsBeforeAnyGame) {
    GameState& s = game.state();
    s.cycleCount = 3;
    std::filesystem::create_directory(dir / "result.txt");
    ScriptedUniform uniform({});
    ScriptedClock clock({}, {});
    runTournament(game, uniform, clock, "result.txt");
    EXPECT_EQ(toolkit.messages(),
              std::vector<std::string>{"result.txt can not be written! Not started"});
    EXPECT_EQ(uniform.drawn(), 0);
    EXPECT_EQ(s.stepNum, 1);
    EXPECT_EQ(s.twoUsers, flagFalse);
    EXPECT_EQ(s.blackSide, computerA);
}

TEST_F(TournamentTest, MenuEntryPointReportsToTheCurrentDirectory) {
    game.state().cycleCount = 0;
    runTournament(game);
    const std::regex block(
        "start Time: \\d\\d:\\d\\d:\\d\\d\\r\\n    A\\(3\\):B\\(2\\) "
        ",[^\\r\\n]*B-K-A\\(3\\):A\\(3\\)\\r\\n" +
        zeroSummary +
        "End Time: \\d\\d:\\d\\d:\\d\\d\\r\\nUsed Time \\(second\\):  [0-9.]+ \\r\\n");
    EXPECT_TRUE(std::regex_match(report(), block)) << report();
}

}  // namespace
}  // namespace quintline::testing

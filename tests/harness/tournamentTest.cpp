#include "harness/tournament.h"

#include "batchFixture.h"
#include "harness/schedule.h"

namespace quintline::testing {
namespace {

// Stones 2 to 6 at (6, 7), (10, 10), (7, 9), (9, 8), (9, 7).
const std::deque<double> firstOpening{0.0, 0.0, 0.999999, 0.999999, 0.2, 0.5, 0.79, 0.26, 0.6, 0.0};
// Builders win with their fifth stone: black at 15, white at 16. The plain kinds
// wander at depth 2, so one side builds in pairings 1 to 8 and both build,
// black first, in 9 to 14.
const std::string cycleGroups =
    " A 15 A 16 A 15 A 16 B 16 B 15 B 16 B 15 A 15 B 15 A 15 B 15 A 15 B 15 \r\n";

using TournamentTest = BatchTest;

TEST_F(TournamentTest, OneCycleReportByteForByte) {
    game.state().boardFilePath = "old/board.txt";
    game.state().cycleCount = 1;
    ScriptedUniform uniform(firstOpening);
    ScriptedClock clock({"10:00:00", "10:00:05"}, {36000.0f, 36004.5f});
    runTournament(game, uniform, clock, "result.txt");
    EXPECT_EQ(report(), "old/board.txtstart Time: 10:00:00\r\nold/board.txt" + reportHeader +
                            "old/board.txt" + cycleGroups +
                            " 1 , 1 , 1 , 1 , 0 , 0 , 0 , 0 , 1 , 0 , 1 , 0 , 1 , 0 \r\n"
                            "old/board.txtEnd Time: 10:00:05\r\n"
                            "old/board.txtUsed Time (second):  4.5 \r\n");
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
    EXPECT_NE(report().find(reportHeader + cycleGroups + cycleGroups +
                            " 2 , 2 , 2 , 2 , 0 , 0 , 0 , 0 , 2 , 0 , 2 , 0 , 2 , 0 \r\n"),
              std::string::npos);

    // Pairing 14 of the second cycle stays, its opening in the record.
    const MoveRecordEntry opening[] = {{black, 8, 8}, {white, 10, 7}, {black, 6, 10},
                                       {white, 8, 9}, {black, 7, 8},  {white, 10, 9}};
    for (std::size_t k = 0; k < 6; ++k) EXPECT_EQ(s.moveRecord[k + 1], opening[k]);
    EXPECT_EQ(std::tuple(s.stepNum, s.gameResult, s.blackSide, s.whiteSide, s.depthA, s.depthB),
              std::tuple(15, blackWon, bKnowsA, computerA, 3, 3));
    EXPECT_EQ(std::tuple(s.twoUsers, s.userColour, s.clickAllowed, s.movesAhead),
              std::tuple(flagTrue, black, flagFalse, 0));
    EXPECT_EQ(toolkit.lastEnabled(Control::cmdBack), true);

    // Each pairing shows its own captions, cycle after cycle; the title is left alone.
    std::vector<std::string> blackCaptions, whiteCaptions;
    for (int cycle = 0; cycle < 2; ++cycle)
        for (const Pairing& p : schedule) {
            blackCaptions.emplace_back(p.blackCaption);
            whiteCaptions.emplace_back(p.whiteCaption);
        }
    EXPECT_EQ(toolkit.captionsOf(Control::blackSideLabel), blackCaptions);
    EXPECT_EQ(toolkit.captionsOf(Control::whiteSideLabel), whiteCaptions);
    EXPECT_TRUE(toolkit.captionsOf(Control::mainForm).empty());
}

TEST_F(TournamentTest, ZeroCyclesWriteTheFrameAndAnUnwritableReportStartsNothing) {
    GameState& s = game.state();
    ScriptedUniform uniform({});
    ScriptedClock clock({"08:00:00", "08:00:01"}, {28800.0f, 28800.25f});
    runTournament(game, uniform, clock, "result.txt");
    EXPECT_EQ(report(), "start Time: 08:00:00\r\n" + reportHeader + zeroSummary +
                            "End Time: 08:00:01\r\nUsed Time (second):  0.25 \r\n");
    EXPECT_EQ(s.stepNum, 1);

    s.cycleCount = 3;
    runTournament(game, uniform, clock, dir / "result.txt" / "x");
    EXPECT_EQ(toolkit.messages(), std::vector<std::string>{(dir / "result.txt" / "x").string() +
                                                           " can not be written! Not started"});
    EXPECT_EQ(uniform.drawn(), 0);
    EXPECT_EQ(std::tuple(s.stepNum, s.twoUsers, s.blackSide), std::tuple(1, flagFalse, computerA));
}

}  // namespace
}  // namespace quintline::testing

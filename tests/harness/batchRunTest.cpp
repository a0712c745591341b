// Whole tournaments and test-suite runs with quick scripted searches, a
// scripted clock and scripted random numbers, in a scratch current directory.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <csignal>
#include <regex>

#include "boardfile/boardFileFormat.h"
#include "game/game.h"
#include "harness/fakes.h"
#include "harness/report.h"
#include "harness/reportLock.h"
#include "harness/schedule.h"
#include "harness/testSuite.h"
#include "harness/tournament.h"
#include "support/recordingToolkit.h"
#include "support/scratchDirectory.h"
#include "support/scriptedSearches.h"

namespace quintline::testing {
namespace {

const std::string reportHeader =
    "    A(3):B(2) ,  B(2):A(3) ,  A-K-B(3):B(2) , B(2):A-K-B(3) , A(2):B(3) , B(3):A(2) , "
    "A(2):B-KNOW-A(3) , B-KNOW-A(3):A(2) , A(3):B(3) , B(3):A(3) , A-K-B(3):B(3) , "
    "B(3):A-K-B(3) , A(3):B-K-A(3) , B-K-A(3):A(3)\r\n";

class BatchRunTest : public ::testing::Test {
  protected:
    BatchRunTest() : dir(true), game(toolkit, scriptedSearches()) {
        game.startSession();
        game.newGame();
        toolkit.forget();
    }
    std::string report() const { return readBytes(dir / "result.txt"); }

    ScratchDirectory dir;
    RecordingToolkit toolkit;
    Game game;
};

// Stones 2 to 6 at (6, 7), (10, 10), (7, 9), (9, 8), (9, 7).
const std::deque<double> firstOpening{0.0, 0.0, 0.999999, 0.999999, 0.2, 0.5, 0.79, 0.26, 0.6, 0.0};
// Stones 2 to 6 at (10, 7), (6, 10), (8, 9), (7, 8), (10, 9).
const std::deque<double> secondOpening{0.9, 0.0, 0.0, 0.9, 0.5, 0.6, 0.3, 0.3, 0.9, 0.6};
// Builders win with their fifth stone: black at 15, white at 16. The plain kinds
// wander at depth 2, so one side builds in pairings 1 to 8 and both build,
// black first, in 9 to 14.
const std::string cycleGroups =
    " A 15 A 16 A 15 A 16 B 16 B 15 B 16 B 15 A 15 B 15 A 15 B 15 A 15 B 15 \r\n";

TEST_F(BatchRunTest, CyclesReplayTheirOpeningAndEachRunAppendsItsBlock) {
    GameState& s = game.state();
    // One opening for the first run, two for the second.
    std::deque<double> numbers;
    for (const auto& opening : {firstOpening, firstOpening, secondOpening})
        numbers.insert(numbers.end(), opening.begin(), opening.end());
    ScriptedUniform uniform(numbers);
    ScriptedClock clock({"10:00:00", "10:00:05", "11:00:00", "11:00:09"},
                        {36000.0f, 36004.5f, 39600.0f, 39609.125f});
    s.boardFilePath = "old/board.txt";
    s.cycleCount = 1;
    runTournament(game, uniform, clock, "result.txt");
    s.boardFilePath = "";
    s.cycleCount = 2;
    runTournament(game, uniform, clock, "result.txt");
    EXPECT_EQ(report(), "old/board.txtstart Time: 10:00:00\r\nold/board.txt" + reportHeader +
                            "old/board.txt" + cycleGroups +
                            " 1 , 1 , 1 , 1 , 0 , 0 , 0 , 0 , 1 , 0 , 1 , 0 , 1 , 0 \r\n"
                            "old/board.txtEnd Time: 10:00:05\r\n"
                            "old/board.txtUsed Time (second):  4.5 \r\n"
                            "start Time: 11:00:00\r\n" +
                            reportHeader + cycleGroups + cycleGroups +
                            " 2 , 2 , 2 , 2 , 0 , 0 , 0 , 0 , 2 , 0 , 2 , 0 , 2 , 0 \r\n"
                            "End Time: 11:00:09\r\nUsed Time (second):  9.125 \r\n");

    // Pairing 14 of the last cycle stays, its opening in the record.
    const MoveRecordEntry opening[] = {{black, 8, 8}, {white, 10, 7}, {black, 6, 10},
                                       {white, 8, 9}, {black, 7, 8},  {white, 10, 9}};
    for (std::size_t k = 0; k < 6; ++k) EXPECT_EQ(s.moveRecord[k + 1], opening[k]);
    EXPECT_EQ(std::tuple(s.stepNum, s.gameResult, s.blackSide, s.whiteSide, s.depthA, s.depthB),
              std::tuple(15, blackWon, bKnowsA, computerA, 3, 3));
    EXPECT_EQ(std::tuple(s.twoUsers, s.userColour, s.clickAllowed, s.movesAhead),
              std::tuple(flagTrue, black, flagFalse, 0));
    EXPECT_EQ(toolkit.lastEnabled(Control::cmdBack), true);
    // Each pairing shows its own captions, cycle after cycle; the title is left alone.
    std::vector<std::string> blacks, whites;
    for (int cycle = 0; cycle < 3; ++cycle)
        for (const Pairing& p : Schedule::fixed()) {
            blacks.emplace_back(p.blackCaption);
            whites.emplace_back(p.whiteCaption);
        }
    EXPECT_EQ(toolkit.captionsOf(Control::blackSideLabel), blacks);
    EXPECT_EQ(toolkit.captionsOf(Control::whiteSideLabel), whites);
    EXPECT_TRUE(toolkit.captionsOf(Control::mainForm).empty());
    EXPECT_EQ(uniform.drawn(), 30);
}

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
// a row: every line already holds both colours, so the next stone draws. The
// file's colours need not alternate.
std::vector<MoveRecordEntry> blockedBoard() {
    std::vector<MoveRecordEntry> moves;
    for (std::int16_t x = 1; x <= boardSize; ++x)
        for (std::int16_t y = 1; y <= boardSize; ++y)
            if ((x != 1 || y != 1) && (x != 15 || y != 15))
                moves.push_back({(x + 2 * y) % 4 < 2 ? black : white, x, y});
    return moves;
}

TEST_F(BatchRunTest, EntriesReportByteForByteAndTheLastGameStays) {
    writeBytes(dir / "broken.txt",
               "Grid Size\r\n 19 \r\nPiece number\r\n 5 \r\nTotal Move\r\n 0 \r\n");
    writeBytes(dir / "draw.txt", boardFile(blockedBoard(), black));
    writeBytes(dir / "empty.txt", boardFile({}, black));
    writeBytes(dir / "seven.txt", boardFile(sevenStones, white));
    writeBytes(dir / "testsuit.txt",
               " 4 \r\nbroken.txt \r\n\"draw.txt\"\r\nempty.txt\r\nseven.txt\r\nnot-read.txt\r\n");
    ScriptedClock clock({"11:00:00", "11:00:09"}, {39600.0f, 39609.125f});
    runTestSuite(game, clock, "testsuit.txt", "result.txt");

    // The refused file plays nothing. Every draw goes to white's family. From the
    // empty board black's first stone is the centre, so a white builder has five
    // at stone 10 and a black one at 11. Seven stones give white the first move:
    // white at 16, black at 17.
    EXPECT_EQ(
        toolkit.messages(),
        std::vector<std::string>{"the gird size or the piece number is not suitable! Not loaded"});
    EXPECT_EQ(report(),
              "start Time: 11:00:00\r\n" + reportHeader +
                  "draw.txt B 224 A 224 B 224 A 224 B 224 A 224 B 224 A 224 B 224 A 224 B 224 "
                  "A 224 B 224 A 224 \r\n"
                  "empty.txt A 11 A 10 A 11 A 10 B 10 B 11 B 10 B 11 B 10 A 10 B 10 A 10 B 10 A 10 "
                  "\r\nseven.txt A 17 A 16 A 17 A 16 B 16 B 17 B 16 B 17 B 16 A 16 B 16 A 16 B 16 "
                  "A 16 \r\n"
                  " 2 , 3 , 2 , 3 , 0 , 1 , 0 , 1 , 0 , 3 , 0 , 3 , 0 , 3 \r\n"
                  "seven.txtEnd Time: 11:00:09\r\nseven.txtUsed Time (second):  9.125 \r\n");

    const GameState& s = game.state();
    EXPECT_EQ(std::tuple(s.stepNum, s.gameResult, s.blackSide), std::tuple(16, whiteWon, bKnowsA));
    EXPECT_EQ(std::tuple(s.boardFilePath, s.userColour, s.twoUsers, s.clickAllowed),
              std::tuple("seven.txt", white, flagFalse, flagFalse));
    std::vector<std::string> titles;
    for (const char* entry : {"broken.txt", "draw.txt", "empty.txt", "seven.txt"})
        titles.push_back("Quintline Version 3.5  15*15        " + std::string(entry));
    EXPECT_EQ(toolkit.captionsOf(Control::mainForm), titles);
}

TEST_F(BatchRunTest, MenuRunsUseTheCurrentDirectoryAndRefuseToStartWithoutTheirFiles) {
    GameState& s = game.state();
    s.boardFilePath = "kept.txt";
    s.twoUsers = s.clickAllowed = flagTrue;
    ReportLock otherRun;  // as quintline-batch holds it; its file is replaced below
    ASSERT_EQ(otherRun.tryTake("result.txt"), ReportLock::Outcome::taken);
    runTournament(game);
    EXPECT_TRUE(std::filesystem::is_empty(dir / "result.txt"));
    std::filesystem::remove(dir / "result.txt");
    std::filesystem::create_directory(dir / "result.txt");
    runTestSuite(game);                         // no list yet
    writeBytes(dir / "testsuit.txt", "1\r\n");  // one entry promised, none given
    runTestSuite(game);
    s.cycleCount = 1;
    runTournament(game);
    EXPECT_EQ(toolkit.messages(),
              (std::vector<std::string>{"result.txt is in use by another run! Not started",
                                        "testsuit.txt can not be opened! Not started",
                                        "result.txt can not be written! Not started",
                                        "result.txt can not be written! Not started"}));
    EXPECT_EQ(std::tuple(s.stepNum, s.twoUsers), std::tuple(1, flagTrue));

    std::filesystem::remove(dir / "result.txt");
    runTestSuite(game);
    s.cycleCount = 0;
    runTournament(game);
    const std::string head =
        "kept\\.txtstart Time: \\d\\d:\\d\\d:\\d\\d\\r\\nkept\\.txt    A\\(3\\)[^\\r\\n]*\\r\\n";
    const std::string tail =
        "kept\\.txtEnd Time: \\d\\d:\\d\\d:\\d\\d\\r\\nkept\\.txtUsed Time \\(second\\):  [0-9.]+ "
        "\\r\\n";
    const std::string zero = " 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 \\r\\n";
    const std::regex twoBlocks(head + zero + tail + head + zero + tail);
    EXPECT_TRUE(std::regex_match(report(), twoBlocks)) << report();
    EXPECT_EQ(toolkit.messages().back(), "testsuit.txt ends early: 1 of 1 entries missing");
    EXPECT_EQ(std::tuple(s.boardFilePath, s.stepNum, s.twoUsers, s.clickAllowed),
              std::tuple("kept.txt", 1, flagFalse, flagFalse));
}

// The three stretches of a block (head, a game line, tail) under a file-size
// limit that falls inside each in turn: the file keeps the whole stretches
// before it and nothing of the one cut short. Lines end only where they should.
TEST(Report, EachStretchIsAppendedWholeOrNotAtAll) {
    ScratchDirectory dir;
    const std::string earlier = "an earlier run's line\r\n";
    std::vector<std::uintmax_t> ends{earlier.size()};  // of the earlier line and of each stretch
    const auto stretchesWritten = [&](const std::filesystem::path& file) {
        ScriptedClock clock({"10:00:00", "10:00:05"}, {36000.0f, 36004.5f});
        Report report(file, clock);
        const auto mark = [&] {  // records the sizes on the first, whole run
            if (ends.size() < 4) ends.push_back(file_size(file));
            return true;
        };
        const std::string path = "entry\r\n.txt";  // its line end never reaches the file
        if (!report.open(path, Schedule::fixed().header()) || !mark()) return 0;
        if (!report.addGameLine(path, CycleResults{}) || !mark()) return 1;
        return report.close(path, CreditCounts{}) && mark() ? 3 : 2;
    };
    writeBytes(dir / "whole.txt", earlier);
    ASSERT_EQ(stretchesWritten(dir / "whole.txt"), 3);
    const std::string whole = readBytes(dir / "whole.txt");
    ASSERT_EQ(std::count(whole.begin(), whole.end(), '\n'), 7);
    for (int stretch = 0; stretch < 3; ++stretch) {
        const std::filesystem::path file = dir / ("cut" + std::to_string(stretch) + ".txt");
        writeBytes(file, earlier);
        const pid_t pid = fork();
        if (pid == 0) {
            const rlim_t mid = (ends[stretch] + ends[stretch + 1]) / 2;
            const rlimit limit{mid, mid};
            std::signal(SIGXFSZ, SIG_IGN);
            setrlimit(RLIMIT_FSIZE, &limit);
            _exit(stretchesWritten(file));
        }
        int status = 0;
        waitpid(pid, &status, 0);
        EXPECT_EQ(WIFEXITED(status) ? WEXITSTATUS(status) : -1, stretch);
        EXPECT_EQ(readBytes(file), whole.substr(0, ends[stretch])) << stretch;
    }
}

}  // namespace
}  // namespace quintline::testing

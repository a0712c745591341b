#include <gtest/gtest.h>

#include <atomic>
#include <sstream>
#include <string>
#include <vector>

#include "batch/batchRun.h"
#include "batch/commands.h"
#include "game/game.h"
#include "game/silentToolkit.h"
#include "harness/fakes.h"
#include "harness/testSuite.h"
#include "harness/tournament.h"
#include "tools/batchFixtures.h"

namespace quintline::batch {
namespace {

using quintline::testing::readBytes;
using quintline::testing::recordedGame;
using quintline::testing::reportLines;
using quintline::testing::ScratchDirectory;
using quintline::testing::ScriptedClock;
using quintline::testing::shallowSearches;
using quintline::testing::untimedLines;
using quintline::testing::writeBoardFile;
using quintline::testing::writeBytes;

// The same readings for every run, so whole reports can be compared.
ScriptedClock sameClock() {
    return ScriptedClock({"10:00:00", "10:05:00"}, {36000.0f, 36300.5f});
}

// The numbers of a report's summary line.
std::vector<int> summaryNumbers(const std::string& line) {
    std::vector<int> numbers;
    std::istringstream in(line);
    for (std::string field; std::getline(in, field, ',');) numbers.push_back(std::stoi(field));
    return numbers;
}

// The A-credit column of the stdout table, pairing by pairing.
std::vector<int> tableCredits(const std::string& table) {
    std::vector<int> credits;
    std::istringstream lines(table);
    std::string line;
    std::getline(lines, line);  // heading
    for (int n = 0; n < 14 && std::getline(lines, line); ++n) {
        std::istringstream words(line);
        std::string number, label;
        int games = 0, credit = 0;
        words >> number >> label >> games >> credit;
        credits.push_back(credit);
    }
    return credits;
}

TEST(BatchRun, TournamentWritesTheLibraryRunsReportWhateverTheThreads) {
    ScratchDirectory dir;
    const SearchSet shallow = shallowSearches();
    constexpr int cycles = 5;
    constexpr std::uint64_t seed = 2024;
    {
        SilentToolkit toolkit;
        Game game(toolkit, shallow);
        game.startSession();
        game.newGame();
        game.state().cycleCount = cycles;
        SeededUniform uniform(seed);
        ScriptedClock clock = sameClock();
        runTournament(game, uniform, clock, dir / "library.txt");
    }
    const std::string expected = readBytes(dir / "library.txt");
    ASSERT_EQ(reportLines(dir / "library.txt").size(), 2u + cycles + 3u);

    std::string firstTable;
    for (unsigned jobs : {1u, 2u, 3u}) {
        SCOPED_TRACE("jobs " + std::to_string(jobs));
        const auto report = dir / ("jobs" + std::to_string(jobs) + ".txt");
        ScriptedClock clock = sameClock();
        std::atomic<bool> stop{false};
        Environment environment{clock, stop, shallow};
        std::ostringstream out, err;
        const bool progress = jobs == 2;
        EXPECT_EQ(tournamentCommand({cycles, seed, jobs, report.string()}, environment,
                                    {out, err, progress}),
                  exitDone);
        EXPECT_EQ(readBytes(report), expected);
        if (progress) {
            EXPECT_NE(err.str().find("\r70/70 games"), std::string::npos) << err.str();
            EXPECT_EQ(err.str().back(), '\n');
        } else {
            EXPECT_EQ(err.str(), "");
        }
        if (firstTable.empty()) firstTable = out.str();
        EXPECT_EQ(out.str(), firstTable);
    }
    // The table counts what the summary line counts.
    const auto lines = reportLines(dir / "library.txt");
    EXPECT_EQ(tableCredits(firstTable), summaryNumbers(lines[2 + cycles]));
}

TEST(BatchRun, WithoutASeedTheClockSeedIsPrintedAndRepeatsTheRun) {
    ScratchDirectory dir;
    std::atomic<bool> stop{false};
    ScriptedClock clock1 = sameClock(), clock2 = sameClock();
    Environment first{clock1, stop, shallowSearches()};
    Environment second{clock2, stop, shallowSearches()};
    std::ostringstream out, err;
    ASSERT_EQ(tournamentCommand({2, {}, 2, (dir / "a.txt").string()}, first, {out, err}), exitDone);
    const std::string text = err.str();
    const std::string prefix = "quintline-batch: seed ";
    ASSERT_EQ(text.rfind(prefix, 0), 0u) << text;
    const std::uint64_t seed = std::stoull(text.substr(prefix.size()));
    EXPECT_NE(text.find("(repeat with --seed " + std::to_string(seed) + ")"), std::string::npos);
    ASSERT_EQ(tournamentCommand({2, seed, 1, (dir / "b.txt").string()}, second, {out, err}),
              exitDone);
    EXPECT_EQ(readBytes(dir / "a.txt"), readBytes(dir / "b.txt"));
}

// A list of near-finished real games, one refused file, one missing file, an
// empty board, a repeated path and an entry with seven stones.
struct Suite {
    ScratchDirectory dir;
    std::filesystem::path list = dir / "testsuit.txt";
    std::vector<std::string> paths;

    Suite() {
        const auto add = [&](const std::string& name) {
            paths.push_back((dir / name).string());
            return dir / name;
        };
        std::vector<Point> game = recordedGame(3);
        game.resize(game.size() - 4);
        writeBoardFile(add("late.txt"), game);
        writeBytes(add("wide.txt"),
                   "Grid Size\r\n 19 \r\nPiece number\r\n 5 \r\nTotal Move\r\n 0 \r\n"
                   "UserTurn\r\n 1 \r\nend\r\n");
        writeBoardFile(add("empty.txt"), {});
        paths.push_back(paths.front());
        writeBoardFile(add("seven.txt"),
                       {{8, 8}, {9, 9}, {7, 7}, {6, 6}, {10, 10}, {5, 5}, {8, 6}});
        add("missing.txt");
        std::string text = std::to_string(paths.size()) + "\r\n";
        for (const std::string& path : paths) text += path + "\r\n";
        text += "ignored.txt\r\n";
        writeBytes(list, text);
    }
};

TEST(BatchRun, TestSuiteWritesTheLibraryRunsReportAndReportsRefusalsOnce) {
    Suite suite;
    const SearchSet shallow = shallowSearches();
    std::vector<std::string> libraryMessages;
    {
        SilentToolkit toolkit([&](std::string_view text) { libraryMessages.emplace_back(text); });
        Game game(toolkit, shallow);
        game.startSession();
        game.newGame();
        ScriptedClock clock = sameClock();
        runTestSuite(game, clock, suite.list, suite.dir / "library.txt");
    }
    ASSERT_EQ(libraryMessages.size(), 2u);
    const std::string expected = readBytes(suite.dir / "library.txt");
    const auto lines = reportLines(suite.dir / "library.txt");
    ASSERT_EQ(lines.size(), 2u + 4u + 3u);
    // The tail carries the last entry's path, though that file was refused.
    EXPECT_EQ(lines.back().rfind(suite.paths.back(), 0), 0u);

    for (unsigned jobs : {1u, 2u, 3u}) {
        SCOPED_TRACE("jobs " + std::to_string(jobs));
        const auto report = suite.dir / ("jobs" + std::to_string(jobs) + ".txt");
        ScriptedClock clock = sameClock();
        std::atomic<bool> stop{false};
        Environment environment{clock, stop, shallow};
        std::ostringstream out, err;
        EXPECT_EQ(
            testSuiteCommand({suite.list.string(), jobs, report.string()}, environment, {out, err}),
            exitDone);
        EXPECT_EQ(readBytes(report), expected);
        // One line per refused entry, in list order, with the program's text.
        std::istringstream messages(err.str());
        std::vector<std::string> got;
        for (std::string line; std::getline(messages, line);) got.push_back(line);
        ASSERT_EQ(got.size(), 2u) << err.str();
        EXPECT_EQ(got[0], "entry 2 (" + suite.paths[1] + ") skipped: " + libraryMessages[0]);
        EXPECT_EQ(got[1], "entry 6 (" + suite.paths[5] + ") skipped: " + libraryMessages[1]);
        EXPECT_EQ(tableCredits(out.str()), summaryNumbers(lines[6]));
    }
}

TEST(BatchRun, EmptyTestSuiteAndInputsRefusedBeforeAnythingIsWritten) {
    ScratchDirectory dir;
    ScriptedClock clock = sameClock();
    std::atomic<bool> stop{false};
    Environment environment{clock, stop, shallowSearches()};
    std::ostringstream out, err;

    writeBytes(dir / "none.txt", "0\r\n");
    EXPECT_EQ(testSuiteCommand({(dir / "none.txt").string(), 2, (dir / "r.txt").string()},
                               environment, {out, err}),
              exitDone);
    EXPECT_EQ(untimedLines(dir / "r.txt")[1],
              " 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 ");
    EXPECT_EQ(reportLines(dir / "r.txt").size(), 5u);
    EXPECT_NE(out.str().find("1 A(3):B(2)"), std::string::npos);

    // A list that can't be read: nothing reaches the report.
    err.str("");
    EXPECT_EQ(testSuiteCommand({(dir / "nolist.txt").string(), 2, (dir / "r2.txt").string()},
                               environment, {out, err}),
              exitRefused);
    EXPECT_EQ(err.str(), "quintline-batch: " + (dir / "nolist.txt").string() +
                             " can not be opened! Not started\n");
    EXPECT_FALSE(std::filesystem::exists(dir / "r2.txt"));

    // A report that can't be written: refused before a game is played.
    err.str("");
    out.str("");
    EXPECT_EQ(tournamentCommand({3, 1, 2, dir.path().string()}, environment, {out, err}),
              exitRefused);
    EXPECT_EQ(err.str(),
              "quintline-batch: " + dir.path().string() + " can not be written! Not started\n");
    EXPECT_EQ(out.str(), "");
}

TEST(BatchRun, StopKeepsTheWholeLinesOfAPrefixAndCountsOnlyThem) {
    ScratchDirectory dir;
    const SearchSet shallow = shallowSearches();
    constexpr std::uint64_t seed = 77;
    std::atomic<bool> stop{false};
    BatchSettings settings;
    settings.jobs = 2;
    settings.searches = shallow;
    settings.progressInterval = std::chrono::milliseconds(1);
    // With two threads at most two jobs are unfinished, so 100 games done
    // means at least five whole cycles.
    settings.onProgress = [&](std::size_t done, std::size_t) {
        if (done >= 100) stop = true;
    };
    ScriptedClock clock = sameClock();
    Report report(dir / "stopped.txt", clock);
    ASSERT_TRUE(report.open({}));
    SeededUniform uniform(seed);
    TournamentJobs jobs(300, uniform);
    std::ostringstream err;
    MessageLog messages(err);
    const BatchOutcome outcome = playBatch(jobs, report, settings, stop, messages);
    ASSERT_TRUE(report.close(outcome.lastPath, outcome.credits));

    EXPECT_TRUE(outcome.stopped);
    EXPECT_FALSE(outcome.reportFailed);
    EXPECT_GE(outcome.lines, 5u);
    EXPECT_LT(outcome.lines, 300u);  // how far past the stop depends on the machine's load
    // Exactly what a run of that many cycles with the same seed writes.
    ScriptedClock clock2 = sameClock();
    std::atomic<bool> noStop{false};
    Environment environment{clock2, noStop, shallow};
    std::ostringstream out2, err2;
    ASSERT_EQ(
        tournamentCommand({static_cast<int>(outcome.lines), seed, 1, (dir / "short.txt").string()},
                          environment, {out2, err2}),
        exitDone);
    EXPECT_EQ(readBytes(dir / "stopped.txt"), readBytes(dir / "short.txt"));
}

TEST(BatchRun, StopBeforeTheFirstGameStillClosesTheReport) {
    ScratchDirectory dir;
    ScriptedClock clock = sameClock();
    std::atomic<bool> stop{true};
    Environment environment{clock, stop, shallowSearches()};
    std::ostringstream out, err;
    EXPECT_EQ(tournamentCommand({4, 5, 2, (dir / "r.txt").string()}, environment, {out, err}),
              exitStopped);
    const auto lines = reportLines(dir / "r.txt");
    ASSERT_EQ(lines.size(), 5u);
    EXPECT_EQ(lines[2], " 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 ");
    EXPECT_EQ(lines[4], "Used Time (second):  300.5 ");
    EXPECT_NE(err.str().find("stopped: 0 whole lines kept"), std::string::npos);
    EXPECT_NE(out.str().find("1 A(3):B(2)"), std::string::npos);
}

// Hands out a tournament's cycles and puts a directory in place of the report
// before the second one, so that a game line can no longer be appended.
class ReportBreakingJobs final : public JobSource {
  public:
    ReportBreakingJobs(UniformSource& uniform, std::filesystem::path report)
        : inner_(6, uniform), report_(std::move(report)) {}
    std::optional<BatchJob> next() override {
        if (++calls_ == 1) {  // before any game can finish, whatever the thread timing
            std::filesystem::remove(report_);
            std::filesystem::create_directory(report_);
        }
        return inner_.next();
    }
    std::size_t expected() const override { return inner_.expected(); }

  private:
    TournamentJobs inner_;
    std::filesystem::path report_;
    int calls_ = 0;
};

TEST(BatchRun, AReportThatFailsMidRunStopsIt) {
    ScratchDirectory dir;
    ScriptedClock clock = sameClock();
    Report report(dir / "r.txt", clock);
    ASSERT_TRUE(report.open({}));
    SeededUniform uniform(3);
    ReportBreakingJobs jobs(uniform, dir / "r.txt");
    std::atomic<bool> stop{false};
    BatchSettings settings;
    settings.jobs = 2;
    settings.searches = shallowSearches();
    std::ostringstream err;
    MessageLog messages(err);
    const BatchOutcome outcome = playBatch(jobs, report, settings, stop, messages);
    EXPECT_TRUE(outcome.reportFailed);
    EXPECT_FALSE(outcome.stopped);
    EXPECT_EQ(outcome.lines, 0u);
    EXPECT_EQ(err.str(), (dir / "r.txt").string() + " can not be written! Run stopped\n");
}

}  // namespace
}  // namespace quintline::batch

// The built quintline-batch program itself: a test-suite run in the current
// directory equal to the library's on one or two threads, stop signals, and
// two runs on one report.

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "harness/clock.h"
#include "harness/reportLock.h"
#include "harness/testSuite.h"
#include "tools/batchFixtures.h"

namespace quintline {
namespace {

using namespace testing;

struct Finished {
    int status = -1;  // exit status, or 128 + signal
    std::string out, err;
};

// Runs the program in `dir`, stdout and stderr going to files there;
// `meanwhile` gets the process id while it runs.
Finished run(const std::vector<std::string>& args, const std::filesystem::path& dir,
             const std::function<void(pid_t)>& meanwhile = {}) {
    const pid_t pid = fork();
    if (pid == 0) {
        if (chdir(dir.c_str()) != 0) _exit(126);
        dup2(open("stdout.log", O_WRONLY | O_CREAT | O_TRUNC, 0644), STDOUT_FILENO);
        dup2(open("stderr.log", O_WRONLY | O_CREAT | O_TRUNC, 0644), STDERR_FILENO);
        std::vector<char*> argv{const_cast<char*>(QUINTLINE_BATCH_PROGRAM)};
        for (const std::string& a : args) argv.push_back(const_cast<char*>(a.c_str()));
        argv.push_back(nullptr);
        execv(argv[0], argv.data());
        _exit(127);
    }
    if (meanwhile) meanwhile(pid);
    int raw = 0;
    waitpid(pid, &raw, 0);
    return {WIFEXITED(raw) ? WEXITSTATUS(raw) : 128 + WTERMSIG(raw), readBytes(dir / "stdout.log"),
            readBytes(dir / "stderr.log")};
}

// A list of `count` positions four moves before the end of three real games
// in turn, then the `extra` entries, all relative to the current directory.
void writeLateSuite(const ScratchDirectory& dir, const std::string& list, int count,
                    const std::vector<std::string>& extra = {}) {
    std::string text = std::to_string(count + static_cast<int>(extra.size())) + "\r\n";
    for (int i = 0; i < count; ++i) text += "late" + std::to_string(i % 3) + ".txt\r\n";
    for (const std::string& entry : extra) text += entry + "\r\n";
    writeBytes(dir / list, text + "ignored.txt\r\n");
    for (std::size_t i = 0; i < 3; ++i)
        writeBoardFile(dir / ("late" + std::to_string(i) + ".txt"), recordedGame(i, 4));
}

// The untimed lines the library writes for a list in the current directory.
std::vector<std::string> libraryRun(const std::string& list,
                                    SilentToolkit::MessageHook onMessage = {}) {
    LibraryGame library({}, std::move(onMessage));
    SystemClock clock;
    runTestSuite(library.game, clock, list, "library.txt");
    return reportLines("library.txt", true);
}

TEST(Program, ATestSuiteOnOneOrTwoThreadsWritesTheLibraryRunsLinesAndRefusalsOnce) {
    ScratchDirectory dir(true);
    writeBytes(dir / "wide.txt", wideBoardFile);
    writeLateSuite(dir, "testsuit.txt", 4, {"wide.txt", "missing.txt"});
    std::vector<std::string> heard;
    const auto expected =
        libraryRun("testsuit.txt", [&](std::string_view text) { heard.emplace_back(text); });
    ASSERT_EQ(expected.size(), 6u);  // header, four game lines, summary
    ASSERT_EQ(heard.size(), 2u);

    std::vector<std::string> tables;
    for (const char* jobs : {"--jobs=1", "--jobs=2"}) {
        const Finished f = run({"testsuite", jobs}, dir.path());
        ASSERT_EQ(f.status, 0) << f.err;
        EXPECT_EQ(f.err, "entry 5 (wide.txt) skipped: " + heard[0] +
                             "\nentry 6 (missing.txt) skipped: " + heard[1] + "\n");
        const auto lines = reportLines(dir / "result.txt", true);
        ASSERT_GE(lines.size(), 6u);
        EXPECT_EQ(std::vector(lines.end() - 6, lines.end()), expected) << jobs;
        tables.push_back(f.out);
    }
    EXPECT_EQ(tables[0], tables[1]);
    // The tail names the last entry, though it was refused.
    EXPECT_EQ(reportLines(dir / "result.txt").back().rfind("missing.txt", 0), 0u);
}

// Waits (for at most five minutes) until `done` holds.
void waitFor(const std::function<bool()>& done) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(5);
    while (!done() && std::chrono::steady_clock::now() < deadline)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
}

TEST(Program, CtrlCSigtermAndSighupKeepTheBlockOfTheEntriesPlayedSoFar) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        SCOPED_TRACE(signal);
        ScratchDirectory dir(true);
        writeLateSuite(dir, "testsuit.txt", 300);
        const Finished f =
            run({"testsuite", "--jobs", "2", "--games-csv", "g.csv", "--summary-json", "s.json"},
                dir.path(), [&](pid_t pid) {
                    // Once the first game line stands behind the start and header lines.
                    waitFor([&] { return reportLines(dir / "result.txt").size() >= 3; });
                    kill(pid, signal);
                });
        EXPECT_EQ(f.status, 128 + signal) << f.err;
        const auto lines = reportLines(dir / "result.txt");
        ASSERT_GE(lines.size(), 6u);
        const int games = static_cast<int>(lines.size()) - 5;
        EXPECT_NE(f.err.find("stopped: " + std::to_string(games) + " whole lines kept"),
                  std::string::npos)
            << f.err;
        EXPECT_NE(f.out.find("1 A(3):B(2)"), std::string::npos);
        // The CSV and the summary cover the same entries, each row naming its entry.
        const auto summary = nlohmann::json::parse(readBytes(dir / "s.json"));
        EXPECT_EQ(std::tuple(summary["run"]["stoppedBy"], summary["run"]["played"],
                             summary["run"]["seed"]),
                  std::tuple("interrupt", games, nullptr));
        const std::string csv = readBytes(dir / "g.csv");
        EXPECT_EQ(std::ranges::count(csv, '\n'), 1 + games * 14);
        const std::string lastRow =
            "\n,late" + std::to_string((games - 1) % 3) + ".txt,14,B-K-A(3)";
        EXPECT_EQ(csv.rfind(lastRow), csv.rfind('\n', csv.size() - 2)) << csv;
        // Exactly the block a run of that many entries writes, its tail naming the last of them.
        writeLateSuite(dir, "kept.txt", games);
        EXPECT_EQ(reportLines(dir / "result.txt", true), libraryRun("kept.txt"));
        const std::string last = "late" + std::to_string((games - 1) % 3) + ".txt";
        EXPECT_EQ(lines[static_cast<std::size_t>(3 + games)].rfind(last + "End Time: ", 0), 0u);
    }
}

TEST(Program, ASecondRunOnAReportWaitsForTheFirstOrWithNoWaitIsRefused) {
    ScratchDirectory dir(true);
    writeLateSuite(dir, "testsuit.txt", 1);
    writeBytes(dir / "result.txt", "first run\r\n");
    std::optional<ReportLock> firstRun(std::in_place);
    ASSERT_EQ(firstRun->tryTake(dir / "result.txt"), ReportLock::Outcome::taken);
    const Finished refused = run({"testsuite", "--no-wait"}, dir.path());
    EXPECT_EQ(std::tuple(refused.status, refused.err, readBytes(dir / "result.txt")),
              std::tuple(1, "quintline-batch: result.txt is in use by another run! Not started\n",
                         "first run\r\n"));
    std::filesystem::remove(dir / "stderr.log");
    const Finished waited = run({"testsuite"}, dir.path(), [&](pid_t) {
        waitFor([&] { return !readBytes(dir / "stderr.log").empty(); });
        EXPECT_EQ(readBytes(dir / "result.txt"), "first run\r\n");
        firstRun.reset();
    });
    EXPECT_EQ(
        std::tuple(waited.status, waited.err),
        std::tuple(0, "quintline-batch: waiting for another run to finish with result.txt\n"));
    EXPECT_EQ(reportLines(dir / "result.txt").size(), 7u);
}

// Every file a run keeps, by name relative to `dir`, without the times of the report.
std::map<std::string, std::string> keptFiles(const std::filesystem::path& dir) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(dir))
        if (entry.is_regular_file() && entry.path().extension() != ".log")
            files[entry.path().lexically_relative(dir).string()] = readBytes(entry.path());
    std::string untimed;
    for (const std::string& line : reportLines(dir / "r.txt", true)) untimed += line + '\n';
    files["r.txt"] = untimed;
    return files;
}

// Waits until the report holds at least `lines` lines, then sends `signal`.
std::function<void(pid_t)> signalAt(const std::filesystem::path& report, std::size_t lines,
                                    int signal) {
    return [=](pid_t pid) {
        waitFor([&] { return reportLines(report).size() >= lines; });
        kill(pid, signal);
    };
}

TEST(Program, ARunKilledStoppedAndKilledAgainResumesToTheUninterruptedRun) {
    ScratchDirectory dir(true);
    const std::filesystem::path whole = dir / "whole", cut = dir / "cut";
    const std::vector<std::string> args{
        "tournament", "--cycles",    "40",    "--seed",         "9",     "--jobs",
        "2",          "--report",    "r.txt", "--games",        "g",     "--sgf",
        "a.sgf",      "--games-csv", "g.csv", "--summary-json", "s.json"};
    std::filesystem::create_directories(whole);
    std::filesystem::create_directories(cut);
    ASSERT_EQ(run(args, whole).status, 0);

    // Killed as soon as the sidecar stands, then stopped by Ctrl-C, then killed again.
    ASSERT_EQ(run(args, cut, signalAt(cut / "r.txt.run.json", 1, SIGKILL)).status, 128 + SIGKILL);
    ASSERT_EQ(run({"resume", "--report", "r.txt"}, cut, signalAt(cut / "r.txt", 5, SIGINT)).status,
              130);
    const std::size_t stopped = reportLines(cut / "r.txt").size();
    ASSERT_EQ(
        run({"resume", "--report", "r.txt"}, cut, signalAt(cut / "r.txt", stopped + 3, SIGKILL))
            .status,
        128 + SIGKILL);
    // A report that no longer ends with the run's block is refused, and left alone.
    const std::string report = readBytes(cut / "r.txt");
    writeBytes(cut / "r.txt", report + "start Time: 12:00:00\r\n");
    const Finished refused = run({"resume", "--report", "r.txt"}, cut);
    EXPECT_EQ(refused.status, 1);
    EXPECT_NE(refused.err.find("r.txt does not end with the unfinished run of r.txt.run.json"),
              std::string::npos)
        << refused.err;
    EXPECT_EQ(readBytes(cut / "r.txt"), report + "start Time: 12:00:00\r\n");
    // A torn last line is cut.
    writeBytes(cut / "r.txt", report + " A 12 B");
    const Finished resumed = run({"resume", "--report", "r.txt", "--jobs", "1"}, cut);
    ASSERT_EQ(resumed.status, 0) << resumed.err;
    EXPECT_FALSE(std::filesystem::exists(cut / "r.txt.run.json"));
    auto expected = keptFiles(whole), got = keptFiles(cut);
    EXPECT_EQ(expected.size(), 4u + 40 * 14);
    for (auto* files : {&expected, &got}) {  // the resumed part ran on one thread
        auto summary = nlohmann::json::parse(files->at("s.json"));
        summary["run"].erase("jobs");
        files->at("s.json") = summary.dump();
    }
    for (const auto& [name, bytes] : got) EXPECT_EQ(bytes, expected[name]) << name;
    EXPECT_EQ(expected.size(), got.size());
}

}  // namespace
}  // namespace quintline

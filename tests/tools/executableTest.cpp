// The built quintline-batch program itself: two runs on one report, and a run
// killed, stopped by each stop signal and resumed to the uninterrupted run.

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

// A list of `count` positions four moves before the end of three real games in
// turn, relative to the current directory; and the untimed lines the library writes for it.
std::vector<std::string> writeLateSuite(const ScratchDirectory& dir, int count) {
    std::string text = std::to_string(count) + "\r\n";
    for (int i = 0; i < count; ++i) text += "late" + std::to_string(i % 3) + ".txt\r\n";
    writeBytes(dir / "testsuit.txt", text + "ignored.txt\r\n");
    for (std::size_t i = 0; i < 3; ++i)
        writeBoardFile(dir / ("late" + std::to_string(i) + ".txt"), recordedGame(i, 4));
    LibraryGame library;
    SystemClock clock;
    runTestSuite(library.game, clock, "testsuit.txt", "library.txt");
    return reportLines("library.txt", true);
}

// Waits (for at most five minutes) until `done` holds.
void waitFor(const std::function<bool()>& done) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(5);
    while (!done() && std::chrono::steady_clock::now() < deadline)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
}

// The test suite in the current directory, after another run on its report.
TEST(Program, ASecondRunOnAReportWaitsForTheFirstOrWithNoWaitIsRefused) {
    ScratchDirectory dir(true);
    const auto expected = writeLateSuite(dir, 4);
    writeBytes(dir / "result.txt", "first run\r\n");
    std::optional<ReportLock> firstRun(std::in_place);
    ASSERT_EQ(firstRun->tryTake(dir / "result.txt"), ReportLock::Outcome::taken);
    const Finished refused = run({"testsuite", "--no-wait"}, dir.path());
    EXPECT_EQ(std::tuple(refused.status, refused.err, readBytes(dir / "result.txt")),
              std::tuple(1, "quintline-batch: result.txt is in use by another run! Not started\n",
                         "first run\r\n"));
    std::filesystem::remove(dir / "stderr.log");
    const Finished waited = run({"testsuite", "--games-csv", "g.csv", "--summary-json", "s.json"},
                                dir.path(), [&](pid_t) {
                                    waitFor([&] { return !readBytes(dir / "stderr.log").empty(); });
                                    EXPECT_EQ(readBytes(dir / "result.txt"), "first run\r\n");
                                    firstRun.reset();
                                });
    EXPECT_EQ(
        std::tuple(waited.status, waited.err),
        std::tuple(0, "quintline-batch: waiting for another run to finish with result.txt\n"));
    // Then the block the library writes, CSV rows naming their entries, and no seed.
    EXPECT_EQ(nlohmann::json::parse(readBytes(dir / "s.json"))["run"]["seed"], nullptr);
    const auto lines = reportLines(dir / "result.txt", true);
    EXPECT_EQ(std::vector(lines.begin() + 1, lines.end()), expected);
    const std::string csv = readBytes(dir / "g.csv");
    EXPECT_EQ(csv.rfind("\n,late0.txt,14,B-K-A(3)"), csv.rfind('\n', csv.size() - 2));
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

    // Killed as soon as the sidecar stands; then stopped by each stop signal and killed again.
    ASSERT_EQ(run(args, cut, signalAt(cut / "r.txt.run.json", 1, SIGKILL)).status, 128 + SIGKILL);
    for (const int signal : {SIGTERM, SIGHUP, SIGINT, SIGKILL}) {
        SCOPED_TRACE(signal);
        const std::size_t before = reportLines(cut / "r.txt").size();
        const Finished f =
            run({"resume", "--report", "r.txt"}, cut,
                signalAt(cut / "r.txt", std::max(before + 3, std::size_t{5}), signal));
        ASSERT_EQ(f.status, 128 + signal) << f.err;
        if (signal == SIGKILL) break;
        // The whole cycles so far, in the report, the CSV and the summary alike.
        const auto lines = reportLines(cut / "r.txt");
        const int cycles = static_cast<int>(lines.size()) - 5;
        EXPECT_NE(f.err.find("stopped: " + std::to_string(cycles) + " whole lines kept"),
                  std::string::npos)
            << f.err;
        EXPECT_TRUE(lines[lines.size() - 2].starts_with("End Time: ")) << lines.back();
        EXPECT_NE(f.out.find("1 A(3):B(2)"), std::string::npos);
        const auto summary = nlohmann::json::parse(readBytes(cut / "s.json"));
        EXPECT_EQ(std::tuple(summary["run"]["stoppedBy"], summary["run"]["played"]),
                  std::tuple("interrupt", cycles));
        EXPECT_EQ(std::ranges::count(readBytes(cut / "g.csv"), '\n'), 1 + cycles * 14);
    }
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

// The built quintline-batch program itself: exit codes, its own files in the
// current directory, and Ctrl-C.

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <string>
#include <thread>
#include <vector>

#include "game/game.h"
#include "game/silentToolkit.h"
#include "harness/fakes.h"
#include "harness/testSuite.h"
#include "harness/tournament.h"
#include "tools/batchFixtures.h"

namespace quintline {
namespace {

using testing::readBytes;
using testing::recordedGame;
using testing::reportLines;
using testing::ScratchDirectory;
using testing::untimedLines;
using testing::writeBoardFile;
using testing::writeBytes;

struct Finished {
    int status = -1;  // exit status, or 128 + signal
    std::string out;
    std::string err;
};

// Starts the program in `dir` with stdout and stderr going to files there.
pid_t start(const std::vector<std::string>& args, const std::filesystem::path& dir) {
    const pid_t pid = fork();
    if (pid == 0) {
        if (chdir(dir.c_str()) != 0) _exit(126);
        const int out = open("stdout.log", O_WRONLY | O_CREAT | O_TRUNC, 0644);
        const int err = open("stderr.log", O_WRONLY | O_CREAT | O_TRUNC, 0644);
        dup2(out, STDOUT_FILENO);
        dup2(err, STDERR_FILENO);
        std::vector<char*> argv{const_cast<char*>(QUINTLINE_BATCH_PROGRAM)};
        for (const std::string& a : args) argv.push_back(const_cast<char*>(a.c_str()));
        argv.push_back(nullptr);
        execv(argv[0], argv.data());
        _exit(127);
    }
    return pid;
}

Finished wait(pid_t pid, const std::filesystem::path& dir) {
    int raw = 0;
    waitpid(pid, &raw, 0);
    Finished f;
    f.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : 128 + WTERMSIG(raw);
    f.out = readBytes(dir / "stdout.log");
    f.err = readBytes(dir / "stderr.log");
    return f;
}

Finished run(const std::vector<std::string>& args, const std::filesystem::path& dir) {
    return wait(start(args, dir), dir);
}

TEST(Program, ExitCodesOfEachKindOfEnd) {
    ScratchDirectory dir;
    Finished f = run({}, dir.path());
    EXPECT_EQ(f.status, 2);
    EXPECT_EQ(f.err, "quintline-batch: no command given\nTry 'quintline-batch --help'.\n");
    EXPECT_EQ(f.out, "");

    f = run({"analyse", "--help"}, dir.path());
    EXPECT_EQ(f.status, 0);
    EXPECT_EQ(f.out.rfind("Usage:\n", 0), 0u);

    // The default list is testsuit.txt in the current directory.
    f = run({"testsuite"}, dir.path());
    EXPECT_EQ(f.status, 1);
    EXPECT_EQ(f.err, "quintline-batch: testsuit.txt can not be opened! Not started\n");
    EXPECT_FALSE(std::filesystem::exists(dir / "result.txt"));

    writeBoardFile(dir / "p.txt", {{8, 8}, {9, 8}, {7, 6}});
    f = run({"analyse", "p.txt", "--kind", "3", "--depth", "2"}, dir.path());
    EXPECT_EQ(f.status, 0) << f.err;
    EXPECT_EQ(f.out, "9 9 145 75\n");
}

// A test suite of positions a few moves before the end of real games, with
// paths relative to the current directory.
void writeLateSuite(const ScratchDirectory& dir, int entries) {
    std::string list = std::to_string(entries) + "\r\n";
    for (int i = 0; i < 3; ++i) {
        std::vector<Point> game = recordedGame(static_cast<std::size_t>(i));
        game.resize(game.size() - 4);
        writeBoardFile(dir / ("late" + std::to_string(i) + ".txt"), game);
    }
    for (int i = 0; i < entries; ++i) list += "late" + std::to_string(i % 3) + ".txt\r\n";
    writeBytes(dir / "testsuit.txt", list);
}

TEST(Program, TestSuiteOnOneAndTwoThreadsMatchesTheLibraryRun) {
    ScratchDirectory dir(true);  // the library reads the entries from here too
    writeLateSuite(dir, 4);
    const Finished one = run({"testsuite", "--jobs", "1"}, dir.path());
    ASSERT_EQ(one.status, 0) << one.err;
    const std::vector<std::string> first = untimedLines(dir / "result.txt");
    const Finished two = run({"testsuite", "--jobs=2"}, dir.path());
    ASSERT_EQ(two.status, 0) << two.err;
    const std::vector<std::string> both = untimedLines(dir / "result.txt");
    // Two blocks, each header, four game lines and a summary.
    ASSERT_EQ(first.size(), 6u);
    ASSERT_EQ(both.size(), 12u);
    EXPECT_EQ(std::vector<std::string>(both.begin() + 6, both.end()), first);
    EXPECT_EQ(first[1].substr(0, 10), "late0.txt ");
    EXPECT_EQ(one.out, two.out);
    EXPECT_EQ(one.err, "");

    SilentToolkit toolkit;
    Game game(toolkit);
    game.startSession();
    game.newGame();
    SystemClock clock;
    runTestSuite(game, clock, "testsuit.txt", "library.txt");
    EXPECT_EQ(untimedLines(dir / "library.txt"), first);
}

TEST(Program, TournamentLineMatchesTheLibraryForTheSameSeed) {
    // Seed 1's first opening gives black a quick win in every pairing: a
    // cheap full cycle.
    ScratchDirectory dir;
    const Finished f =
        run({"tournament", "--cycles", "1", "--seed", "1", "--jobs", "2", "--report", "t.txt"},
            dir.path());
    ASSERT_EQ(f.status, 0) << f.err;
    EXPECT_EQ(f.err, "");

    SilentToolkit toolkit;
    Game game(toolkit);
    game.startSession();
    game.newGame();
    game.state().cycleCount = 1;
    SeededUniform uniform(1);
    SystemClock clock;
    runTournament(game, uniform, clock, dir / "library.txt");
    EXPECT_EQ(untimedLines(dir / "t.txt"), untimedLines(dir / "library.txt"));
    EXPECT_NE(f.out.find("1 A(3):B(2)"), std::string::npos);
}

TEST(Program, CtrlCKeepsWholeLinesAndWritesTheTail) {
    ScratchDirectory dir;
    writeLateSuite(dir, 300);
    const pid_t pid = start({"testsuite", "--jobs", "2"}, dir.path());
    // Wait for the first game line behind the start and header lines.
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(5);
    while (reportLines(dir / "result.txt").size() < 3 &&
           std::chrono::steady_clock::now() < deadline)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    kill(pid, SIGINT);
    const Finished f = wait(pid, dir.path());
    EXPECT_EQ(f.status, 130) << f.err;

    const auto lines = reportLines(dir / "result.txt");
    ASSERT_GE(lines.size(), 6u);
    const std::size_t games = lines.size() - 5;
    EXPECT_LT(games, 300u);
    // Every game line whole: a path and fourteen groups.
    std::vector<int> credits(14, 0);
    for (std::size_t i = 2; i < 2 + games; ++i) {
        std::istringstream words(lines[i]);
        std::string path, letter, stones;
        words >> path;
        EXPECT_EQ(path, "late" + std::to_string((i - 2) % 3) + ".txt");
        for (int n = 0; n < 14; ++n) {
            ASSERT_TRUE(words >> letter >> stones) << lines[i];
            if (letter == "A") ++credits[n];
        }
    }
    std::string summary;
    for (int n = 0; n < 14; ++n) summary += (n ? ", " : " ") + std::to_string(credits[n]) + " ";
    EXPECT_EQ(lines[2 + games], summary);
    const std::string lastPath = "late" + std::to_string((games - 1) % 3) + ".txt";
    EXPECT_EQ(lines[3 + games].rfind(lastPath + "End Time: ", 0), 0u);
    EXPECT_EQ(lines[4 + games].rfind(lastPath + "Used Time (second): ", 0), 0u);
    EXPECT_NE(f.err.find("stopped: " + std::to_string(games) + " whole lines kept"),
              std::string::npos)
        << f.err;
    EXPECT_NE(f.out.find("1 A(3):B(2)"), std::string::npos);
}

}  // namespace
}  // namespace quintline

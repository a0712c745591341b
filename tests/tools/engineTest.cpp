// The built pbrain-quintline: a scripted manager session ended by the end of stdin, END during
// a search, and a whole game of two engines, every move checked against quintline-batch analyse.

#include <sys/wait.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>

#include "batch/analyse.h"
#include "tools/batchFixtures.h"

namespace quintline::engine {
namespace {

using Lines = std::vector<std::string>;

struct Session {
    Lines answers;   // the lines of stdout, MESSAGE lines dropped unless `messages`
    int status = 0;  // exit status; 124 when it still ran after a minute
};

// Runs the program on stdin given in `parts`, two seconds apart, so that a loaded machine answers
// each part first.
Session runEngine(const std::string& args, const Lines& parts, bool messages = true) {
    const testing::ScratchDirectory dir;
    std::string command = "(";
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const auto file = dir / std::to_string(i);
        testing::writeBytes(file, parts[i]);
        command += (i ? "; sleep 2; cat " : "cat ") + file.string();
    }
    command += ") | timeout 60 " QUINTLINE_ENGINE_PROGRAM " " + args;
    Session session;
    FILE* out = popen(command.c_str(), "r");
    char buffer[4096];
    while (out != nullptr && std::fgets(buffer, sizeof buffer, out) != nullptr) {
        std::string line(buffer);
        if (line.ends_with('\n')) line.pop_back();
        if (messages || !line.starts_with("MESSAGE")) session.answers.push_back(line);
    }
    const int raw = out != nullptr ? pclose(out) : -1;
    session.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    return session;
}

// The script: "> " lines sent, "< " lines answered, a final * taking any rest of a line.
TEST(Engine, AnswersTheScriptedSessionAndEndsAtOnceAtEnd) {
    std::ifstream in(QUINTLINE_ENGINE_SCRIPT);
    std::string sent;
    Lines expected;
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with("< ")) expected.push_back(line.substr(2));
        if (!line.starts_with("> ")) continue;
        std::string bytes;
        for (std::size_t i = 2; i < line.size(); ++i)
            bytes += line[i] != '\\' ? line[i] : line[++i] == 'r' ? '\r' : '\n';
        sent += bytes.ends_with('\r') || bytes.ends_with('\n') ? bytes : bytes + "\r\n";
    }
    const Session session = runEngine("--kind 3 --depth 2", {sent});
    ASSERT_EQ(session.answers.size(), expected.size()) << ::testing::PrintToString(session.answers);
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const std::string& want = expected[i];
        EXPECT_TRUE(want.ends_with('*')
                        ? session.answers[i].starts_with(want.substr(0, want.size() - 1))
                        : session.answers[i] == want)
            << session.answers[i] << " for " << want;
    }
    EXPECT_EQ(session.status, 0);
    // END (in any case) while a deep search runs: no answer, then or after, and out at once.
    const Session ended =
        runEngine("--kind=3 --depth=9",
                  {"START 15\r\nBOARD\r\n7,7,2\r\n7,8,1\r\n8,8,2\r\n6,6,1\r\n9,9,2\r\nDONE\r\n",
                   "eNd\r\nBEGIN\r\n"});
    EXPECT_EQ(std::tuple(ended.answers, ended.status), std::tuple(Lines{"OK"}, 0));
}

// Until a five stands, when the library's search chooses no point.
TEST(Engine, TwoEnginesPlayAWholeGameOfTheLibrarysChoices) {
    const PlayerKind kinds[] = {aKnowsB, bKnowsA};
    const testing::ScratchDirectory dir;
    const std::string file = (dir / "position.txt").string();
    std::vector<Point> moves{{8, 8}};
    std::string heard[2] = {"BEGIN\r\n", ""};  // no move is asked for after the five
    Lines said[2];
    for (;;) {
        const std::size_t mover = moves.size() % 2;
        const Point last = moves.back();
        said[1 - mover].push_back(std::to_string(last.x - 1) + "," + std::to_string(last.y - 1));
        testing::writeBoardFile(file, moves);
        const auto outcome = batch::analysePosition({file, kinds[mover], 2, {}, {}});
        ASSERT_TRUE(outcome.analysis) << outcome.error;
        if (outcome.analysis->point == Point{}) break;
        heard[mover] += "TURN " + said[1 - mover].back() + "\r\n";
        moves.push_back(outcome.analysis->point);
    }
    ASSERT_GT(moves.size(), 9u);
    for (std::size_t e = 0; e < 2; ++e) {
        const Session session =
            runEngine("--kind " + std::to_string(3 + e) + " --depth 2", {heard[e]}, false);
        EXPECT_EQ(std::tuple(session.answers, session.status), std::tuple(said[e], 0)) << e;
    }
}

}  // namespace
}  // namespace quintline::engine

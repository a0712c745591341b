// pbrain-quintline: a scripted manager session, in-process and through pipes
// with the built program, END during a search, and a whole game between two
// engine processes whose every move is checked against quintline-batch analyse.

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <functional>

#include "batch/analyse.h"
#include "lineSplitter.h"
#include "pbrainSession.h"
#include "tools/batchFixtures.h"

namespace quintline::engine {
namespace {

using Lines = std::vector<std::string>;

// The program with its stdin and stdout on pipes; killed if still running at the end.
class EngineProcess {
  public:
    explicit EngineProcess(std::vector<std::string> args) {
        int in[2], out[2];
        if (pipe2(in, O_CLOEXEC) != 0 || pipe2(out, O_CLOEXEC) != 0 || (pid_ = fork()) < 0)
            std::abort();
        if (pid_ == 0) {
            dup2(in[0], STDIN_FILENO), dup2(out[1], STDOUT_FILENO);
            std::vector<char*> argv{const_cast<char*>(QUINTLINE_ENGINE_PROGRAM)};
            for (std::string& a : args) argv.push_back(a.data());
            argv.push_back(nullptr);
            execv(argv[0], argv.data());
            _exit(127);
        }
        close(in[0]), close(out[1]);
        to_ = in[1], from_ = out[0];
    }
    ~EngineProcess() {
        if (pid_ > 0) kill(pid_, SIGKILL), waitpid(pid_, nullptr, 0);
        close(to_), close(from_);
    }
    void send(const std::string& bytes) { EXPECT_GT(write(to_, bytes.data(), bytes.size()), 0); }
    // The next answer line; "(end)" once the output has ended, "(silent)" after 20 s without.
    std::string line() {
        for (char c; buffer_.find('\n') == std::string::npos; buffer_ += c) {
            pollfd ready{from_, POLLIN, 0};
            if (!over_.empty()) return over_;
            if (poll(&ready, 1, 20000) != 1) return over_ = "(silent)";
            if (read(from_, &c, 1) != 1) return over_ = "(end)";
        }
        const std::size_t end = buffer_.find('\n');
        return std::exchange(buffer_, buffer_.substr(end + 1)).substr(0, end);
    }
    // Skips the MESSAGE lines before a move and gives the move as the engine's point.
    Point move() {
        std::string text = line();
        while (text.starts_with("MESSAGE")) text = line();
        int x = 0, y = 0;
        EXPECT_EQ(std::sscanf(text.c_str(), "%d,%d", &x, &y), 2) << text;
        return {static_cast<std::int16_t>(x + 1), static_cast<std::int16_t>(y + 1)};
    }
    // Closes its stdin first, so that an engine deaf to END still ends.
    int exitStatus() {
        close(std::exchange(to_, -1));
        int raw = 0;
        waitpid(std::exchange(pid_, -1), &raw, 0);
        return WIFEXITED(raw) ? WEXITSTATUS(raw) : 128 + WTERMSIG(raw);
    }

  private:
    pid_t pid_ = -1;
    int to_ = -1, from_ = -1;
    std::string buffer_;
    std::string over_;  // why no more lines come
};

// Runs the script: `answersTo` sends one step's bytes and returns that many answer lines.
void runScript(const std::function<Lines(const std::string&, std::size_t)>& answersTo) {
    std::ifstream in(QUINTLINE_ENGINE_SCRIPT);
    std::vector<std::pair<std::string, Lines>> steps;  // bytes sent, answers expected
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with("< ")) steps.back().second.push_back(line.substr(2));
        if (!line.starts_with("> ")) continue;
        std::string sent;
        for (std::size_t i = 2; i < line.size(); ++i)
            sent += line[i] != '\\' ? line[i] : line[++i] == 'r' ? '\r' : '\n';
        steps.push_back({sent.ends_with('\r') || sent.ends_with('\n') ? sent : sent + "\r\n", {}});
    }
    ASSERT_GT(steps.size(), 10u);
    for (const auto& [sent, expected] : steps) {
        SCOPED_TRACE("after sending " + ::testing::PrintToString(sent));
        const Lines answers = answersTo(sent, expected.size());
        ASSERT_EQ(answers.size(), expected.size()) << ::testing::PrintToString(answers);
        for (std::size_t i = 0; i < answers.size(); ++i) {
            const std::string& want = expected[i];
            EXPECT_TRUE(want.ends_with('*')
                            ? answers[i].starts_with(want.substr(0, want.size() - 1))
                            : answers[i] == want)
                << answers[i];
        }
    }
}

TEST(Engine, AnswersTheScriptedSessionInProcessAndThroughPipes) {
    PbrainSession session({aKnowsB, 2});
    LineSplitter splitter;
    runScript([&](const std::string& sent, std::size_t) {
        Lines answers;
        splitter.feed(sent, [&](std::string_view line) {
            std::istringstream text(session.answer(line));
            for (std::string answer; std::getline(text, answer);) answers.push_back(answer);
        });
        return answers;
    });
    EXPECT_TRUE(session.ended());

    EngineProcess program({"--kind", "3", "--depth", "2"});
    runScript([&](const std::string& sent, std::size_t count) {
        program.send(sent);
        Lines answers;
        while (answers.size() < count) answers.push_back(program.line());
        return answers;
    });
    EXPECT_EQ(program.line(), "(end)");  // nothing after END
    EXPECT_EQ(program.exitStatus(), 0);
}

TEST(Engine, EndsAtOnceDuringASearchWithoutAnswering) {
    EngineProcess program({"--kind=3", "--depth=9"});
    program.send("START 15\r\nBOARD\r\n7,7,2\r\n7,8,1\r\n8,8,2\r\n6,6,1\r\n9,9,2\r\nDONE\r\n");
    EXPECT_EQ(program.line(), "OK");
    usleep(100000);
    program.send("END\r\n");
    EXPECT_EQ(program.line(), "(end)");
    EXPECT_EQ(program.exitStatus(), 0);
}

// Until a five stands, when the library's search chooses no point.
TEST(Engine, TwoEnginesPlayAWholeGameOfTheLibrarysChoices) {
    const PlayerKind kinds[] = {aKnowsB, bKnowsA};
    EngineProcess first({"--kind", "3", "--depth", "2"}), second({"--kind", "4", "--depth", "2"});
    EngineProcess* engines[] = {&first, &second};
    const testing::ScratchDirectory dir;
    const std::string file = (dir / "position.txt").string();
    std::vector<Point> moves;
    for (std::string command = "BEGIN";;) {
        const std::size_t mover = moves.size() % 2;
        Point expected{8, 8};
        if (!moves.empty()) {
            testing::writeBoardFile(file, moves);
            const auto outcome = batch::analysePosition({file, kinds[mover], 2, {}, {}});
            ASSERT_TRUE(outcome.analysis) << outcome.error;
            if ((expected = outcome.analysis->point) == Point{}) break;
        }
        engines[mover]->send(command + "\r\n");
        moves.push_back(engines[mover]->move());
        ASSERT_EQ(moves.back(), expected) << "move " << moves.size();
        command = "TURN " + std::to_string(expected.x - 1) + "," + std::to_string(expected.y - 1);
    }
    EXPECT_GT(moves.size(), 9u);
    for (EngineProcess* engine : engines) {
        engine->send("END\r\n");
        EXPECT_EQ(engine->exitStatus(), 0);
    }
}

}  // namespace
}  // namespace quintline::engine

// pbrain-quintline: a scripted manager session, in-process and through pipes
// with the built program, END during a search, and a whole game between two
// engine processes whose every move is checked against quintline-batch analyse.

#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "batch/analyse.h"
#include "lineSplitter.h"
#include "pbrainSession.h"
#include "position/basicOpr.h"
#include "tools/batchFixtures.h"

namespace quintline::engine {
namespace {

// The program with its stdin and stdout on pipes; killed if still running at the end.
class EngineProcess {
  public:
    explicit EngineProcess(std::vector<std::string> args) {
        int in[2], out[2];
        if (pipe(in) != 0 || pipe(out) != 0) throw std::runtime_error("no pipe");
        pid_ = fork();
        if (pid_ == 0) {
            dup2(in[0], STDIN_FILENO);
            dup2(out[1], STDOUT_FILENO);
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
    void send(const std::string& bytes) {
        ASSERT_EQ(write(to_, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }
    // The next answer line, or nothing at the end of output (or after a minute).
    std::optional<std::string> line() {
        for (std::size_t end; (end = buffer_.find('\n')) == std::string::npos;) {
            pollfd ready{from_, POLLIN, 0};
            char chunk[512];
            const ssize_t n = poll(&ready, 1, 60000) == 1 ? read(from_, chunk, sizeof chunk) : 0;
            if (n <= 0) return {};
            buffer_.append(chunk, static_cast<std::size_t>(n));
        }
        const std::size_t end = buffer_.find('\n');
        std::string text = buffer_.substr(0, end);
        buffer_.erase(0, end + 1);
        return text;
    }
    int exitStatus() {
        int raw = 0;
        waitpid(std::exchange(pid_, -1), &raw, 0);
        return WIFEXITED(raw) ? WEXITSTATUS(raw) : 128 + WTERMSIG(raw);
    }

  private:
    pid_t pid_ = -1;
    int to_ = -1, from_ = -1;
    std::string buffer_;
};

struct Step {
    std::string sent;
    std::vector<std::string> answers;
};

std::vector<Step> readScript() {
    std::ifstream in(QUINTLINE_ENGINE_SCRIPT);
    std::vector<Step> steps;
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with("< ")) steps.back().answers.push_back(line.substr(2));
        if (!line.starts_with("> ")) continue;
        std::string sent;
        for (std::size_t i = 2; i < line.size(); ++i) {
            const bool escape = line[i] == '\\' && i + 1 < line.size();
            sent += !escape ? line[i] : line[++i] == 'r' ? '\r' : '\n';
        }
        steps.push_back({sent.ends_with('\r') || sent.ends_with('\n') ? sent : sent + "\r\n", {}});
    }
    return steps;
}

// Word by word, where an expected word ending in "*" takes any word so begun.
bool matches(const std::string& expected, const std::string& actual) {
    std::istringstream want(expected), got(actual);
    std::string w, g;
    while (want >> w)
        if (!(got >> g) || (w.ends_with('*') ? !g.starts_with(w.substr(0, w.size() - 1)) : w != g))
            return false;
    return !(got >> g) && expected.find_first_not_of(' ') != std::string::npos;
}

void expectAnswers(const Step& step, const std::vector<std::string>& answers) {
    SCOPED_TRACE("after sending " + ::testing::PrintToString(step.sent));
    ASSERT_EQ(answers.size(), step.answers.size()) << ::testing::PrintToString(answers);
    for (std::size_t i = 0; i < answers.size(); ++i)
        EXPECT_TRUE(matches(step.answers[i], answers[i])) << answers[i];
}

TEST(Engine, AnswersTheScriptedSessionInProcessAndThroughPipes) {
    const std::vector<Step> steps = readScript();
    ASSERT_GT(steps.size(), 20u);
    PbrainSession session({aKnowsB, 2});
    LineSplitter splitter;
    for (const Step& step : steps) {
        std::vector<std::string> answers;
        splitter.feed(step.sent, [&](std::string_view line) {
            std::istringstream text(session.answer(line));
            for (std::string answer; std::getline(text, answer);) answers.push_back(answer);
        });
        expectAnswers(step, answers);
    }
    EXPECT_TRUE(session.ended());

    EngineProcess program({"--kind", "3", "--depth", "2"});
    for (const Step& step : steps) {
        program.send(step.sent);
        std::vector<std::string> answers;
        while (answers.size() < step.answers.size())
            answers.push_back(program.line().value_or("(no answer)"));
        expectAnswers(step, answers);
    }
    EXPECT_EQ(program.line(), std::nullopt);  // nothing after END
    EXPECT_EQ(program.exitStatus(), 0);
}

TEST(Engine, EndsAtOnceDuringASearchWithoutAnswering) {
    EngineProcess program({"--kind=3", "--depth=9"});
    program.send("START 15\r\nBOARD\r\n7,7,2\r\n7,8,1\r\n8,8,2\r\n6,6,1\r\n9,9,2\r\nDONE\r\n");
    EXPECT_EQ(program.line(), "OK");
    usleep(100000);
    program.send("END\r\n");
    EXPECT_EQ(program.line(), std::nullopt);
    EXPECT_EQ(program.exitStatus(), 0);
}

// The move after MESSAGE lines, as the engine's point.
Point moveOf(EngineProcess& engine) {
    std::optional<std::string> line;
    while ((line = engine.line()) && line->starts_with("MESSAGE")) {
    }
    int x = -1, y = -1;
    EXPECT_EQ(std::sscanf(line.value_or("").c_str(), "%d,%d", &x, &y), 2) << line.value_or("");
    return {static_cast<std::int16_t>(x + 1), static_cast<std::int16_t>(y + 1)};
}

TEST(Engine, TwoEnginesPlayAWholeGameOfTheLibrarysChoices) {
    const EngineSettings sides[] = {{aKnowsB, 2}, {bKnowsA, 2}};
    EngineProcess blackEngine({"--kind", "3", "--depth", "2"}),
        whiteEngine({"--kind", "4", "--depth", "2"});
    EngineProcess* engines[] = {&blackEngine, &whiteEngine};
    testing::ScratchDirectory dir;
    Position position;
    std::vector<Point> moves;
    for (GameCode result = gameOpen; result == gameOpen;) {
        const std::size_t mover = moves.size() % 2;
        Point expected{8, 8};
        if (!moves.empty()) {
            testing::writeBoardFile(dir / "position.txt", moves);
            const auto outcome = batch::analysePosition(
                {(dir / "position.txt").string(), sides[mover].kind, sides[mover].depth, {}, {}});
            ASSERT_TRUE(outcome.analysis) << outcome.error;
            expected = outcome.analysis->point;
        }
        const Point last = moves.empty() ? Point{} : moves.back();
        engines[mover]->send(moves.empty() ? "BEGIN\r\n"
                                           : "TURN " + std::to_string(last.x - 1) + "," +
                                                 std::to_string(last.y - 1) + "\r\n");
        const Point played = moveOf(*engines[mover]);
        ASSERT_EQ(played, expected) << "move " << moves.size() + 1;
        moves.push_back(played);
        const Side side = sideToMove(static_cast<std::int16_t>(moves.size()));
        placeStone(position, played.x, played.y, side);
        result = gameEndTest(position, static_cast<std::int16_t>(moves.size()), played.x, played.y,
                             side);
    }
    EXPECT_GT(moves.size(), 9u);
    for (EngineProcess* engine : engines) {
        engine->send("END\r\n");
        EXPECT_EQ(engine->exitStatus(), 0);
    }
}

}  // namespace
}  // namespace quintline::engine

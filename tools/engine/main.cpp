// pbrain-quintline: a Quintline player as a gomoku engine for tournament
// managers and board programs that speak the pbrain protocol.
//
// Two threads: this one reads stdin, so that END is seen at once even while a
// search runs; the other answers the commands in order and runs the searches.

#include <unistd.h>

#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <iostream>
#include <mutex>
#include <string>
#include <thread>

#include "engineOptions.h"
#include "lineSplitter.h"
#include "pbrainSession.h"

namespace {

using namespace quintline::engine;

// Lines read and not yet answered, and whether stdin has ended.
class CommandQueue {
  public:
    void push(std::string line) {
        {
            std::lock_guard lock(mutex_);
            lines_.push_back(std::move(line));
        }
        ready_.notify_one();
    }
    void close() {
        {
            std::lock_guard lock(mutex_);
            closed_ = true;
        }
        ready_.notify_one();
    }
    // The next line, or false once stdin has ended and every line is taken.
    bool pop(std::string& line) {
        std::unique_lock lock(mutex_);
        ready_.wait(lock, [&] { return closed_ || !lines_.empty(); });
        if (lines_.empty()) return false;
        line = std::move(lines_.front());
        lines_.pop_front();
        return true;
    }

  private:
    std::mutex mutex_;
    std::condition_variable ready_;
    std::deque<std::string> lines_;
    bool closed_ = false;
};

// Stdout, whole answers at a time, so that END never cuts a line in two.
class Answers {
  public:
    void write(const std::string& text) {
        std::lock_guard lock(mutex_);
        std::fwrite(text.data(), 1, text.size(), stdout);
        std::fflush(stdout);
    }
    [[noreturn]] void endAtOnce() {
        mutex_.lock();
        std::_Exit(0);
    }

  private:
    std::mutex mutex_;
};

}  // namespace

int main(int argc, char** argv) {
    const ParsedOptions options = parseOptions(argc, argv);
    if (!options.run) {
        (options.exitCode == 0 ? std::cout : std::cerr) << options.text << std::flush;
        return options.exitCode;
    }

    CommandQueue queue;
    Answers answers;
    std::thread answering([&] {
        PbrainSession session(options.settings);
        std::string line;
        while (queue.pop(line)) answers.write(session.answer(line));
    });

    LineSplitter splitter;
    char buffer[4096];
    for (;;) {
        const ssize_t n = read(STDIN_FILENO, buffer, sizeof buffer);
        if (n <= 0) break;
        splitter.feed({buffer, static_cast<std::size_t>(n)}, [&](std::string_view line) {
            if (isEndCommand(line)) answers.endAtOnce();
            queue.push(std::string(line));
        });
    }
    queue.close();
    answering.join();
    return 0;
}

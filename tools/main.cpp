// quintline-batch: the desktop program's batch runs and a position analyser,
// headless and on all cores.

#include <unistd.h>

#include <atomic>
#include <csignal>
#include <iostream>
#include <string_view>
#include <thread>
#include <vector>

#include "batch/commands.h"
#include "harness/clock.h"

namespace {

// The one thing the Ctrl-C handler may touch. Lock-free, so setting it from
// the handler is safe.
std::atomic<bool> stopRequested{false};
static_assert(std::atomic<bool>::is_always_lock_free);

extern "C" void onInterrupt(int) {
    stopRequested.store(true);
}

// One-shot: after the first Ctrl-C the default action is back, so a second
// one ends the program at once.
void catchInterrupt() {
    struct sigaction action {};
    action.sa_handler = onInterrupt;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESETHAND | SA_RESTART;
    sigaction(SIGINT, &action, nullptr);
}

}  // namespace

int main(int argc, char** argv) {
    catchInterrupt();
    const std::vector<std::string_view> args(argv + 1, argv + argc);
    const unsigned cores = std::max(std::thread::hardware_concurrency(), 1u);
    quintline::SystemClock clock;
    quintline::batch::Environment environment{clock, stopRequested, {}};
    const quintline::batch::Console console{std::cout, std::cerr, isatty(STDERR_FILENO) == 1};
    return quintline::batch::runCommandLine(args, cores, environment, console);
}

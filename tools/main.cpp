// quintline-batch: the desktop program's batch runs and a position analyser,
// headless and on all cores, or over the ranks of an MPI run.

#include <unistd.h>

#include <atomic>
#include <csignal>
#include <iostream>
#include <optional>
#include <string_view>
#include <thread>
#include <vector>

#include "batch/commands.h"
#include "harness/clock.h"
#ifdef QUINTLINE_WITH_MPI
#include "batch/mpiLink.h"
#include "batch/otherRanks.h"
#include "batch/rankWorker.h"
#endif

namespace {

// The only things the stop handler may touch. Lock-free, so setting them
// from the handler is safe.
std::atomic<bool> stopRequested{false};
std::atomic<int> stopSignal{0};
static_assert(std::atomic<bool>::is_always_lock_free && std::atomic<int>::is_always_lock_free);

extern "C" void onStop(int signal) {
    stopSignal.store(signal);
    stopRequested.store(true);
}

// Ctrl-C, a `timeout` or a cancelled job (SIGTERM, which is also what mpirun
// sends every rank on Ctrl-C) and a closed terminal (SIGHUP) all stop a run
// the same way. One-shot: after the first the default action is back, so a
// second one of the same kind ends the program at once.
void catchStopSignals() {
    struct sigaction action {};
    action.sa_handler = onStop;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESETHAND | SA_RESTART;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaction(signal, &action, nullptr);
}

}  // namespace

int main(int argc, char** argv) {
#ifdef QUINTLINE_WITH_MPI
    quintline::batch::MpiSession mpi(argc, argv);
    catchStopSignals();
    if (mpi.rank() != 0) return mpi.end(quintline::batch::serveRankZero({}, stopRequested));
    std::optional<quintline::batch::OtherRanks> others;
    if (mpi.size() > 1) others.emplace(mpi.size());
#else
    catchStopSignals();
#endif
    const std::vector<std::string_view> args(argv + 1, argv + argc);
    const unsigned cores = std::max(std::thread::hardware_concurrency(), 1u);
    quintline::SystemClock clock;
    quintline::batch::Environment environment{clock, stopRequested, {}};
    const quintline::batch::Console console{std::cout, std::cerr, isatty(STDERR_FILENO) == 1};
#ifdef QUINTLINE_WITH_MPI
    if (others) environment.remote = &*others;
#endif
    int status = quintline::batch::runCommandLine(args, cores, environment, console);
    // As a shell reports a program ended by that signal.
    const int signal = stopSignal.load();
    if (status == quintline::batch::exitStopped && signal != 0) status = 128 + signal;
#ifdef QUINTLINE_WITH_MPI
    return mpi.end(status, !others || others->finish(status));
#else
    return status;
#endif
}

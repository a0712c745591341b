#pragma once
// The three commands of quintline-batch, each from its parsed options to the
// report, the lines on stdout and stderr, and the exit status.

#include <atomic>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "batch/arguments.h"
#include "harness/clock.h"
#include "players/searchSet.h"

namespace quintline::batch {

class RemotePlayers;

enum ExitStatus : int {
    exitDone = 0,
    exitRefused = 1,
    exitUsage = 2,
    exitStopped = 130,  // as a shell reports a program ended by SIGINT; main adds the signal's own
};

struct Console {
    std::ostream& out;
    std::ostream& err;
    bool progress = false;  // show a progress line on err (a terminal)
};

// What the commands run with besides their options. Tests put a scripted
// clock and cheaper searches here.
struct Environment {
    Clock& clock;
    const std::atomic<bool>& stop;  // set by Ctrl-C, SIGTERM or SIGHUP
    SearchSet searches{};
    std::vector<std::string> commandLine{};  // the words after the program name, kept with a run
    RemotePlayers* remote = nullptr;         // the other ranks of an MPI run
};

int tournamentCommand(const TournamentCommand& command, Environment& environment, Console console);
int testSuiteCommand(const TestSuiteCommand& command, Environment& environment, Console console);
int resumeCommand(const ResumeCommand& command, Environment& environment, Console console);
int analyseCommand(const AnalyseCommand& command, const SearchSet& searches, Console console);

// Parses the words after the program name and runs what they ask for.
int runCommandLine(std::span<const std::string_view> args, unsigned defaultJobs,
                   Environment& environment, Console console);

}  // namespace quintline::batch

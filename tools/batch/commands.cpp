#include "batch/commands.h"

#include <functional>
#include <string>

#include "batch/analyse.h"
#include "batch/batchRun.h"
#include "batch/messageLog.h"
#include "batch/progress.h"
#include "batch/runOutputs.h"
#include "batch/summaryTable.h"
#include "harness/batchMessages.h"
#include "harness/report.h"
#include "harness/reportLock.h"
#include "harness/testSuiteList.h"

namespace quintline::batch {
namespace {

void complain(std::ostream& err, std::string_view text) {
    err << programName << ": " << text << '\n';
}

BatchSettings settingsFor(unsigned jobs, const Environment& environment, const Console& console) {
    BatchSettings settings;
    settings.jobs = jobs;
    settings.searches = environment.searches;
    if (console.progress) {
        std::ostream& err = console.err;
        const auto started = std::chrono::steady_clock::now();
        settings.onProgress = [&err, started](std::size_t done, std::size_t total) {
            const std::chrono::duration<double> elapsed =
                std::chrono::steady_clock::now() - started;
            // Erase to the end of the line: the new text may be shorter.
            err << '\r' << progressLine(done, total, elapsed.count()) << "\x1b[K" << std::flush;
        };
    }
    return settings;
}

// The run's tail, the tables of what was played, the JSON summary and the
// exit status.
int finish(const BatchOutcome& outcome, Report& report, RunOutputs& outputs, RunFacts facts,
           Console console) {
    if (console.progress) console.err << '\n';
    bool broken = outcome.reportFailed;
    if (!broken && !report.close(outcome.lastPath, outcome.credits)) {
        complain(console.err, reportStopped(report.file()));
        broken = true;
    }
    if (outcome.stopped && !broken)
        complain(console.err, "stopped: " + std::to_string(outcome.lines) +
                                  " whole lines kept in " + report.file().string());
    facts.played = outcome.lines;
    facts.stoppedBy = broken               ? StopCause::report
                      : outcome.endedEarly ? StopCause::sprt
                      : outcome.stopped    ? StopCause::interrupt
                                           : StopCause::none;
    console.out << summaryTable(outputs.tally(), outputs.sprt());
    if (!outputs.writeSummary(facts)) {
        complain(console.err, reportStopped(outputs.summaryPath()));
        return exitRefused;
    }
    return broken ? exitRefused : outcome.stopped ? exitStopped : exitDone;
}

// Takes the report's lock, waiting for another run to let go of it unless
// told not to; exitDone when taken.
int lockReport(ReportLock& lock, const std::string& report, bool wait,
               const Environment& environment, Console console) {
    using enum ReportLock::Outcome;
    const ReportLock::Outcome outcome =
        wait ? lock.take(report, environment.stop,
                         [&] {
                             complain(console.err,
                                      "waiting for another run to finish with " + report);
                         })
             : lock.tryTake(report);
    switch (outcome) {
        case taken:
            return exitDone;
        case busy:
            complain(console.err, reportBusy(report));
            return exitRefused;
        case cannotOpen:
            complain(console.err, reportNotStarted(report));
            return exitRefused;
        case stopped:
            complain(console.err, "stopped while waiting: nothing written");
            return exitStopped;
    }
    return exitRefused;
}

// Opens the other outputs, takes the report's lock for the whole run, opens
// the report, plays the jobs and finishes the run. Every refusal leaves all the
// files as they were.
int playAndFinish(JobSource& jobs, const RunOptions& options, RunFacts facts,
                  Environment& environment, Console console,
                  const std::function<void()>& beforePlay = {}) {
    Report report(options.report, environment.clock);
    RunOutputs outputs(options);
    if (const auto path = outputs.prepare()) {
        complain(console.err, reportNotStarted(*path));
        return exitRefused;
    }
    ReportLock lock;
    if (const int status = lockReport(lock, options.report, options.wait, environment, console))
        return status;
    // A fresh session's boardFilePath: empty.
    if (!report.open({})) {
        complain(console.err, reportNotStarted(report.file()));
        return exitRefused;
    }
    BatchOutcome outcome;
    if (const auto path = outputs.start()) {
        complain(console.err, reportStopped(*path));
        outcome.reportFailed = true;
        return finish(outcome, report, outputs, facts, console);
    }
    if (beforePlay) beforePlay();
    BatchSettings settings = settingsFor(options.jobs, environment, console);
    MessageLog messages(console.err, console.progress);
    settings.afterLine = [&](const FinishedCycle& cycle) {
        const AfterCycle after = outputs.afterLine(cycle);
        if (after == AfterCycle::outputFailed) messages.line(reportStopped(outputs.failedPath()));
        return after;
    };
    outcome = playBatch(jobs, report, settings, environment.stop, messages);
    return finish(outcome, report, outputs, facts, console);
}

}  // namespace

int tournamentCommand(const TournamentCommand& command, Environment& environment, Console console) {
    const std::uint64_t seed = command.seed.value_or(clockSeed());
    SeededUniform uniform(seed);
    TournamentJobs jobs(command.cycles, uniform);
    const RunFacts facts{"tournament", seed, command.run.jobs, 0, StopCause::none};
    return playAndFinish(jobs, command.run, facts, environment, console, [&] {
        if (!command.seed)
            complain(console.err, "seed " + std::to_string(seed) + " (repeat with --seed " +
                                      std::to_string(seed) + ")");
    });
}

int testSuiteCommand(const TestSuiteCommand& command, Environment& environment, Console console) {
    TestSuiteList list;
    std::string fault;
    if (!list.open(command.list, fault)) {
        complain(console.err, listNotStarted(fault));
        return exitRefused;
    }
    TestSuiteJobs jobs(list);
    const RunFacts facts{"testsuite", {}, command.run.jobs, 0, StopCause::none};
    const int status = playAndFinish(jobs, command.run, facts, environment, console);
    if (status != exitDone || list.shortfall().empty()) return status;
    complain(console.err, list.shortfall());
    return exitRefused;
}

int analyseCommand(const AnalyseCommand& command, const SearchSet& searches, Console console) {
    const AnalyseOutcome outcome = analysePosition(command, searches);
    if (!outcome.analysis) {
        complain(console.err, outcome.error);
        return outcome.usageError ? exitUsage : exitRefused;
    }
    console.out << analysisLine(*outcome.analysis) << '\n';
    return exitDone;
}

int runCommandLine(std::span<const std::string_view> args, unsigned defaultJobs,
                   Environment& environment, Console console) {
    const ParsedArguments parsed = parseArguments(args, defaultJobs);
    if (!parsed.command) {
        complain(console.err, parsed.error);
        console.err << "Try '" << programName << " --help'.\n";
        return exitUsage;
    }
    struct Dispatch {
        Environment& environment;
        Console console;
        int operator()(const HelpRequest& help) const {
            console.out << help.text;
            return exitDone;
        }
        int operator()(const TournamentCommand& c) const {
            return tournamentCommand(c, environment, console);
        }
        int operator()(const TestSuiteCommand& c) const {
            return testSuiteCommand(c, environment, console);
        }
        int operator()(const AnalyseCommand& c) const {
            return analyseCommand(c, environment.searches, console);
        }
    };
    const int status = std::visit(Dispatch{environment, console}, *parsed.command);
    // Results that never reached stdout (a full disk, a closed pipe) are a failure.
    if (status == exitDone && !console.out.flush()) {
        complain(console.err, "the results could not be written to stdout");
        return exitRefused;
    }
    return status;
}

}  // namespace quintline::batch

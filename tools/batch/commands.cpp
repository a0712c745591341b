#include "batch/commands.h"

#include <ctime>
#include <filesystem>
#include <functional>
#include <sstream>
#include <string>

#include "batch/analyse.h"
#include "batch/batchRun.h"
#include "batch/messageLog.h"
#include "batch/progress.h"
#include "batch/resumeCheck.h"
#include "batch/runKeeper.h"
#include "batch/runOutputs.h"
#include "batch/runState.h"
#include "batch/summaryTable.h"
#include "harness/batchMessages.h"
#include "harness/report.h"
#include "harness/reportLock.h"
#include "harness/scheduleFile.h"
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
    settings.remote = environment.remote;
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

std::string today() {
    const std::time_t now = std::time(nullptr);
    std::tm fields{};
    localtime_r(&now, &fields);
    char text[16];
    std::strftime(text, sizeof text, "%Y-%m-%d", &fields);
    return text;
}

std::uint64_t sizeOrZero(const std::string& file) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    return error ? 0 : size;
}

// The run's sidecar before anything is written: the schedule read, or the reason it is refused.
std::optional<RunState> newRunState(const RunOptions& options, const Environment& environment,
                                    std::string& fault) {
    RunState state;
    state.command = environment.commandLine;
    state.report = options.report;
    state.options = options;
    state.date = today();
    const ScheduleRead read = options.schedule.empty() ? ScheduleRead{Schedule::fixed(), {}}
                                                       : loadSchedule(options.schedule);
    if (!read.schedule) {
        fault = read.fault;
        return std::nullopt;
    }
    for (const Pairing& pairing : *read.schedule) state.schedule.push_back(scheduleLine(pairing));
    return state;
}

Schedule scheduleOf(const RunState& state, std::string& fault) {
    std::string lines;
    for (const std::string& line : state.schedule) lines += line + '\n';
    std::istringstream in(lines);
    ScheduleRead read = parseSchedule(in, sidecarPath(state.report).string());
    if (read.schedule) return std::move(*read.schedule);
    fault = read.fault;
    return Schedule::fixed();
}

bool sprtPairFits(const SprtOptions& sprt, const Schedule& schedule) {
    const std::size_t first = 2 * static_cast<std::size_t>(sprt.pair - 1);
    return first + 1 < schedule.size() && swapsColours(schedule[first], schedule[first + 1]);
}

// The run's tail, the tables of what was played, the JSON summary, the
// sidecar and the exit status. The sidecar goes once the block is complete,
// an SPRT stop included; after a stop or a failed write it stays for resume.
int finish(const BatchOutcome& outcome, Report& report, RunOutputs& outputs, RunKeeper& keeper,
           RunFacts facts, Console console, MessageLog& messages) {
    if (console.progress) console.err << '\n';
    bool broken = outcome.reportFailed;
    if (!broken && !report.close(outcome.lastPath, outcome.credits)) {
        complain(console.err, reportStopped(report.file()));
        broken = true;
    }
    if (broken || outcome.stopped) {
        keeper.save(messages);
    } else {
        std::error_code ignored;
        std::filesystem::remove(sidecarPath(report.file()), ignored);
    }
    if (outcome.stopped && !broken)
        complain(console.err, "stopped: " + std::to_string(outcome.lines) +
                                  " whole lines kept in " + report.file().string() +
                                  " (continue with: " + std::string(programName) +
                                  " resume --report " + report.file().string() + ")");
    facts.played = outcome.lines;
    facts.stoppedBy = broken               ? StopCause::report
                      : outcome.rankLost   ? StopCause::rank
                      : outcome.endedEarly ? StopCause::sprt
                      : outcome.stopped    ? StopCause::interrupt
                                           : StopCause::none;
    console.out << summaryTable(outputs.tally(), outputs.sprt());
    if (!outputs.writeSummary(facts)) {
        complain(console.err, reportStopped(outputs.summaryPath()));
        return exitRefused;
    }
    return broken || outcome.rankLost ? exitRefused : outcome.stopped ? exitStopped : exitDone;
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

// The first fault of the block's inputs, `fault` when it holds one already:
// the list, the SPRT pair and, when resuming, the report and the outputs the
// interrupted part left. Empty when all of them will do.
std::string inputFault(const RunState& state, bool resuming, const Schedule& schedule,
                       TestSuiteList& list, std::string fault) {
    if (fault.empty() && !state.tournament && !list.open(state.list, fault))
        fault = listNotStarted(fault);
    if (fault.empty() && state.options.sprt && !sprtPairFits(*state.options.sprt, schedule))
        fault = "--sprt " + std::to_string(state.options.sprt->pair) + ": pairings " +
                std::to_string(2 * state.options.sprt->pair - 1) + " and " +
                std::to_string(2 * state.options.sprt->pair) +
                " of the schedule are not the same players with the colours swapped";
    if (!fault.empty() || !resuming) return fault;
    fault = reportFault(state, schedule.size(), schedule.header());
    if (fault.empty() && sizeOrZero(state.options.sgf) < state.sgfSize)
        fault = state.options.sgf + " is shorter than the run left it; nothing resumed";
    if (fault.empty() && sizeOrZero(state.options.gamesCsv) < state.csvSize)
        fault = state.options.gamesCsv + " is shorter than the run left it; nothing resumed";
    return fault;
}

// Resuming, cuts what the interrupted part left behind its last counted line
// and takes up its counts; else starts the report and notes where each output
// begins. False, with the reason said, when that fails.
bool startBlock(RunState& state, bool resuming, const Schedule& schedule, Report& report,
                RunOutputs& outputs, Console console) {
    if (resuming) {
        std::error_code error;
        std::filesystem::resize_file(state.report, state.reportSize, error);
        // An SGF collection is made by the first game it gets.
        if (!error && std::filesystem::exists(state.options.sgf))
            std::filesystem::resize_file(state.options.sgf, state.sgfSize, error);
        if (error) {
            complain(console.err, "can not cut the interrupted part: " + error.message());
            return false;
        }
        outputs.restore(state.tally);
        report.resume(static_cast<float>(state.usedSeconds));
        return true;
    }
    state.reportSizeBefore = sizeOrZero(state.report);
    // A fresh session's boardFilePath: empty.
    if (!report.open({}, schedule.header())) {
        complain(console.err, reportNotStarted(report.file()));
        return false;
    }
    state.reportSize = sizeOrZero(state.report);
    state.sgfSize = sizeOrZero(state.options.sgf);
    state.credits.assign(schedule.size(), 0);
    state.tally = outputs.tally().counts();
    return true;
}

// Plays the block that `state` describes, from its start or, when resuming,
// from where it stopped: checks every input first, then appends to the report
// and keeps the records, the other outputs and the sidecar.
int playBlock(RunState& state, bool resuming, unsigned jobCount, Environment& environment,
              Console console) {
    std::string fault;
    const Schedule schedule = scheduleOf(state, fault);
    TestSuiteList list;
    fault = inputFault(state, resuming, schedule, list, std::move(fault));
    RunOutputs outputs(state.options, schedule.pairings());
    RunKeeper keeper(state, schedule, outputs);
    if (fault.empty())
        if (const auto path = outputs.prepare(resuming)) fault = reportNotStarted(*path);
    if (!fault.empty()) {
        complain(console.err, fault);
        return exitRefused;
    }
    ReportLock lock;
    if (const int status = lockReport(lock, state.report, state.options.wait, environment, console))
        return status;
    if (!keeper.prepare(fault)) {
        complain(console.err, fault);
        return exitRefused;
    }
    Report report(state.report, environment.clock);
    MessageLog messages(console.err, console.progress);
    const RunFacts facts{state.tournament ? "tournament" : "testsuite",
                         state.tournament ? std::optional(state.seed) : std::nullopt, jobCount, 0,
                         StopCause::none};
    if (!startBlock(state, resuming, schedule, report, outputs, console)) return exitRefused;
    BatchOutcome outcome{state.lines, state.passed, state.credits, state.lastPath};
    if (const auto path = outputs.start(resuming ? state.csvSize : 0)) {
        complain(console.err, reportStopped(*path));
        outcome.reportFailed = true;
        return finish(outcome, report, outputs, keeper, facts, console, messages);
    }
    if (!resuming) state.csvSize = sizeOrZero(state.options.gamesCsv);  // its header row
    keeper.save(messages);

    SeededUniform uniform(state.seed);
    std::unique_ptr<JobSource> jobs;
    const int first = static_cast<int>(state.passed) + 1;
    if (state.tournament)
        jobs = std::make_unique<TournamentJobs>(state.cycles, uniform, first);
    else
        jobs = std::make_unique<TestSuiteJobs>(list, first);
    BatchSettings settings = settingsFor(jobCount, environment, console);
    settings.schedule = &schedule;
    settings.afterLine = [&](const FinishedCycle& cycle) {
        const AfterCycle after = outputs.afterLine(cycle);
        if (after == AfterCycle::outputFailed) messages.line(reportStopped(outputs.failedPath()));
        return after;
    };
    outcome = playBatch(*jobs, report, settings, environment.stop, messages, &keeper, outcome);
    const int status = finish(outcome, report, outputs, keeper, facts, console, messages);
    if (status != exitDone || state.tournament || list.shortfall().empty()) return status;
    complain(console.err, list.shortfall());
    return exitRefused;
}

}  // namespace

namespace {

// Plays a new block of `run`, once `describe` has added what the command knows.
int playNewBlock(const RunOptions& run, const std::function<void(RunState&)>& describe,
                 Environment& environment, Console console) {
    std::string fault;
    std::optional<RunState> state = newRunState(run, environment, fault);
    if (!state) {
        complain(console.err, fault);
        return exitRefused;
    }
    describe(*state);
    return playBlock(*state, false, run.jobs, environment, console);
}

}  // namespace

int tournamentCommand(const TournamentCommand& command, Environment& environment, Console console) {
    return playNewBlock(
        command.run,
        [&](RunState& state) {
            state.cycles = command.cycles;
            state.seed = command.seed.value_or(clockSeed());
            if (!command.seed)
                complain(console.err, "seed " + std::to_string(state.seed) +
                                          " (repeat with --seed " + std::to_string(state.seed) +
                                          ")");
        },
        environment, console);
}

int testSuiteCommand(const TestSuiteCommand& command, Environment& environment, Console console) {
    return playNewBlock(
        command.run,
        [&](RunState& state) {
            state.tournament = false;
            state.list = command.list;
        },
        environment, console);
}

int resumeCommand(const ResumeCommand& command, Environment& environment, Console console) {
    std::string fault;
    std::optional<RunState> state = loadRunState(command.report, fault);
    if (!state) {
        complain(console.err, fault);
        return exitRefused;
    }
    return playBlock(*state, true, command.jobs, environment, console);
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
    environment.commandLine.assign(args.begin(), args.end());
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
        int operator()(const ResumeCommand& c) const {
            return resumeCommand(c, environment, console);
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

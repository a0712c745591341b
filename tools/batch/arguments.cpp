#include "batch/arguments.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <cmath>
#include <sstream>
#include <utility>
#include <vector>

#include "harness/schedule.h"

namespace quintline::batch {
namespace {

constexpr const char* programText =
    R"(Plays Quintline's batches without a window, on several cores, and appends the
same block to the report as the desktop program's menu Testsuit does.

  quintline-batch tournament --cycles N [--seed S] [run options]
  quintline-batch testsuite [--list PATH] [run options]
  quintline-batch resume [--report PATH] [--jobs J]
  quintline-batch analyse BOARDFILE --kind K --depth D [--black K1 --white K2]
  quintline-batch COMMAND --help      the options of one command
)";

constexpr const char* tournamentText =
    R"(N cycles, each a random six-stone opening
played through the fourteen pairings, or
through those of --schedule FILE.
--seed S repeats a run's openings; without it
the seed comes from the clock and is printed on
stderr. The openings do not depend on --jobs.)";

constexpr const char* testSuiteText =
    R"(The fourteen pairings, or those of --schedule
FILE, from each board file named in the list (a count, then one path per
line; paths are taken relative to the current
directory). A board file that is refused is
reported on stderr and skipped.)";

constexpr const char* resumeText =
    R"(Continues the unfinished tournament or test
suite that PATH.run.json describes, after Ctrl-C,
a signal, a crash or a full disk: cuts a torn
last line and what the stop wrote, plays the
missing cycles or entries and ends the block as
the run never interrupted would have.)";

constexpr const char* analyseText =
    R"(Replays all moves of BOARDFILE and runs the
search of player kind K at depth D for the side
to move. Prints "x y value" for kinds 1 and 2,
"x y ownScore modelScore" for kinds 3 and 4;
"0 0" when the search leaves no point. For kinds
3 and 4 the side to move plays K and the other
side the other family's plain kind (3 against 2,
4 against 1); --black and --white set the kinds
of the two colours instead.)";

constexpr const char* runText =
    R"(The report is byte for byte what --jobs 1 writes, apart from the times: game
lines are appended in cycle or entry order, each as soon as it and all before
it are complete. While stderr is a terminal, progress is shown there. At the
end tables on stdout give, for each pairing, the A family's wins, draws and
losses, credits with their 95% Wilson interval, Elo difference and likelihood
of superiority; and for each colour-swapped pair of pairings the pentanomial
counts of its game pairs with Elo, normalized Elo and likelihood of
superiority. --games-csv and --summary-json write the same per game and as
JSON. With --sprt the run stops as soon as the test on that pair decides.

--schedule FILE plays the pairings of FILE instead of the fourteen fixed ones
(schedules/default.txt lists those and describes the format). --games DIR
keeps every game as a board file that the desktop program reads and replays:
cCCCCCC-pPP.txt for cycle C, pairing P of a tournament, eEEEE-pPP.txt for
entry E of a test suite. --sgf PATH appends every game to one SGF collection.
Records are written as each cycle or entry finishes, in order, whatever --jobs.

Before its first game a run writes PATH.run.json beside its report PATH and
keeps it up to date; it is removed once the block is complete. While it is
there, "quintline-batch resume --report PATH" continues the run.

Ctrl-C, SIGTERM and SIGHUP stop the run: no new cycle or entry starts, each
thread finishes the game it is playing and leaves the rest of its cycle or
entry unplayed. The report keeps the whole lines of the cycles or entries that
finished without a gap before them (the lines a shorter run with the same seed
would write), and its summary, end and used lines count just those; the tables
on stdout do too. A second signal of the same kind ends the program at once, leaving only
whole lines. One run at a time appends to a report: a second one waits for the
first to finish, or with --no-wait is refused.

Built with QUINTLINE_WITH_MPI and started by mpirun (or srun), a run uses
every rank: rank 0 writes every output as above, the other ranks play the
cycles or entries it hands out on --jobs threads each.

Exit status: 0 done (an SPRT stop included), 1 an input refused (nothing
written to the report), 2 a usage error, 128 + the signal's number when
stopped by one (130 for Ctrl-C). A test-suite list with fewer entries than its
count is played as far as it goes, and the run then ends with status 1.
)";

// A decimal whole number from low to high, rewritten in the plain form the
// library converts (it would take "010" as octal and "-1" as the largest
// unsigned value).
template <typename T>
CLI::Validator wholeNumber(T low, T high) {
    const std::string range = "from " + std::to_string(low) + " to " + std::to_string(high);
    return CLI::Validator(
        [=](std::string& text) -> std::string {
            T value{};
            const auto [end, error] =
                std::from_chars(text.data(), text.data() + text.size(), value);
            if (text.empty() || error != std::errc{} || end != text.data() + text.size() ||
                value < low || value > high)
                return "takes a whole number " + range + ", not '" + text + "'";
            text = std::to_string(value);
            return {};
        },
        "");
}

// A decimal number inside low..high, or strictly inside when `open`.
CLI::Validator realNumber(double low, double high, bool open) {
    std::ostringstream range;
    range << (open ? "above " : "from ") << low << (open ? " and below " : " to ") << high;
    return CLI::Validator(
        [=, range = range.str()](std::string& text) -> std::string {
            double value = 0.0;
            const auto [end, error] =
                std::from_chars(text.data(), text.data() + text.size(), value);
            const bool inside = open ? value > low && value < high : value >= low && value <= high;
            if (text.empty() || error != std::errc{} || end != text.data() + text.size() ||
                !std::isfinite(value) || !inside)
                return "takes a number " + range + ", not '" + text + "'";
            return {};
        },
        "");
}

constexpr const char* analyseFooter =
    "Exit status: 0 done, 1 the board file refused, 2 a usage error.\n";

// The library's layout with a blank line between a command's description and
// its usage line.
class HelpLayout : public CLI::Formatter {
  public:
    std::string make_description(const CLI::App* app) const override {
        return CLI::Formatter::make_description(app) + "\n";
    }
};

// The options tournament and testsuite share. A new shared option is
// registered here and checked in checkRunOptions.
void addRunOptions(CLI::App& command, RunOptions& run, SprtOptions& sprt) {
    command.add_option("--jobs", run.jobs, "games run on J threads, 1 to 256 (default: all cores)")
        ->type_name("J")
        ->transform(wholeNumber(1u, maxJobs));
    command.add_option("--report", run.report, "the report file, appended to (default result.txt)")
        ->type_name("PATH");
    command.add_flag("!--no-wait", run.wait,
                     "refuse to start while another run appends to the report, instead of "
                     "waiting for it to finish");
    command.add_option("--games-csv", run.gamesCsv, "one row per game, in report order")
        ->type_name("PATH");
    command
        .add_option("--summary-json", run.summaryJson, "the tables on stdout as one JSON object")
        ->type_name("PATH");
    command
        .add_option("--schedule", run.schedule,
                    "the pairings to play, one a line\n(default: the fourteen fixed ones)")
        ->type_name("FILE");
    command.add_option("--games", run.games, "every game as a board file in DIR")->type_name("DIR");
    command.add_option("--sgf", run.sgf, "every game in one SGF collection, appended to")
        ->type_name("PATH");
    CLI::Option* pair =
        command
            .add_option(
                "--sprt", sprt.pair,
                "stop once the SPRT on colour-swapped pair PAIR,\n1 to 32 (pairings 2 PAIR - 1 "
                "and 2 PAIR), decides")
            ->type_name("PAIR")
            ->transform(wholeNumber(1, static_cast<int>(maxPairings / 2)));
    const CLI::Validator elo = realNumber(-maxElo, maxElo, false);
    CLI::Option* elo0 =
        command.add_option("--elo0", sprt.elo0, "Elo difference of H0, -1000 to 1000")
            ->type_name("E0")
            ->check(elo);
    CLI::Option* elo1 = command.add_option("--elo1", sprt.elo1, "Elo difference of H1, above E0")
                            ->type_name("E1")
                            ->check(elo);
    const CLI::Validator error = realNumber(0.0, 0.5, true);
    CLI::Option* alpha =
        command.add_option("--alpha", sprt.alpha, "false H1 rate, below 0.5 (default 0.05)")
            ->type_name("A")
            ->check(error);
    CLI::Option* beta =
        command.add_option("--beta", sprt.beta, "false H0 rate, below 0.5 (default 0.05)")
            ->type_name("B")
            ->check(error);
    pair->needs(elo0)->needs(elo1);
    for (CLI::Option* option : {elo0, elo1, alpha, beta}) option->needs(pair);
}

// Fills what the parser cannot; empty when the options fit together.
std::string checkRunOptions(const CLI::App& command, RunOptions& run, const SprtOptions& sprt) {
    if (command.count("--sprt") == 0) return {};
    if (!(sprt.elo0 < sprt.elo1)) return "--elo0 must be below --elo1";
    run.sprt = sprt;
    return {};
}

CLI::App* addTournament(CLI::App& app, TournamentCommand& command, SprtOptions& sprt) {
    CLI::App* sub = app.add_subcommand("tournament", tournamentText);
    sub->add_option("--cycles", command.cycles, "the number of cycles, 1 to 32767")
        ->type_name("N")
        ->required()
        ->transform(wholeNumber(1, maxCycles));
    sub->add_option("--seed", command.seed.emplace(),
                    "the openings' seed, 0 to 2^64-1 (default: the clock)")
        ->type_name("S")
        ->transform(wholeNumber<std::uint64_t>(0, UINT64_MAX));
    addRunOptions(*sub, command.run, sprt);
    return sub;
}

CLI::App* addTestSuite(CLI::App& app, TestSuiteCommand& command, SprtOptions& sprt) {
    CLI::App* sub = app.add_subcommand("testsuite", testSuiteText);
    sub->add_option("--list", command.list, "the list of board files (default testsuit.txt)")
        ->type_name("PATH");
    addRunOptions(*sub, command.run, sprt);
    return sub;
}

CLI::App* addResume(CLI::App& app, ResumeCommand& command) {
    CLI::App* sub = app.add_subcommand("resume", resumeText);
    sub->add_option("--report", command.report,
                    "the report of the run to continue (default result.txt)")
        ->type_name("PATH");
    sub->add_option("--jobs", command.jobs, "games run on J threads, 1 to 256 (default: all cores)")
        ->type_name("J")
        ->transform(wholeNumber(1u, maxJobs));
    return sub;
}

CLI::App* addAnalyse(CLI::App& app, AnalyseCommand& command) {
    CLI::App* sub = app.add_subcommand("analyse", analyseText);
    sub->footer(analyseFooter);
    sub->add_option("BOARDFILE", command.boardFile, "the saved position")->required();
    sub->add_option("--kind", command.kind,
                    "1 Computer A, 2 Computer B, 3 A knowing B,\n4 B knowing A")
        ->type_name("K")
        ->required()
        ->transform(wholeNumber<PlayerKind>(computerA, bKnowsA));
    sub->add_option("--depth", command.depth, "the search depth, 0 to 8")
        ->type_name("D")
        ->required()
        ->transform(wholeNumber<std::int16_t>(0, maxDepth));
    const CLI::Validator side = wholeNumber<PlayerKind>(userKind, bKnowsA);
    sub->add_option("--black", command.black.emplace(), "the kind black plays, 0 (a user) to 4")
        ->type_name("K1")
        ->transform(side);
    sub->add_option("--white", command.white.emplace(), "the kind white plays, 0 (a user) to 4")
        ->type_name("K2")
        ->transform(side);
    return sub;
}

// Drops the optional values whose options were not given.
template <typename T>
void keepIfGiven(const CLI::App& command, const char* name, std::optional<T>& value) {
    if (command.count(name) == 0) value.reset();
}

}  // namespace

ParsedArguments parseArguments(std::span<const std::string_view> args, unsigned defaultJobs) {
    if (args.empty()) return {{}, "no command given"};

    CLI::App app(programText, std::string(programName));
    app.formatter(std::make_shared<HelpLayout>());
    app.get_formatter()->column_width(24);
    app.footer(runText);
    app.require_subcommand(1);

    TournamentCommand tournament;
    TestSuiteCommand testSuite;
    ResumeCommand resume;
    AnalyseCommand analyse;
    tournament.run.jobs = testSuite.run.jobs = resume.jobs = defaultJobs;
    SprtOptions tournamentSprt, testSuiteSprt;
    CLI::App* tournamentApp = addTournament(app, tournament, tournamentSprt);
    CLI::App* testSuiteApp = addTestSuite(app, testSuite, testSuiteSprt);
    CLI::App* resumeApp = addResume(app, resume);
    CLI::App* analyseApp = addAnalyse(app, analyse);

    const std::string first(args.front());
    const auto named = [&](const CLI::App* sub) { return sub->check_name(first); };
    const bool isCommand = !std::as_const(app).get_subcommands(named).empty();
    // Help wins over anything else on the line, a bad value included.
    for (std::string_view arg : args)
        if (arg == "--help" || arg == "-h") {
            if (!isCommand) return {HelpRequest{app.help()}, {}};
            return {HelpRequest{app.get_subcommand(first)->help(app.get_name())}, {}};
        }

    if (!first.starts_with('-') && !isCommand) return {{}, "unknown command '" + first + "'"};

    // The library takes the words last first.
    std::vector<std::string> words(args.rbegin(), args.rend());
    try {
        app.parse(words);
    } catch (const CLI::ParseError& error) {
        return {{}, error.what()};
    }

    ParsedArguments parsed;
    if (tournamentApp->parsed()) {
        keepIfGiven(*tournamentApp, "--seed", tournament.seed);
        parsed.error = checkRunOptions(*tournamentApp, tournament.run, tournamentSprt);
        parsed.command = tournament;
    } else if (testSuiteApp->parsed()) {
        parsed.error = checkRunOptions(*testSuiteApp, testSuite.run, testSuiteSprt);
        parsed.command = testSuite;
    } else if (resumeApp->parsed()) {
        parsed.command = resume;
    } else if (analyseApp->parsed()) {
        keepIfGiven(*analyseApp, "--black", analyse.black);
        keepIfGiven(*analyseApp, "--white", analyse.white);
        parsed.command = analyse;
    }
    if (!parsed.error.empty()) parsed.command.reset();
    return parsed;
}

}  // namespace quintline::batch

#include "batch/arguments.h"

#include <charconv>
#include <map>
#include <vector>

namespace quintline::batch {
namespace {

constexpr std::string_view help =
    R"(Usage:
  quintline-batch tournament --cycles N [--seed S] [--jobs J] [--report PATH] [--no-wait]
  quintline-batch testsuite [--list PATH] [--jobs J] [--report PATH] [--no-wait]
  quintline-batch analyse BOARDFILE --kind K --depth D [--black K1 --white K2]
  quintline-batch --help

Plays Quintline's batches without a window, on several cores, and appends the
same block to the report as the desktop program's menu Testsuit does.

tournament   N cycles (1 to 32767), each a random six-stone opening played
             through the fourteen pairings. --seed S (0 to 2^64-1) repeats a
             run's openings; without it the seed comes from the clock and is
             printed on stderr. The openings do not depend on --jobs.
testsuite    The fourteen pairings from each board file named in the list
             (default testsuit.txt: a count, then one path per line; paths
             are taken relative to the current directory). A board file that
             is refused is reported on stderr and skipped.
analyse      Replays all moves of BOARDFILE and runs the search of player
             kind K (1 Computer A, 2 Computer B, 3 A knowing B, 4 B knowing
             A) at depth D (0 to 8) for the side to move. Prints "x y value"
             for kinds 1 and 2, "x y ownScore modelScore" for kinds 3 and 4;
             "0 0" when the search leaves no point. For kinds 3 and 4 the side
             to move plays K and the other side the other family's plain kind
             (3 against 2, 4 against 1); --black and --white (0 to 4) set the
             kinds of the two colours instead.

Options:
  --jobs J     games run on J threads (1 to 256; default: all cores)
  --report P   the report file (default result.txt), appended to
  --no-wait    refuse to start while another run appends to the report,
               instead of waiting for it to finish

The report is byte for byte what --jobs 1 writes, apart from the times: game
lines are appended in cycle or entry order, each as soon as it and all before
it are complete. While stderr is a terminal, progress is shown there. At the
end a table on stdout gives, for each pairing and each colour-swapped pair of
pairings, the A family's share of the games with its 95% Wilson interval.

Ctrl-C, SIGTERM and SIGHUP stop the run: no new cycle or entry starts, each
thread finishes the game it is playing and leaves the rest of its cycle or
entry unplayed. The report keeps the whole lines of the cycles or entries that finished without a
gap before them (the lines a shorter run with the same seed would write), and
its summary, end and used lines count just those; the table on stdout does
too. A second signal of the same kind ends the program at once, leaving only
whole lines. One run at a time appends to a report: a second one waits for the
first to finish, or with --no-wait is refused.

Exit status: 0 done, 1 an input refused (nothing written to the report),
2 a usage error, 128 + the signal's number when stopped by one (130 for
Ctrl-C). A test-suite list with fewer entries than its count is played as far
as it goes, and the run then ends with status 1.
)";

constexpr std::string_view noWaitFlag = "--no-wait";

template <typename T>
std::optional<T> wholeNumber(std::string_view text, T low, T high) {
    T value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc{} || end != text.data() + text.size()) return {};
    if (value < low || value > high) return {};
    return value;
}

// The options of one command line, each given once, plus the words that are
// no option.
struct Words {
    std::map<std::string, std::string, std::less<>> options;
    std::vector<std::string> positional;
};

std::optional<Words> splitWords(std::span<const std::string_view> args,
                                std::span<const std::string_view> known, std::string& error) {
    Words words;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string_view arg = args[i];
        if (!arg.starts_with("--")) {
            words.positional.emplace_back(arg);
            continue;
        }
        std::string_view name = arg;
        std::optional<std::string_view> value;
        if (const auto eq = arg.find('='); eq != std::string_view::npos) {
            name = arg.substr(0, eq);
            value = arg.substr(eq + 1);
        }
        bool isKnown = false;
        for (std::string_view k : known) isKnown = isKnown || k == name;
        if (!isKnown) {
            error = "unknown option " + std::string(name);
            return {};
        }
        if (name == noWaitFlag) {  // the one option without a value
            if (value) {
                error = "option " + std::string(name) + " takes no value";
                return {};
            }
            value = "";
        }
        if (!value) {
            if (i + 1 >= args.size()) {
                error = "option " + std::string(name) + " needs a value";
                return {};
            }
            value = args[++i];
        }
        if (!words.options.emplace(std::string(name), std::string(*value)).second) {
            error = "option " + std::string(name) + " given twice";
            return {};
        }
    }
    return words;
}

class OptionReader {
  public:
    explicit OptionReader(const Words& words) : words_(words) {}

    const std::string* find(std::string_view name) const {
        const auto it = words_.options.find(name);
        return it == words_.options.end() ? nullptr : &it->second;
    }

    template <typename T>
    bool number(std::string_view name, T low, T high, std::optional<T>& out, std::string& error) {
        const std::string* text = find(name);
        if (!text) return true;
        out = wholeNumber<T>(*text, low, high);
        if (!out) {
            error = "option " + std::string(name) + " takes a whole number from " +
                    std::to_string(low) + " to " + std::to_string(high) + ", not '" + *text + "'";
            return false;
        }
        return true;
    }

  private:
    const Words& words_;
};

bool noPositional(const Words& words, std::string& error) {
    if (words.positional.empty()) return true;
    error = "unexpected argument '" + words.positional.front() + "'";
    return false;
}

std::optional<Command> tournament(std::span<const std::string_view> rest, unsigned defaultJobs,
                                  std::string& error) {
    constexpr std::string_view known[] = {"--cycles", "--seed", "--jobs", "--report", noWaitFlag};
    const auto words = splitWords(rest, known, error);
    if (!words || !noPositional(*words, error)) return {};
    OptionReader options(*words);
    TournamentCommand command;
    std::optional<int> cycles;
    std::optional<unsigned> jobs;
    if (!options.number("--cycles", 1, maxCycles, cycles, error) ||
        !options.number<std::uint64_t>("--seed", 0, UINT64_MAX, command.seed, error) ||
        !options.number("--jobs", 1u, maxJobs, jobs, error))
        return {};
    if (!cycles) {
        error = "tournament needs --cycles N";
        return {};
    }
    command.cycles = *cycles;
    command.jobs = jobs.value_or(defaultJobs);
    command.wait = !options.find(noWaitFlag);
    if (const std::string* report = options.find("--report")) command.report = *report;
    return command;
}

std::optional<Command> testSuite(std::span<const std::string_view> rest, unsigned defaultJobs,
                                 std::string& error) {
    constexpr std::string_view known[] = {"--list", "--jobs", "--report", noWaitFlag};
    const auto words = splitWords(rest, known, error);
    if (!words || !noPositional(*words, error)) return {};
    OptionReader options(*words);
    TestSuiteCommand command;
    std::optional<unsigned> jobs;
    if (!options.number("--jobs", 1u, maxJobs, jobs, error)) return {};
    command.jobs = jobs.value_or(defaultJobs);
    command.wait = !options.find(noWaitFlag);
    if (const std::string* list = options.find("--list")) command.list = *list;
    if (const std::string* report = options.find("--report")) command.report = *report;
    return command;
}

std::optional<Command> analyse(std::span<const std::string_view> rest, std::string& error) {
    constexpr std::string_view known[] = {"--kind", "--depth", "--black", "--white"};
    const auto words = splitWords(rest, known, error);
    if (!words) return {};
    if (words->positional.size() != 1) {
        error = words->positional.empty() ? "analyse needs a board file"
                                          : "analyse takes one board file, not " +
                                                std::to_string(words->positional.size());
        return {};
    }
    OptionReader options(*words);
    AnalyseCommand command;
    command.boardFile = words->positional.front();
    std::optional<PlayerKind> kind;
    std::optional<std::int16_t> depth;
    if (!options.number<PlayerKind>("--kind", computerA, bKnowsA, kind, error) ||
        !options.number<std::int16_t>("--depth", 0, maxDepth, depth, error) ||
        !options.number<PlayerKind>("--black", userKind, bKnowsA, command.black, error) ||
        !options.number<PlayerKind>("--white", userKind, bKnowsA, command.white, error))
        return {};
    if (!kind || !depth) {
        error = "analyse needs --kind K and --depth D";
        return {};
    }
    command.kind = *kind;
    command.depth = *depth;
    return command;
}

}  // namespace

ParsedArguments parseArguments(std::span<const std::string_view> args, unsigned defaultJobs) {
    for (std::string_view arg : args)
        if (arg == "--help" || arg == "-h") return {HelpRequest{}, {}};
    if (args.empty()) return {{}, "no command given"};

    const std::string_view name = args.front();
    const auto rest = args.subspan(1);
    ParsedArguments parsed;
    if (name == "tournament")
        parsed.command = tournament(rest, defaultJobs, parsed.error);
    else if (name == "testsuite")
        parsed.command = testSuite(rest, defaultJobs, parsed.error);
    else if (name == "analyse")
        parsed.command = analyse(rest, parsed.error);
    else
        parsed.error = "unknown command '" + std::string(name) + "'";
    return parsed;
}

std::string_view helpText() {
    return help;
}

}  // namespace quintline::batch

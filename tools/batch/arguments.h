#pragma once
// The command line of quintline-batch: three commands and their options,
// parsed into plain records. Parsing never touches a file.

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "position/types.h"

namespace quintline::batch {

inline constexpr std::string_view programName = "quintline-batch";

// The help of the program or of one command, to be printed on stdout.
struct HelpRequest {
    std::string text;
};

// A sequential test on one colour-swapped pair of pairings: the run stops
// once its log-likelihood ratio leaves the bounds set by alpha and beta.
struct SprtOptions {
    int pair = 1;  // 1 for pairings 1 and 2, 2 for 3 and 4, ...
    double elo0 = 0.0;
    double elo1 = 0.0;
    double alpha = 0.05;
    double beta = 0.05;
};

// What tournament and testsuite share: threads, the pairings, the files
// written and when to stop early. Files: none when empty.
struct RunOptions {
    unsigned jobs = 1;
    std::string report = "result.txt";
    std::string gamesCsv;     // none when empty
    std::string summaryJson;  // none when empty
    std::optional<SprtOptions> sprt;
    std::string schedule;  // a schedule file to play instead of the fourteen fixed pairings
    std::string games;     // a folder that gets every game as a board file
    std::string sgf;       // an SGF collection that gets every game
    bool wait = true;      // for another run that holds the report; refused with --no-wait
};

struct TournamentCommand {
    int cycles = 0;
    std::optional<std::uint64_t> seed;  // from the clock when missing
    RunOptions run;
};

struct TestSuiteCommand {
    std::string list = "testsuit.txt";
    RunOptions run;
};

// Continues the unfinished run that the report's sidecar describes.
struct ResumeCommand {
    std::string report = "result.txt";
    unsigned jobs = 1;
};

struct AnalyseCommand {
    std::string boardFile;
    PlayerKind kind = computerA;
    std::int16_t depth = 0;
    std::optional<PlayerKind> black;  // defaults depend on the position
    std::optional<PlayerKind> white;
};

using Command =
    std::variant<HelpRequest, TournamentCommand, TestSuiteCommand, ResumeCommand, AnalyseCommand>;

// The largest values the options take: the run's counters are 16-bit, and a
// deeper search than the suggestion's could overflow its scaled values.
inline constexpr int maxCycles = 32767;
inline constexpr unsigned maxJobs = 256;
inline constexpr std::int16_t maxDepth = 8;
// Beyond this an Elo difference is a score within 0.3% of 0 or 1.
inline constexpr double maxElo = 1000.0;

struct ParsedArguments {
    std::optional<Command> command;  // empty on a usage error
    std::string error;               // what was wrong, for stderr
};

// args excludes the program name; defaultJobs fills a missing --jobs.
ParsedArguments parseArguments(std::span<const std::string_view> args, unsigned defaultJobs);

}  // namespace quintline::batch

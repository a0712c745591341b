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

struct HelpRequest {};

// What tournaments and test suites play besides the fixed pairings, and keep
// besides the report. Empty: not asked for.
struct RunOptions {
    std::string schedule;  // a schedule file to play instead of the fourteen fixed pairings
    std::string games;     // a folder that gets every game as a board file
    std::string sgf;       // an SGF collection that gets every game
};

struct TournamentCommand {
    int cycles = 0;
    std::optional<std::uint64_t> seed;  // from the clock when missing
    unsigned jobs = 1;
    std::string report = "result.txt";
    RunOptions options;
};

struct TestSuiteCommand {
    std::string list = "testsuit.txt";
    unsigned jobs = 1;
    std::string report = "result.txt";
    RunOptions options;
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

using Command = std::variant<HelpRequest, TournamentCommand, TestSuiteCommand, ResumeCommand,
                             AnalyseCommand>;

// The largest values the options take: the run's counters are 16-bit, and a
// deeper search than the suggestion's could overflow its scaled values.
inline constexpr int maxCycles = 32767;
inline constexpr unsigned maxJobs = 256;
inline constexpr std::int16_t maxDepth = 8;

struct ParsedArguments {
    std::optional<Command> command;  // empty on a usage error
    std::string error;               // what was wrong, for stderr
};

// args excludes the program name; defaultJobs fills a missing --jobs.
ParsedArguments parseArguments(std::span<const std::string_view> args, unsigned defaultJobs);

std::string_view helpText();

}  // namespace quintline::batch

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

struct TournamentCommand {
    int cycles = 0;
    std::optional<std::uint64_t> seed;  // from the clock when missing
    unsigned jobs = 1;
    std::string report = "result.txt";
    bool wait = true;  // for another run that holds the report; refused with --no-wait
};

struct TestSuiteCommand {
    std::string list = "testsuit.txt";
    unsigned jobs = 1;
    std::string report = "result.txt";
    bool wait = true;
};

struct AnalyseCommand {
    std::string boardFile;
    PlayerKind kind = computerA;
    std::int16_t depth = 0;
    std::optional<PlayerKind> black;  // defaults depend on the position
    std::optional<PlayerKind> white;
};

using Command = std::variant<HelpRequest, TournamentCommand, TestSuiteCommand, AnalyseCommand>;

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

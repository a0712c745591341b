#pragma once
// The sidecar "PATH.run.json" of a tournament or test-suite run that reports
// to PATH: what the run was started with and how far its block has come, so
// that `resume` can continue it after a stop, a crash or a full disk. Written
// before the first game and after each cycle or entry (whole or not at all),
// and removed once the block is complete.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "batch/arguments.h"
#include "batch/runTally.h"

namespace quintline::batch {

struct RunState {
    // Started with.
    std::vector<std::string> command;  // the words after the program name
    bool tournament = true;
    int cycles = 0;
    std::uint64_t seed = 0;             // tournaments only
    std::string list;                   // test suites only
    std::vector<std::string> schedule;  // the pairings, one schedule-file line each
    std::string report;
    RunOptions options;
    std::string date;  // of the start, YYYY-MM-DD; the records carry it

    // How far the block has come: the report's size before the run and after
    // its last whole game line, the game lines and the cycles or entries
    // passed in order (refused entries included), and what the summary needs.
    std::uint64_t reportSizeBefore = 0;
    std::uint64_t reportSize = 0;
    std::uint64_t sgfSize = 0;
    std::uint64_t csvSize = 0;
    std::size_t lines = 0;
    std::size_t passed = 0;
    std::string lastPath;
    std::vector<std::int16_t> credits;
    TallyCounts tally;
    double usedSeconds = 0.0;
};

std::filesystem::path sidecarPath(const std::filesystem::path& report);

// Replaces the sidecar whole; false when it can't be written.
bool saveRunState(const RunState& state);

// The sidecar of `report`, or nothing with the reason in `fault`.
std::optional<RunState> loadRunState(const std::filesystem::path& report, std::string& fault);

}  // namespace quintline::batch

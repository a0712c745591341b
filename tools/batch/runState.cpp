#include "batch/runState.h"

#include <fstream>
#include <nlohmann/json.hpp>

#include "boardfile/boardFileFormat.h"

namespace quintline::batch {

NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(RunOptions, schedule, games, sgf)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(RunState, command, tournament, cycles, seed, list, schedule,
                                   report, options, date, reportSizeBefore, reportSize, sgfSize,
                                   lines, passed, lastPath, credits, usedSeconds)

std::filesystem::path sidecarPath(const std::filesystem::path& report) {
    return report.string() + ".run.json";
}

bool saveRunState(const RunState& state) {
    return replaceFile(sidecarPath(state.report), nlohmann::json(state).dump(1) + '\n');
}

std::optional<RunState> loadRunState(const std::filesystem::path& report, std::string& fault) {
    const std::filesystem::path file = sidecarPath(report);
    std::ifstream in(file, std::ios::binary);
    if (!in.is_open()) {
        fault = "no unfinished run to resume: " + file.string() + " can not be opened";
        return std::nullopt;
    }
    try {
        RunState state = nlohmann::json::parse(in).get<RunState>();
        state.report = report.string();
        return state;
    } catch (const nlohmann::json::exception& error) {
        fault = file.string() + " is not a run's sidecar: " + error.what();
        return std::nullopt;
    }
}

}  // namespace quintline::batch

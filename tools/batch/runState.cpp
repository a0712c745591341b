#include "batch/runState.h"

#include <fstream>
#include <nlohmann/json.hpp>

#include "boardfile/boardFileFormat.h"

namespace quintline::batch {

NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(WinDrawLoss, wins, draws, losses)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(TallyCounts, games, credits, pentanomials)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(SprtOptions, pair, elo0, elo1, alpha, beta)

void to_json(nlohmann::json& json, const RunOptions& o) {
    json = {{"jobs", o.jobs},         {"report", o.report},
            {"gamesCsv", o.gamesCsv}, {"summaryJson", o.summaryJson},
            {"schedule", o.schedule}, {"games", o.games},
            {"sgf", o.sgf},           {"sprt", nullptr}};
    if (o.sprt) json["sprt"] = *o.sprt;
}

void from_json(const nlohmann::json& json, RunOptions& o) {
    json.at("jobs").get_to(o.jobs);
    json.at("report").get_to(o.report);
    json.at("gamesCsv").get_to(o.gamesCsv);
    json.at("summaryJson").get_to(o.summaryJson);
    json.at("schedule").get_to(o.schedule);
    json.at("games").get_to(o.games);
    json.at("sgf").get_to(o.sgf);
    if (json.at("sprt").is_null())
        o.sprt.reset();
    else
        o.sprt = json.at("sprt").get<SprtOptions>();
}

NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(RunState, command, tournament, cycles, seed, list, schedule,
                                   report, options, date, reportSizeBefore, reportSize, sgfSize,
                                   csvSize, lines, passed, lastPath, credits, tally, usedSeconds)

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

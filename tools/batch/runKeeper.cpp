#include "batch/runKeeper.h"

#include <cstdio>
#include <filesystem>
#include <regex>

#include "boardfile/sgfGame.h"
#include "harness/reportLines.h"

namespace quintline::batch {
namespace {

std::uint64_t sizeOf(const std::string& file) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    return error ? 0 : size;
}

}  // namespace

std::string recordFileName(bool tournament, int number, std::size_t pairing) {
    char name[40];
    std::snprintf(name, sizeof name, tournament ? "c%06d-p%02zu.txt" : "e%04d-p%02zu.txt", number,
                  pairing);
    return name;
}

RunKeeper::RunKeeper(RunState& state, const Schedule& schedule, const RunOutputs& outputs)
    : state_(state), schedule_(schedule), outputs_(outputs), usedBefore_(state.usedSeconds) {}

bool RunKeeper::prepare(std::string& fault) {
    // Under the report's lock no other run writes the sidecar or the records.
    const std::filesystem::path sidecar = sidecarPath(state_.report);
    removeLeftoverPartials(
        sidecar.parent_path().empty() ? "." : sidecar.parent_path(),
        std::regex_replace(sidecar.filename().string(), std::regex(R"(\.)"), R"(\.)"));
    if (state_.options.games.empty()) return true;
    std::error_code error;
    std::filesystem::create_directories(state_.options.games, error);
    if (error || !std::filesystem::is_directory(state_.options.games)) {
        fault = state_.options.games + " can not be made a folder for the games! Not started";
        return false;
    }
    removeLeftoverPartials(state_.options.games, R"([ce][0-9]+-p[0-9]+\.txt)");
    return true;
}

bool RunKeeper::keepRecords(const FinishedCycle& job, MessageLog& messages) {
    const std::string& dir = state_.options.games;
    std::string trees;
    for (std::size_t n = 0; n < job.games.size(); ++n) {
        const PlayedGame& game = job.games[n];
        if (!dir.empty()) {
            const std::string file =
                (std::filesystem::path(dir) /
                 recordFileName(state_.tournament, static_cast<int>(job.number), n + 1))
                    .string();
            if (!replaceFile(file, formatBoardFile(game.record))) {
                messages.line(file + " can not be written! Run stopped");
                return false;
            }
        }
        if (state_.options.sgf.empty()) continue;
        SgfGameInfo info;
        info.event = state_.tournament ? "tournament, seed " + std::to_string(state_.seed)
                                       : "test suite " + state_.list;
        info.round = std::to_string(job.number) + "." + std::to_string(n + 1);
        info.black = schedule_[n].blackCaption;
        info.white = schedule_[n].whiteCaption;
        info.outcome = game.result;
        info.date = state_.date;
        info.application = "quintline-batch:" QUINTLINE_VERSION;
        trees += sgfGameTree(info, game.record.moves);
    }
    if (!trees.empty() && !appendToFile(state_.options.sgf, trees)) {
        messages.line(state_.options.sgf + " can not be written! Run stopped");
        return false;
    }
    return true;
}

void RunKeeper::passed(const BatchOutcome& soFar) {
    state_.lines = soFar.lines;
    state_.passed = soFar.passed;
    state_.lastPath = soFar.lastPath;
    state_.credits = soFar.credits;
    state_.reportSize = sizeOf(state_.report);
    if (!state_.options.sgf.empty()) state_.sgfSize = sizeOf(state_.options.sgf);
    if (!state_.options.gamesCsv.empty()) state_.csvSize = sizeOf(state_.options.gamesCsv);
    state_.tally = outputs_.tally().counts();
    if (messages_) save(*messages_);
}

double RunKeeper::usedSeconds() const {
    const std::chrono::duration<double> part = std::chrono::steady_clock::now() - started_;
    return usedBefore_ + part.count();
}

void RunKeeper::save(MessageLog& messages) {
    messages_ = &messages;
    state_.usedSeconds = usedSeconds();
    if (saveRunState(state_) || saveFailed_) return;
    saveFailed_ = true;
    messages.line(sidecarPath(state_.report).string() +
                  " can not be written: this run can not be resumed");
}

}  // namespace quintline::batch

#include "harness/batchJobs.h"

#include <algorithm>
#include <utility>

#include "harness/pairingGame.h"

namespace quintline {

TournamentJobs::TournamentJobs(int cycles, UniformSource& uniform, int firstCycle)
    : cycles_(cycles),
      uniform_(uniform),
      expected_(static_cast<std::size_t>(std::max(cycles - firstCycle + 1, 0))) {
    for (; given_ + 1 < firstCycle; ++given_) drawOpening(uniform_);
}

std::optional<BatchJob> TournamentJobs::next() {
    if (given_ >= cycles_) return std::nullopt;
    ++given_;
    return BatchJob{given_, {}, drawOpening(uniform_), {}};
}

TestSuiteJobs::TestSuiteJobs(TestSuiteList& list, int firstEntry) : list_(list) {
    for (; given_ + 1 < firstEntry; ++given_, ++skipped_) {
        std::optional<ListEntry> entry = list_.nextEntry();
        if (!entry) break;
        if (entry->refusal.empty()) lastPath_ = std::move(entry->path);
    }
}

std::optional<BatchJob> TestSuiteJobs::next() {
    std::optional<ListEntry> entry = list_.nextEntry();
    if (!entry) return std::nullopt;
    ++given_;
    BatchJob job;
    job.number = given_;
    if (!entry->refusal.empty()) {
        // The report goes on naming the entry before this one.
        job.boardFilePath = lastPath_;
        job.refusal = std::move(entry->refusal);
        job.entryRefused = true;
        return job;
    }
    job.boardFilePath = lastPath_ = std::move(entry->path);
    BoardFileRead read = loadBoardFile(job.boardFilePath);
    if (read.fault == BoardFileFault::none)
        job.start = std::move(read.file);
    else
        job.refusal = refusalMessage(job.boardFilePath, read);
    return job;
}

std::size_t TestSuiteJobs::expected() const {
    return static_cast<std::size_t>(std::max<int>(list_.count() - skipped_, 0));
}

std::optional<std::vector<PlayedGame>> playJob(Game& game, const Schedule& schedule,
                                               const BatchJob& job,
                                               const std::function<bool()>& halted,
                                               const std::function<void()>& gameDone) {
    GameState& state = game.state();
    if (std::holds_alternative<BoardFile>(job.start)) {
        state.boardFilePath = job.boardFilePath;
        // A test-suite run takes clicks from nobody.
        state.twoUsers = flagFalse;
        state.clickAllowed = flagFalse;
    }
    std::vector<PlayedGame> games;
    games.reserve(schedule.size());
    for (const Pairing& pairing : schedule) {
        if (halted()) return std::nullopt;
        games.push_back(std::visit(
            [&](const auto& start) { return playPairing(game, pairing, start); }, job.start));
        if (gameDone) gameDone();
    }
    return games;
}

CycleResults resultsOf(const std::vector<PlayedGame>& games) {
    CycleResults results;
    results.reserve(games.size());
    for (const PlayedGame& game : games) results.push_back(game.group);
    return results;
}

}  // namespace quintline

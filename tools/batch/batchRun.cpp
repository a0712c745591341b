#include "batch/batchRun.h"

#include <algorithm>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "batch/orderedWriter.h"
#include "game/game.h"
#include "game/silentToolkit.h"
#include "harness/batchMessages.h"
#include "harness/pairingGame.h"
#include "harness/schedule.h"

namespace quintline::batch {

std::optional<BatchJob> TournamentJobs::next() {
    if (given_ >= cycles_) return std::nullopt;
    ++given_;
    return BatchJob{{}, drawOpening(uniform_), {}};
}

std::optional<BatchJob> TestSuiteJobs::next() {
    std::optional<ListEntry> entry = list_.nextEntry();
    if (!entry) return std::nullopt;
    ++given_;
    BatchJob job;
    if (!entry->refusal.empty()) {
        // The report goes on naming the entry before this one.
        job.boardFilePath = lastPath_;
        job.refusal = "entry " + std::to_string(given_) + " skipped: " + entry->refusal;
        return job;
    }
    job.boardFilePath = lastPath_ = std::move(entry->path);
    BoardFileRead read = loadBoardFile(job.boardFilePath);
    if (read.fault == BoardFileFault::none)
        job.start = std::move(read.file);
    else
        job.refusal = "entry " + std::to_string(given_) + " (" + job.boardFilePath +
                      ") skipped: " + refusalMessage(job.boardFilePath, read);
    return job;
}

std::size_t TestSuiteJobs::expected() const {
    return static_cast<std::size_t>(std::max<int>(list_.count(), 0));
}

namespace {

// A job whose games are all played, or a refused entry.
struct FinishedJob {
    FinishedCycle cycle;
    std::string refusal;
};

class BatchRun {
  public:
    BatchRun(JobSource& source, Report& report, const BatchSettings& settings,
             const std::atomic<bool>& stop, MessageLog& messages)
        : source_(source),
          report_(report),
          settings_(settings),
          stop_(stop),
          messages_(messages),
          writer_([this](std::size_t, FinishedJob& job) { return write(job); }) {}

    BatchOutcome run() {
        const std::size_t threads =
            std::clamp<std::size_t>(source_.expected(), 1, std::max(settings_.jobs, 1u));
        running_ = threads;
        std::vector<std::thread> workers;
        workers.reserve(threads);
        for (std::size_t i = 0; i < threads; ++i) workers.emplace_back([this] { work(); });
        reportProgressUntilDone();
        for (std::thread& worker : workers) worker.join();

        BatchOutcome outcome = outcome_;
        const bool complete = exhausted_ && writer_.handedOn() == handedOut_;
        outcome.stopped = !complete && !outcome.reportFailed && !outcome.endedEarly;
        return outcome;
    }

  private:
    bool halted() const { return stop_.load() || failed_.load() || ended_.load(); }

    std::size_t gamesExpected() const {
        const std::size_t jobs = source_.expected();
        const std::size_t refused = refused_.load();
        return (jobs > refused ? jobs - refused : 0) * schedule.size();
    }

    void reportProgressUntilDone() {
        std::unique_lock lock(doneMutex_);
        while (!doneCondition_.wait_for(lock, settings_.progressInterval,
                                        [this] { return running_ == 0; }))
            if (settings_.onProgress) settings_.onProgress(gamesDone_.load(), gamesExpected());
        if (settings_.onProgress) settings_.onProgress(gamesDone_.load(), gamesExpected());
    }

    // The next job and its place in run order, or nothing once the run is
    // over or halted.
    std::optional<std::pair<std::size_t, BatchJob>> take() {
        std::lock_guard lock(sourceMutex_);
        if (exhausted_ || halted()) return std::nullopt;
        std::optional<BatchJob> job = source_.next();
        if (!job) {
            exhausted_ = true;
            return std::nullopt;
        }
        return std::pair{handedOut_++, std::move(*job)};
    }

    void work() {
        SilentToolkit toolkit([this](std::string_view text) { messages_.line(text); });
        // A game's tables are large; keep them off the thread's stack.
        auto game = std::make_unique<Game>(toolkit, settings_.searches);
        game->startSession();
        game->newGame();
        while (auto taken = take()) {
            auto& [index, job] = *taken;
            FinishedJob finished{
                {index + 1, job.boardFilePath, std::holds_alternative<Opening>(job.start), {}},
                job.refusal};
            if (!job.refusal.empty()) {
                ++refused_;
                writer_.complete(index, std::move(finished));
                continue;
            }
            if (!play(*game, job, finished.cycle.games)) {
                writer_.cut(index);
                break;
            }
            writer_.complete(index, std::move(finished));
        }
        std::lock_guard lock(doneMutex_);
        --running_;
        doneCondition_.notify_all();
    }

    // The fourteen games of a job; false when the run was halted before the
    // last of them began.
    bool play(Game& game, const BatchJob& job, std::vector<PlayedGame>& games) {
        GameState& state = game.state();
        state.boardFilePath = job.boardFilePath;
        if (std::holds_alternative<BoardFile>(job.start)) {
            // A test-suite run takes clicks from nobody.
            state.twoUsers = flagFalse;
            state.clickAllowed = flagFalse;
        }
        games.reserve(schedule.size());
        for (std::size_t n = 0; n < schedule.size(); ++n) {
            if (halted()) return false;
            games.push_back(
                std::visit([&](const auto& start) { return playPairing(game, schedule[n], start); },
                           job.start));
            ++gamesDone_;
        }
        return true;
    }

    // Runs under the writer's lock, in run order.
    Handed write(const FinishedJob& job) {
        const FinishedCycle& cycle = job.cycle;
        outcome_.lastPath = cycle.boardFilePath;
        if (!job.refusal.empty()) {
            messages_.line(job.refusal);
            return Handed::carryOn;
        }
        CycleResults results;
        for (std::size_t n = 0; n < results.size(); ++n) results[n] = cycle.games[n].group;
        if (!report_.addGameLine(cycle.boardFilePath, results)) {
            messages_.line(reportStopped(report_.file()));
            outcome_.reportFailed = true;
            failed_ = true;
            return Handed::refused;
        }
        countCredits(outcome_.credits, results);
        ++outcome_.lines;
        switch (settings_.afterLine ? settings_.afterLine(cycle) : AfterCycle::carryOn) {
            case AfterCycle::outputFailed:
                outcome_.reportFailed = true;
                failed_ = true;
                return Handed::refused;
            case AfterCycle::stop:
                outcome_.endedEarly = true;
                ended_ = true;
                return Handed::last;
            case AfterCycle::carryOn:
                break;
        }
        return Handed::carryOn;
    }

    JobSource& source_;
    Report& report_;
    const BatchSettings& settings_;
    const std::atomic<bool>& stop_;
    MessageLog& messages_;

    std::mutex sourceMutex_;
    bool exhausted_ = false;
    std::size_t handedOut_ = 0;

    std::atomic<bool> failed_{false};
    std::atomic<bool> ended_{false};  // afterLine ended the run
    std::atomic<std::size_t> gamesDone_{0};
    std::atomic<std::size_t> refused_{0};

    std::mutex doneMutex_;
    std::condition_variable doneCondition_;
    std::size_t running_ = 0;

    BatchOutcome outcome_;  // written only by the writer's sink
    OrderedWriter<FinishedJob> writer_;
};

}  // namespace

BatchOutcome playBatch(JobSource& source, Report& report, const BatchSettings& settings,
                       const std::atomic<bool>& stop, MessageLog& messages) {
    BatchRun run(source, report, settings, stop, messages);
    return run.run();
}

}  // namespace quintline::batch

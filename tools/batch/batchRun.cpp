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

namespace quintline::batch {

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
    return static_cast<std::size_t>(std::max<int>(list_.count() - skipped_, 0));
}

std::optional<std::vector<PlayedGame>> playJob(Game& game, const Schedule& schedule,
                                               const BatchJob& job,
                                               const std::function<bool()>& halted,
                                               const std::function<void()>& gameDone) {
    GameState& state = game.state();
    state.boardFilePath = job.boardFilePath;
    if (std::holds_alternative<BoardFile>(job.start)) {
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

namespace {

// Shared with the threads that play, which may outlive the call when a run
// with remote players halts; so it keeps its own copy of the schedule and
// touches nothing of the caller's once abandoned.
class BatchRun final : public RemoteHost, public std::enable_shared_from_this<BatchRun> {
  public:
    BatchRun(JobSource& source, Report& report, const BatchSettings& settings,
             const std::atomic<bool>& stop, MessageLog& messages, JobKeeper* keeper,
             BatchOutcome before)
        : source_(source),
          report_(report),
          settings_(settings),
          schedule_(*settings.schedule),
          stop_(stop),
          messages_(messages),
          keeper_(keeper),
          outcome_(std::move(before)),
          writer_([this](std::size_t, FinishedJob& job) { return write(job); }) {
        settings_.schedule = &schedule_;
    }

    BatchOutcome run() {
        const std::size_t threads =
            std::clamp<std::size_t>(source_.expected(), 1, std::max(settings_.jobs, 1u));
        running_ = threads;
        std::vector<std::thread> workers;
        workers.reserve(threads);
        for (std::size_t i = 0; i < threads; ++i)
            workers.emplace_back([self = shared_from_this()] { self->work(); });
        RemotePlayers* remote = settings_.remote;
        if (remote) remote->start(schedule_, settings_.jobs);
        reportProgressUntilDone();
        if (remote) remote->halt();
        if (remote && halted()) {
            // Nothing more is written; the threads finish their games unwatched.
            writer_.cut(0);
            std::lock_guard lock(sayMutex_);
            abandoned_ = true;
            for (std::thread& worker : workers) worker.detach();
        } else {
            for (std::thread& worker : workers) worker.join();
        }

        BatchOutcome outcome = outcome_;
        std::lock_guard lock(sourceMutex_);
        const bool complete = exhausted_ && writer_.handedOn() == handedOut_;
        outcome.stopped = !complete && !outcome.reportFailed && !outcome.endedEarly;
        outcome.rankLost = lost_;
        return outcome;
    }

    std::optional<std::pair<std::size_t, BatchJob>> takePlayable() override {
        while (auto taken = take()) {
            if (taken->second.refusal.empty()) return taken;
            ++refused_;
            writer_.complete(taken->first, finishedShell(taken->second));
        }
        return std::nullopt;
    }

    void complete(std::size_t index, const BatchJob& job, std::vector<PlayedGame> games) override {
        gamesDone_ += games.size();
        FinishedJob finished = finishedShell(job);
        finished.cycle.games = std::move(games);
        writer_.complete(index, std::move(finished));
    }

    void stopRequested() override { remoteStop_ = true; }

    void rankLost(std::string_view message) override {
        if (lost_.exchange(true)) return;
        messages_.line(message);
        remoteStop_ = true;
    }

  private:
    bool halted() const {
        return abandoned_.load() || stop_.load() || failed_.load() || ended_.load() ||
               remoteStop_.load();
    }

    static FinishedJob finishedShell(const BatchJob& job) {
        return {{static_cast<std::size_t>(job.number),
                 job.boardFilePath,
                 std::holds_alternative<Opening>(job.start),
                 {}},
                job.refusal};
    }

    std::size_t gamesExpected() const {
        const std::size_t jobs = source_.expected();
        const std::size_t refused = refused_.load();
        return (jobs > refused ? jobs - refused : 0) * schedule_.size();
    }

    // With remote players, drives them every few milliseconds, and returns
    // as soon as the run halts.
    void reportProgressUntilDone() {
        RemotePlayers* remote = settings_.remote;
        const auto wait = remote ? std::chrono::milliseconds(5) : settings_.progressInterval;
        auto nextProgress = std::chrono::steady_clock::now() + settings_.progressInterval;
        std::unique_lock lock(doneMutex_);
        for (;;) {
            bool remoteBusy = false;
            if (remote) {
                lock.unlock();
                remoteBusy = remote->pump(*this);
                lock.lock();
                if (halted()) break;
            }
            if (running_ == 0 && !remoteBusy) break;
            doneCondition_.wait_for(lock, wait);
            if (settings_.onProgress && std::chrono::steady_clock::now() >= nextProgress) {
                settings_.onProgress(gamesDone_.load(), gamesExpected());
                nextProgress += settings_.progressInterval;
            }
        }
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

    void say(std::string_view text) {
        std::lock_guard lock(sayMutex_);
        if (!abandoned_) messages_.line(text);
    }

    void work() {
        SilentToolkit toolkit([this](std::string_view text) { say(text); });
        // A game's tables are large; keep them off the thread's stack.
        auto game = std::make_unique<Game>(toolkit, settings_.searches);
        game->startSession();
        game->newGame();
        while (auto taken = take()) {
            auto& [index, job] = *taken;
            FinishedJob finished = finishedShell(job);
            if (!job.refusal.empty()) {
                ++refused_;
                writer_.complete(index, std::move(finished));
                continue;
            }
            auto games = playJob(
                *game, schedule_, job, [this] { return halted(); }, [this] { ++gamesDone_; });
            if (!games) {
                writer_.cut(index);
                break;
            }
            finished.cycle.games = std::move(*games);
            writer_.complete(index, std::move(finished));
        }
        std::lock_guard lock(doneMutex_);
        --running_;
        doneCondition_.notify_all();
    }

    // Runs under the writer's lock, in run order: the job's records, its
    // line, what follows the line, and the keeper's note of how far the run is.
    Handed write(const FinishedJob& job) {
        const FinishedCycle& cycle = job.cycle;
        if (!job.refusal.empty()) {
            messages_.line(job.refusal);
        } else {
            CycleResults results;
            for (const PlayedGame& game : cycle.games) results.push_back(game.group);
            if (keeper_ && !keeper_->keepRecords(cycle, messages_)) return fail(false);
            if (!report_.addGameLine(cycle.boardFilePath, results)) return fail(true);
            countCredits(outcome_.credits, results);
            ++outcome_.lines;
            switch (settings_.afterLine ? settings_.afterLine(cycle) : AfterCycle::carryOn) {
                case AfterCycle::outputFailed:
                    return fail(false);
                case AfterCycle::stop:
                    outcome_.endedEarly = true;
                    ended_ = true;
                    break;
                case AfterCycle::carryOn:
                    break;
            }
        }
        outcome_.lastPath = cycle.boardFilePath;
        ++outcome_.passed;
        if (keeper_) keeper_->passed(outcome_);
        return outcome_.endedEarly ? Handed::last : Handed::carryOn;
    }

    Handed fail(bool report) {
        if (report) messages_.line(reportStopped(report_.file()));
        outcome_.reportFailed = true;
        failed_ = true;
        return Handed::refused;
    }

    JobSource& source_;
    Report& report_;
    BatchSettings settings_;
    const Schedule schedule_;
    const std::atomic<bool>& stop_;
    MessageLog& messages_;
    JobKeeper* keeper_;

    std::mutex sourceMutex_;
    bool exhausted_ = false;
    std::size_t handedOut_ = 0;

    std::atomic<bool> failed_{false};
    std::atomic<bool> ended_{false};       // afterLine ended the run
    std::atomic<bool> remoteStop_{false};  // a remote player stopped or was lost
    std::atomic<bool> lost_{false};
    std::atomic<bool> abandoned_{false};  // the caller has gone: touch nothing of its
    std::mutex sayMutex_;
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
                       const std::atomic<bool>& stop, MessageLog& messages, JobKeeper* keeper,
                       BatchOutcome before) {
    if (before.credits.empty()) before.credits.assign(settings.schedule->size(), 0);
    auto run = std::make_shared<BatchRun>(source, report, settings, stop, messages, keeper,
                                          std::move(before));
    return run->run();
}

}  // namespace quintline::batch

#pragma once
// Tournaments and test-suite runs on several threads, each thread with a game
// of its own, writing the game lines a single-threaded run would write, in the
// same order.

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "batch/messageLog.h"
#include "boardfile/boardFileFormat.h"
#include "harness/credit.h"
#include "harness/opening.h"
#include "harness/pairingGame.h"
#include "harness/report.h"
#include "harness/testSuiteList.h"
#include "harness/uniformSource.h"
#include "players/searchSet.h"

namespace quintline::batch {

// One cycle or test-suite entry: where its games start from.
struct BatchJob {
    int number = 0;             // the cycle, or the entry's place in the list; from 1
    std::string boardFilePath;  // the entry's path; empty in a tournament
    std::variant<Opening, BoardFile> start;
    std::string refusal;  // why the entry's board file was refused; nothing is played then
};

// The games of one job, one per pairing in schedule order, or nothing when
// `halted` turned true before the last of them began. `gameDone` is called
// after each game. Plays on `game` alone and touches no file.
std::optional<std::vector<PlayedGame>> playJob(Game& game, const Schedule& schedule,
                                               const BatchJob& job,
                                               const std::function<bool()>& halted,
                                               const std::function<void()>& gameDone = {});

// Hands out a run's cycles or entries in run order, one call at a time.
class JobSource {
  public:
    virtual ~JobSource() = default;
    // Empty when the run has no more.
    virtual std::optional<BatchJob> next() = 0;
    // Cycles or entries the run expects in all, for progress and for the
    // number of threads worth starting.
    virtual std::size_t expected() const = 0;
};

// Draws each cycle's opening from the one generator as the cycle is handed
// out, so cycle k has the k-th opening whatever the number of threads.
class TournamentJobs final : public JobSource {
  public:
    // With `firstCycle` above 1 the openings of the cycles before it are drawn
    // and dropped, so that every cycle keeps its opening.
    TournamentJobs(int cycles, UniformSource& uniform, int firstCycle = 1);
    std::optional<BatchJob> next() override;
    std::size_t expected() const override { return expected_; }

  private:
    int cycles_;
    int given_ = 0;
    UniformSource& uniform_;
    std::size_t expected_;
};

// Reads the entries of an opened list one by one and checks each board file
// as it is handed out.
class TestSuiteJobs final : public JobSource {
  public:
    // Entries before `firstEntry` are read and passed over unchecked.
    explicit TestSuiteJobs(TestSuiteList& list, int firstEntry = 1);
    std::optional<BatchJob> next() override;
    std::size_t expected() const override;

  private:
    TestSuiteList& list_;
    int given_ = 0;
    int skipped_ = 0;
    std::string lastPath_;  // of the last entry whose path could be used
};

// A cycle or entry whose report line has just been written, in run order.
struct FinishedCycle {
    std::size_t number = 0;         // the cycle, or the entry's place in the list; from 1
    std::string boardFilePath;      // the entry's path; empty in a tournament
    bool tournament = true;         // false for a test-suite entry
    std::vector<PlayedGame> games;  // one per pairing, in pairing order
};

// What the run does after a cycle's line is written.
enum class AfterCycle {
    carryOn,
    stop,          // this was the last cycle: nothing after it is played or written
    outputFailed,  // the cycle's own output could not be written: stop as for the report
};

class RemotePlayers;

struct BatchSettings {
    const Schedule* schedule = &Schedule::fixed();
    unsigned jobs = 1;
    SearchSet searches{};
    // Called under the writer's lock for each cycle or entry whose line was written.
    std::function<AfterCycle(const FinishedCycle&)> afterLine;
    // Called from the calling thread every progressInterval while games run,
    // and once at the end.
    std::function<void(std::size_t gamesDone, std::size_t gamesExpected)> onProgress;
    std::chrono::milliseconds progressInterval{500};
    // Players in other processes taking jobs beside this process's threads
    // (the other ranks of an MPI run). With them a halted run returns at once:
    // the games under way anywhere are dropped, as the launcher may kill every
    // process soon after a stop signal.
    RemotePlayers* remote = nullptr;
};

// Counts from the start of the block, earlier parts of a resumed run included.
struct BatchOutcome {
    std::size_t lines = 0;      // game lines written: the first `lines` played cycles or entries
    std::size_t passed = 0;     // cycles or entries passed in order, refused ones included
    CreditCounts credits{};     // A credits of exactly those lines
    std::string lastPath;       // the path of the last entry passed in order, refused ones included
    bool stopped = false;       // the stop flag cut the run short
    bool reportFailed = false;  // a game line or its own output could not be written
    bool endedEarly = false;    // afterLine asked to stop
    bool rankLost = false;      // a remote player stopped answering
};

// A job whose games are all played, or a refused entry.
struct FinishedJob {
    FinishedCycle cycle;
    std::string refusal;  // no games then
};

// What a run keeps beside its report, told of each job in run order.
class JobKeeper {
  public:
    virtual ~JobKeeper() = default;
    // A played job, before its report line: false (with the reason said on
    // `messages`) ends the run before that line.
    virtual bool keepRecords(const FinishedCycle& cycle, MessageLog& messages) = 0;
    // After the job's line and afterLine, or after a refused entry, with the
    // counts so far.
    virtual void passed(const BatchOutcome& soFar) = 0;
};

// What a run offers the players of other processes; called from the thread
// that drives them.
class RemoteHost {
  public:
    // The next job to play elsewhere and its place in run order, refused
    // entries being passed on the way; nothing once the run is over or halted.
    virtual std::optional<std::pair<std::size_t, BatchJob>> takePlayable() = 0;
    // The games of a job that takePlayable handed out.
    virtual void complete(std::size_t index, const BatchJob& job,
                          std::vector<PlayedGame> games) = 0;
    // Another process was asked to stop: the run stops as on Ctrl-C.
    virtual void stopRequested() = 0;
    // Another process is gone: the run ends after saying `message`.
    virtual void rankLost(std::string_view message) = 0;

  protected:
    ~RemoteHost() = default;
};

// Players in other processes, driven by playBatch from its calling thread.
class RemotePlayers {
  public:
    virtual ~RemotePlayers() = default;
    // Before the first job: they play `schedule` on `jobs` threads each.
    virtual void start(const Schedule& schedule, unsigned jobs) = 0;
    // Called every few milliseconds while the run lasts: hands jobs to those
    // that ask and completes what they finished. True while jobs are out.
    virtual bool pump(RemoteHost& host) = 0;
    // The run is over or halted: nothing out is wanted any more.
    virtual void halt() = 0;
};

// Plays every job on up to settings.jobs threads and appends one game line per
// cycle or entry to the report, which the caller has opened and closes. A
// refused entry gets a message on `messages` and no line, as in the program.
// Once `stop` is set, or afterLine ends the run, no job starts, every thread
// finishes the game it is playing and abandons the rest of its job; the lines
// written are then the longest run of finished jobs from the first one on (up
// to the one after which afterLine stopped). `before` holds the counts of
// earlier parts of the block (credits sized to the schedule).
BatchOutcome playBatch(JobSource& source, Report& report, const BatchSettings& settings,
                       const std::atomic<bool>& stop, MessageLog& messages,
                       JobKeeper* keeper = nullptr, BatchOutcome before = {});

}  // namespace quintline::batch

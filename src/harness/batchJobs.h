#pragma once
// The job loop's parts shared by the desktop runs and the headless runner: a
// run's cycles or test-suite entries handed out one by one as jobs, and the
// games of one job played on one game.

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "boardfile/boardFileFormat.h"
#include "game/game.h"
#include "harness/credit.h"
#include "harness/opening.h"
#include "harness/testSuiteList.h"
#include "harness/uniformSource.h"

namespace quintline {

// One cycle or test-suite entry: where its games start from.
struct BatchJob {
    int number = 0;             // the cycle, or the entry's place in the list; from 1
    std::string boardFilePath;  // the entry's path; empty in a tournament
    std::variant<Opening, BoardFile> start;
    // Why nothing is played: the list's own reason when the entry itself was
    // refused (`entryRefused`; its path then never reaches the report or the
    // game), else the board file's refusal message. Empty when the job plays.
    std::string refusal;
    bool entryRefused = false;
};

// The games of one job, one per pairing in schedule order, or nothing when
// `halted` turned true before the last of them began. `gameDone` is called
// after each game. Plays on `game` alone and touches no file; an entry's path
// becomes the game's board-file path, a tournament leaves that path alone.
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

// The report groups of a job's games, in pairing order.
CycleResults resultsOf(const std::vector<PlayedGame>& games);

}  // namespace quintline

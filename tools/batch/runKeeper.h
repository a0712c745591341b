#pragma once
// What a tournament or test-suite run keeps beside its report: every game as
// a board file and in an SGF collection, when asked for, and the sidecar that
// lets the run be resumed. Everything here runs on the ordered writer's side,
// in run order.

#include <chrono>
#include <cstddef>
#include <string>

#include "batch/batchRun.h"
#include "batch/runOutputs.h"
#include "batch/runState.h"
#include "harness/schedule.h"

namespace quintline::batch {

// "c000123-p07.txt" for cycle 123, pairing 7 of a tournament; "e0005-p07.txt"
// for entry 5 of a test suite. Pairings count from 1.
std::string recordFileName(bool tournament, int number, std::size_t pairing);

class RunKeeper final : public JobKeeper {
  public:
    // `state` is the run's sidecar as it stands; its usedSeconds are those of
    // the earlier parts.
    RunKeeper(RunState& state, const Schedule& schedule, const RunOutputs& outputs);

    // Creates the records folder; false with the reason when it can't be made.
    bool prepare(std::string& fault);

    bool keepRecords(const FinishedCycle& cycle, MessageLog& messages) override;
    void passed(const BatchOutcome& soFar) override;

    // Seconds used by every part so far.
    double usedSeconds() const;
    // Saves the sidecar; says so on `messages` once when it can't.
    void save(MessageLog& messages);

  private:
    RunState& state_;
    const Schedule& schedule_;
    const RunOutputs& outputs_;
    double usedBefore_;
    std::chrono::steady_clock::time_point started_ = std::chrono::steady_clock::now();
    bool saveFailed_ = false;
    MessageLog* messages_ = nullptr;
};

}  // namespace quintline::batch

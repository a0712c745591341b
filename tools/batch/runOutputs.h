#pragma once
// What a tournament or test-suite run keeps besides the report: the tally
// behind the tables on stdout, the per-game CSV, the JSON summary and the
// SPRT that may end the run early.

#include <memory>
#include <optional>
#include <ostream>

#include "batch/arguments.h"
#include "batch/batchRun.h"
#include "batch/runTally.h"
#include "batch/sequentialTest.h"
#include "batch/stagedFile.h"
#include "batch/summaryJson.h"

namespace quintline::batch {

class RunOutputs {
  public:
    explicit RunOutputs(const RunOptions& options);

    // Before the report is opened: creates the asked-for files beside their
    // names, leaving the names untouched. Empty, or the path that cannot be written.
    std::optional<std::filesystem::path> prepare();
    // Once the report is open: the CSV, holding its header row, takes its
    // name. Empty, or the path that cannot be written.
    std::optional<std::filesystem::path> start();

    // For BatchSettings::afterLine, in run order.
    AfterCycle afterLine(const FinishedCycle& cycle);
    // The path of the output whose write failed in afterLine.
    const std::filesystem::path& failedPath() const;

    std::optional<SprtStatus> sprt() const;
    const RunTally& tally() const { return tally_; }

    // Writes the JSON summary whole, when asked for; false when it can't be.
    bool writeSummary(const RunFacts& facts);
    std::filesystem::path summaryPath() const { return options_.summaryJson; }

  private:
    const RunOptions& options_;
    RunTally tally_;
    std::unique_ptr<StagedFile> csv_;
    std::unique_ptr<StagedFile> json_;
};

}  // namespace quintline::batch

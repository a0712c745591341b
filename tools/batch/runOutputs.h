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
    RunOutputs(const RunOptions& options, std::span<const Pairing> pairings);

    // Before the report is opened: creates the asked-for files beside their
    // names, leaving the names untouched; when resuming, a CSV already stands.
    // Empty, or the path that cannot be written.
    std::optional<std::filesystem::path> prepare(bool resuming = false);
    // Once the report is open: the CSV, holding its header row, takes its
    // name; when resuming, the CSV is cut to `csvSize` bytes and taken up.
    // Empty, or the path that cannot be written.
    std::optional<std::filesystem::path> start(std::uintmax_t csvSize = 0);
    // The counts of the earlier parts of a resumed run.
    void restore(const TallyCounts& counts) { tally_.restore(counts); }

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
    std::span<const Pairing> pairings_;
    bool resuming_ = false;
    RunTally tally_;
    std::unique_ptr<StagedFile> csv_;
    std::unique_ptr<StagedFile> json_;
};

}  // namespace quintline::batch

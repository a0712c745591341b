#include "batch/runOutputs.h"

#include <cassert>

#include "batch/gamesCsv.h"
#include "harness/schedule.h"

namespace quintline::batch {

RunOutputs::RunOutputs(const RunOptions& options) : options_(options), tally_(schedule) {
    if (!options.gamesCsv.empty()) csv_ = std::make_unique<StagedFile>(options.gamesCsv);
    if (!options.summaryJson.empty()) json_ = std::make_unique<StagedFile>(options.summaryJson);
}

std::optional<std::filesystem::path> RunOutputs::prepare() {
    if (csv_ && !(csv_->create() && csv_->append(gamesCsvHeader))) return csv_->target();
    if (json_ && !json_->create()) return json_->target();
    return {};
}

std::optional<std::filesystem::path> RunOutputs::start() {
    if (csv_ && !csv_->publish()) return csv_->target();
    return {};
}

AfterCycle RunOutputs::afterLine(const FinishedCycle& cycle) {
    if (csv_ && !csv_->append(gamesCsvRows(schedule, cycle))) return AfterCycle::outputFailed;
    tally_.add(cycle.games);
    const auto status = sprt();
    return status && status->accepted ? AfterCycle::stop : AfterCycle::carryOn;
}

const std::filesystem::path& RunOutputs::failedPath() const {
    assert(csv_);  // the one output written in afterLine
    return csv_->target();
}

std::optional<SprtStatus> RunOutputs::sprt() const {
    if (!options_.sprt) return {};
    return sprtStatus(*options_.sprt, tally_);
}

bool RunOutputs::writeSummary(const RunFacts& facts) {
    return !json_ || (json_->append(summaryJson(facts, tally_, sprt())) && json_->publish());
}

}  // namespace quintline::batch

#include "batch/runOutputs.h"

#include <cassert>

#include "batch/gamesCsv.h"

namespace quintline::batch {

RunOutputs::RunOutputs(const RunOptions& options, std::span<const Pairing> pairings)
    : options_(options), pairings_(pairings), tally_(pairings) {
    if (!options.gamesCsv.empty()) csv_ = std::make_unique<StagedFile>(options.gamesCsv);
    if (!options.summaryJson.empty()) json_ = std::make_unique<StagedFile>(options.summaryJson);
}

std::optional<std::filesystem::path> RunOutputs::prepare(bool resuming) {
    resuming_ = resuming;
    if (csv_ && !resuming && !(csv_->create() && csv_->append(gamesCsvHeader)))
        return csv_->target();
    if (json_ && !json_->create()) return json_->target();
    return {};
}

std::optional<std::filesystem::path> RunOutputs::start(std::uintmax_t csvSize) {
    if (csv_ && !(resuming_ ? csv_->reopen(csvSize) : csv_->publish())) return csv_->target();
    return {};
}

AfterCycle RunOutputs::afterLine(const FinishedCycle& cycle) {
    if (csv_ && !csv_->append(gamesCsvRows(pairings_, cycle))) return AfterCycle::outputFailed;
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

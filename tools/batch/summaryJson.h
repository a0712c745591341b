#pragma once
// --summary-json: the end-of-run tables as one JSON object, numbers unrounded
// and undefined figures null.

#include <cstdint>
#include <optional>
#include <string>

#include "batch/runTally.h"
#include "batch/sequentialTest.h"

namespace quintline::batch {

enum class StopCause { none, interrupt, sprt, report, rank };

struct RunFacts {
    std::string command;                // "tournament" or "testsuite"
    std::optional<std::uint64_t> seed;  // a tournament's
    unsigned jobs = 1;
    std::size_t played = 0;  // cycles or entries kept in the report
    StopCause stoppedBy = StopCause::none;
};

std::string summaryJson(const RunFacts& run, const RunTally& tally,
                        const std::optional<SprtStatus>& sprt);

}  // namespace quintline::batch

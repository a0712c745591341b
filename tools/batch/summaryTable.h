#pragma once
// The tables printed on stdout at the end of a batch, within 100 columns: one
// row per pairing, one per colour-swapped pair of pairings, then the SPRT
// line when a test was run. Figures that are undefined read "-".

#include <optional>
#include <string>

#include "batch/runTally.h"
#include "batch/sequentialTest.h"

namespace quintline::batch {

std::string summaryTable(const RunTally& tally, const std::optional<SprtStatus>& sprt = {});

}  // namespace quintline::batch

#pragma once
// The SPRT of a run on one colour-swapped pair, as it stands after the
// cycles tallied so far.

#include <optional>

#include "batch/arguments.h"
#include "batch/runTally.h"

namespace quintline::batch {

enum class Hypothesis { h0, h1 };

struct SprtStatus {
    SprtOptions options;
    double llr = 0.0;
    SprtBounds bounds;
    std::optional<Hypothesis> accepted;  // empty while the test goes on
};

SprtStatus sprtStatus(const SprtOptions& options, const RunTally& tally);

// "SPRT: H1 accepted, LLR 2.98 (-2.94, 2.94)", or "no decision" in its place.
std::string sprtLine(const SprtStatus& status);

}  // namespace quintline::batch

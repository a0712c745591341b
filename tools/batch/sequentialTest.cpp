#include "batch/sequentialTest.h"

#include <cstdio>

namespace quintline::batch {

SprtStatus sprtStatus(const SprtOptions& options, const RunTally& tally) {
    SprtStatus status{options, 0.0, sprtBounds(options.alpha, options.beta), {}};
    // Pair PAIR is pairings 2 PAIR - 1 and 2 PAIR.
    const std::size_t first = 2 * static_cast<std::size_t>(options.pair - 1);
    for (std::size_t p = 0; p < tally.pairs().size(); ++p)
        if (tally.pairs()[p].first == first)
            status.llr = sprtLlr(tally.pentanomial(p), options.elo0, options.elo1);
    if (status.llr >= status.bounds.upper)
        status.accepted = Hypothesis::h1;
    else if (status.llr <= status.bounds.lower)
        status.accepted = Hypothesis::h0;
    return status;
}

std::string sprtLine(const SprtStatus& status) {
    const char* verdict = !status.accepted                     ? "no decision"
                          : *status.accepted == Hypothesis::h1 ? "H1 accepted"
                                                               : "H0 accepted";
    char text[160];
    std::snprintf(text, sizeof text,
                  "SPRT: %s, LLR %.2f (%.2f, %.2f) on pair %d, elo0 %g elo1 %g\n", verdict,
                  status.llr, status.bounds.lower, status.bounds.upper, status.options.pair,
                  status.options.elo0, status.options.elo1);
    return text;
}

}  // namespace quintline::batch

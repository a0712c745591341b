#pragma once
// Whether a report still ends with the unfinished block its sidecar
// describes, checked before `resume` writes anything.

#include <string>

#include "batch/runState.h"

namespace quintline::batch {

// Empty when the report holds, from the size it had before the run, the
// block's start and header lines (`header` after an empty boardFilePath), its
// first state.lines game lines up to state.reportSize, and after that only
// what the interrupted run itself can have left: more game lines of
// `pairings` groups, then the summary, end and used lines of a stop, and a
// torn last line. Otherwise why not.
std::string reportFault(const RunState& state, std::size_t pairings, const std::string& header);

}  // namespace quintline::batch

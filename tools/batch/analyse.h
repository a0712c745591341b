#pragma once
// One search on a saved position: the board file's moves replayed as the
// forward button would, then the search of one player kind for the side to move.

#include <optional>
#include <string>

#include "batch/arguments.h"
#include "game/seatedSearch.h"

namespace quintline::batch {

using Analysis = SearchChoice;

struct AnalyseOutcome {
    std::optional<Analysis> analysis;
    std::string error;        // why there is no analysis
    bool usageError = false;  // the options do not fit the position, rather than a refused file
};

AnalyseOutcome analysePosition(const AnalyseCommand& command, const SearchSet& searches = {});

// "x y value" or "x y ownScore modelScore", single blanks.
std::string analysisLine(const Analysis& analysis);

}  // namespace quintline::batch

#pragma once
// The rows of --games-csv: one per game, in cycle or entry order and pairing
// order, beside the report's game lines.

#include <span>
#include <string>

#include "batch/batchRun.h"
#include "harness/schedule.h"

namespace quintline::batch {

inline constexpr std::string_view gamesCsvHeader =
    "cycle,entry,pairing,label,black,white,depthA,depthB,result,stones,letter,opening\n";

// The rows of one cycle or entry. `cycle` is its number in a tournament and
// empty in a test suite, `entry` the other way round; `result` is 1 black
// won, -1 white won, 0 drawn; `opening` the stones before the first computer
// move as x.y joined by '-'.
std::string gamesCsvRows(std::span<const Pairing> pairings, const FinishedCycle& cycle);

}  // namespace quintline::batch

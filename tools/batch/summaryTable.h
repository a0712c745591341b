#pragma once
// The table printed on stdout at the end of a batch: the A family's share of
// each pairing and of each colour-swapped pair of pairings.

#include <cstddef>
#include <string>

#include "harness/credit.h"

namespace quintline::batch {

// `games` is the number of cycles or entries played, so each pairing has that
// many games and each pair twice as many. Pairings 2k-1 and 2k make a pair
// when they are the same players with the colours changed.
std::string summaryTable(const Schedule& schedule, const CreditCounts& credits, std::size_t games);

}  // namespace quintline::batch

#pragma once
// The table printed on stdout at the end of a batch: the A family's share of
// each pairing and of each colour-swapped pair of pairings.

#include <cstddef>
#include <string>

#include "harness/credit.h"

namespace quintline::batch {

// `games` is the number of cycles or entries played, so each pairing has that
// many games and each pair twice as many.
std::string summaryTable(const CreditCounts& credits, std::size_t games);

}  // namespace quintline::batch

#pragma once
// Which family a finished game is credited to, and the run's tally of A credits.

#include <cstdint>
#include <vector>

#include "harness/schedule.h"
#include "position/types.h"

namespace quintline {

// One game of a report line: the credited family's letter and the stones on
// the board at the end.
struct ResultGroup {
    char letter = 'B';
    std::int16_t stones = 0;
    friend constexpr bool operator==(const ResultGroup&, const ResultGroup&) = default;
};

// One group per pairing of the schedule.
using CycleResults = std::vector<ResultGroup>;
// Games credited to the A family, by pairing: one count per pairing of the schedule.
using CreditCounts = std::vector<std::int16_t>;

// A black win goes to black's family; anything else, a draw included, to white's.
ResultGroup creditGame(const Pairing& pairing, GameCode result, std::int16_t stones);

// Adds the A letters of one cycle or entry to the tally, column by column;
// both have one place per pairing.
void countCredits(CreditCounts& counts, const CycleResults& results);

}  // namespace quintline

#include "harness/credit.h"

#include <cassert>

namespace quintline {

ResultGroup creditGame(const Pairing& pairing, GameCode result, std::int16_t stones) {
    const PlayerKind credited = result == blackWon ? pairing.black : pairing.white;
    return ResultGroup{isAFamily(credited) ? 'A' : 'B', stones};
}

void countCredits(CreditCounts& counts, const CycleResults& results) {
    assert(counts.size() == results.size());
    for (std::size_t n = 0; n < results.size(); ++n)
        if (results[n].letter == 'A') ++counts[n];
}

int aHalfPoints(const Pairing& pairing, GameCode result) {
    if (result != blackWon && result != whiteWon) return 1;
    return isAFamily(result == blackWon ? pairing.black : pairing.white) ? 2 : 0;
}

}  // namespace quintline

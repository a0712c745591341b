#pragma once
// Which family a finished game is credited to, the run's tally of A credits,
// and the game's real outcome, which statistics use instead of the credit.

#include <cstdint>
#include <vector>

#include "boardfile/boardFileFormat.h"
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

// A finished game: its report group, what really happened, the stones that
// stood before the first computer move, in the order laid, and what Save
// would write right after the game.
struct PlayedGame {
    ResultGroup group;
    GameCode result = gameDrawn;  // blackWon, whiteWon or gameDrawn
    std::vector<Point> opening;
    BoardFile record;
};

// The A family's score of a game in half points: 2 a win, 1 a draw, 0 a loss.
int aHalfPoints(const Pairing& pairing, GameCode result);

}  // namespace quintline

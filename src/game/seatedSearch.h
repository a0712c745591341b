#pragma once
// One search of a player kind for the side to move, seated as the batches and
// the engine seat it: the kind plays the side to move and, unless told
// otherwise, the other family's plain computer plays the other side.

#include <cstdint>
#include <optional>

#include "players/searchSet.h"

namespace quintline {

// The kind a colour plays against `kind` unless told otherwise.
constexpr PlayerKind opponentOf(PlayerKind kind) {
    return isAFamily(kind) ? computerB : computerA;
}

struct SearchChoice {
    Point point;                      // (0, 0) when the search chose none
    Score value = 0;                  // the value, or ownScore for kinds 3 and 4
    std::optional<Score> modelScore;  // kinds 3 and 4 only
};

// `kind` on the side to move at the state's stone count, opponentOf(kind) on the other.
void seatSides(SearchState& state, PlayerKind kind);

// The search of `kind` (1..4) at `depth` from the state's stone count. Leaves
// the position and stepNum as it found them.
SearchChoice searchFor(SearchState& state, PlayerKind kind, std::int16_t depth,
                       const SearchSet& searches = {});

}  // namespace quintline

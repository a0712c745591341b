#pragma once
// The part of a game's state that a search reads and writes: the position, the
// stone count of the node being examined, the chosen points by stone count and
// the player kinds of the two colours.

#include <array>
#include <cstdint>

#include "position/basicOpr.h"
#include "position/types.h"

namespace quintline {

struct SearchState {
    Position position;
    // Stones on the board; during a search, the stone count of the node examined.
    std::int16_t stepNum = 0;
    // The point chosen at the position with that many stones (indexes 0..225).
    std::array<std::int16_t, maxStones + 1> bestX{};
    std::array<std::int16_t, maxStones + 1> bestY{};
    PlayerKind blackSide = computerA;
    PlayerKind whiteSide = userKind;
    // Nodes entered by the searches on this state so far, leaves included; for
    // measurements only.
    std::uint64_t nodesSearched = 0;
};

// Result of an opponent-model search node; both scores from black's view.
struct nodeScores {
    Score spare = 0;  // always 0
    Score ownScore = 0;
    Score modelScore = 0;
    friend constexpr bool operator==(const nodeScores&, const nodeScores&) = default;
};

}  // namespace quintline

#pragma once
// The state of one game: every shared variable and table of the program, held
// in one object so that several games can run side by side.

#include <array>
#include <cstdint>
#include <string>

#include "players/searchState.h"
#include "position/types.h"

namespace quintline {

struct MoveRecordEntry {
    std::int16_t colour = 0;
    std::int16_t x = 0;
    std::int16_t y = 0;
    friend constexpr bool operator==(const MoveRecordEntry&, const MoveRecordEntry&) = default;
};

// Position tables, stepNum, bestX/bestY and the two sides come from SearchState.
struct GameState : SearchState {
    // Entry n is move number n (entry 0 unused): 1..stepNum are on the board,
    // stepNum+1..stepNum+movesAhead can be replayed.
    std::array<MoveRecordEntry, maxStones + 1> moveRecord{};

    std::int16_t movesAhead = 0;
    GameCode gameResult = gameDrawn;  // open only once a test has returned 2
    Flag clickAllowed = flagTrue;
    Side userColour = white;
    Flag twoUsers = flagFalse;
    PlayerKind computerKind = computerA;
    Side computerColour = black;
    std::int16_t depthA = 3;
    std::int16_t depthB = 3;
    std::int16_t cellSize = 533;
    Flag suggestionOn = flagFalse;
    std::string windowTitle;
    std::string boardFilePath;
    std::int16_t cycleCount = 0;
};

// The board cell side in twips for a canvas of the given width: width / 15,
// rounded to the nearest whole number, ties to even.
constexpr std::int16_t cellSizeFor(double boardWidth) {
    return static_cast<std::int16_t>(roundHalfEven(boardWidth / boardSize));
}

}  // namespace quintline

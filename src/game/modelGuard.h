#pragma once
// Which recorded moves the position model accepts, and how game control judges
// a position. A hand-edited board file can record any colour or point; only a
// black or white stone on a board point ever reaches the tables, so such a
// record can be shown and stepped over but cannot corrupt the counts.

#include <cstdint>

#include "position/basicOpr.h"
#include "position/types.h"

namespace quintline {

constexpr bool entersModel(std::int16_t x, std::int16_t y, Side colour) {
    return (colour == black || colour == white) && onBoard(x, y);
}

// gameEndTest for the stone just committed; a record that never entered the
// model completes no line, so only the full board can end the game then.
inline GameCode judgeStone(const Position& pos, std::int16_t stepNum, std::int16_t x,
                           std::int16_t y, Side colour) {
    if (entersModel(x, y, colour)) return gameEndTest(pos, stepNum, x, y, colour);
    return stepNum >= maxStones ? gameDrawn : gameOpen;
}

// The side holding a line of five, white when both do, otherwise a draw: the
// verdict on a position in which no further stone can be chosen.
inline GameCode fiveHolder(const Position& pos) {
    if (pos.census(white, lineLength) > 0) return whiteWon;
    if (pos.census(black, lineLength) > 0) return blackWon;
    return gameDrawn;
}

}  // namespace quintline

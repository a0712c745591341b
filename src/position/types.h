#pragma once
// The small shared vocabulary of the program: side codes, player kinds,
// game-end codes, score thresholds and the integer widths of the tables.

#include <cstdint>

namespace quintline {

// Side codes, also the contents of a board point.
using Side = std::int16_t;
inline constexpr Side black = 1;
inline constexpr Side white = -1;
inline constexpr Side empty = 0;

// Player kinds. The A family is kinds 1 and 3, the B family kinds 2 and 4.
using PlayerKind = std::int16_t;
inline constexpr PlayerKind userKind = 0;
inline constexpr PlayerKind computerA = 1;
inline constexpr PlayerKind computerB = 2;
inline constexpr PlayerKind aKnowsB = 3;
inline constexpr PlayerKind bKnowsA = 4;

inline constexpr bool isAFamily(PlayerKind kind) {
    return kind == computerA || kind == aKnowsB;
}

// Game-end codes, as held in gameResult.
using GameCode = std::int16_t;
inline constexpr GameCode blackWon = 1;
inline constexpr GameCode whiteWon = -1;
inline constexpr GameCode gameDrawn = 0;
inline constexpr GameCode gameOpen = 2;

// 16-bit flags: 0 false, -1 true.
using Flag = std::int16_t;
inline constexpr Flag flagFalse = 0;
inline constexpr Flag flagTrue = -1;

// Scores and values: 32-bit signed, always from black's point of view.
using Score = std::int32_t;
inline constexpr Score scoreInfinity = 2147483647;  // +-scoreInfinity is a node's starting best

// Rounds to the nearest whole number, ties to even (the default rounding mode).
inline constexpr double roundHalfEven(double v) {
    auto floored = static_cast<std::int64_t>(v);
    if (static_cast<double>(floored) > v) --floored;  // truncation went up for negatives
    const double frac = v - static_cast<double>(floored);
    if (frac > 0.5 || (frac == 0.5 && floored % 2 != 0)) ++floored;
    return static_cast<double>(floored);
}

// A score at or beyond winScore in magnitude means a five stands on the board;
// at or beyond sureScore, the side to move at a leaf holds a four.
inline constexpr Score winScore = static_cast<Score>(roundHalfEven(2147483647.0 / 20 / 10));
inline constexpr Score sureScore = static_cast<Score>(roundHalfEven(winScore / 10.0));
static_assert(winScore == 10737418 && sureScore == 1073742);

// Board geometry.
inline constexpr int boardSize = 15;
inline constexpr int lineLength = 5;
inline constexpr int lineCount = 572;
inline constexpr int maxStones = boardSize * boardSize;  // 225

struct Point {
    std::int16_t x = 0;  // column from the left, 1..15
    std::int16_t y = 0;  // row from the top, 1..15
    friend constexpr bool operator==(Point, Point) = default;
};

inline constexpr bool onBoard(int x, int y) {
    return x >= 1 && x <= boardSize && y >= 1 && y <= boardSize;
}

}  // namespace quintline

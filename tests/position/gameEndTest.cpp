// When a committed stone ends the game, and the colour of a move number.

#include <gtest/gtest.h>

#include "position/basicOpr.h"

namespace quintline {
namespace {

void put(Position& pos, int x, int y, Side side) {
    placeStone(pos, static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), side);
}

// Columns in pairs, shifted by one on each row, on every point `skip` does not
// name: no colour has four in a row, and on a full board every line holds both.
int fill(Position& pos, auto skip) {
    int stones = 0;
    for (int x = 1; x <= boardSize; ++x)
        for (int y = 1; y <= boardSize; ++y)
            if (!skip(x, y)) put(pos, x, y, ((x / 2) + y) % 2 == 0 ? black : white), ++stones;
    return stones;
}

TEST(GameEnd, FivesOfTheMoverFromTheNinthStone) {
    Position pos;
    for (int y = 4; y <= 8; ++y) put(pos, 10, y, black);
    for (int y = 4; y <= 8; ++y) put(pos, 2, y, white);
    // Nothing is looked at before stone 9; only the mover's colour, on the lines
    // through its stone, can win.
    EXPECT_EQ(gameEndTest(pos, 9, 10, 8, black), blackWon);
    EXPECT_EQ(gameEndTest(pos, 8, 10, 8, black), gameOpen);
    EXPECT_EQ(gameEndTest(pos, 10, 2, 8, white), whiteWon);
    EXPECT_EQ(gameEndTest(pos, 10, 2, 8, black), gameOpen);
    put(pos, 14, 14, white);
    EXPECT_EQ(gameEndTest(pos, 11, 14, 14, white), gameOpen);

    // A stone joining two runs into seven raises three lines to five.
    Position seven;
    for (int k : {4, 5, 6, 8, 9, 10, 7}) put(seven, k, k, white);
    EXPECT_EQ(seven.census(white, 5), 3);
    EXPECT_EQ(gameEndTest(seven, 13, 7, 7, white), whiteWon);
}

TEST(GameEnd, DrawsWhenNoLineIsOpenOrTheBoardIsFull) {
    Position full, winning, gaps, held, open;
    fill(full, [](int x, int y) { return x == 8 && y == 8; });
    put(full, 8, 8, black);
    EXPECT_EQ(gameEndTest(full, 225, 8, 8, black), gameDrawn);

    // The 225th stone makes five: the win goes before the full board.
    fill(winning, [](int x, int y) { return y == 1 && x <= 5; });
    for (int x = 1; x <= 5; ++x) put(winning, x, 1, black);
    EXPECT_EQ(gameEndTest(winning, 225, 5, 1, black), blackWon);

    // Every line holds both colours, though every fourth row is a third empty.
    const int stones = fill(gaps, [](int x, int y) { return y % 4 == 1 && x % 3 == 0; });
    EXPECT_EQ(gameEndTest(gaps, static_cast<std::int16_t>(stones), 1, 2, black), gameDrawn);

    // One line, (10, 6) to (6, 10), holds white stones alone: the game goes on.
    fill(held, [](int x, int y) { return (x == 8 && y == 8) || (x == 7 && y == 9); });
    EXPECT_EQ(gameEndTest(held, 223, 6, 10, white), gameOpen);

    // Open lines left: the game goes on until the 225th stone.
    fill(open, [](int, int y) { return y > 10; });
    EXPECT_EQ(gameEndTest(open, 224, 1, 10, black), gameOpen);
    EXPECT_EQ(gameEndTest(open, 225, 1, 10, black), gameDrawn);

    for (auto [n, side] : {std::pair<std::int16_t, Side>{1, black}, {2, white}, {0, white}})
        EXPECT_EQ(sideToMove(n), side) << n;
}

}  // namespace
}  // namespace quintline

// When a committed stone ends the game, and the colour of a move number.

#include <gtest/gtest.h>

#include "position/basicOpr.h"

namespace quintline {
namespace {

// A full board with no five and no run of four in any direction: columns in
// pairs, shifted by one on each row. Black has 113 points, white 112.
Side drawnPattern(int x, int y) {
    return ((x / 2) + y) % 2 == 0 ? black : white;
}

void put(Position& pos, int x, int y, Side side) {
    placeStone(pos, static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), side);
}

int openLines(const Position& pos) {
    int open = 0;
    for (int id = 1; id <= lineCount; ++id)
        if (pos.lineStones[0][id] == 0 || pos.lineStones[2][id] == 0) ++open;
    return open;
}

TEST(GameEnd, NoLineIsLookedAtBeforeTheNinthStone) {
    Position pos;
    for (int x = 3; x <= 7; ++x) put(pos, x, 3, black);
    for (int x = 3; x <= 5; ++x) put(pos, x, 9, white);
    ASSERT_EQ(pos.census(black, 5), 1);
    EXPECT_EQ(gameEndTest(pos, 8, 7, 3, black), gameOpen);
    EXPECT_EQ(gameEndTest(pos, 9, 7, 3, black), blackWon);
}

TEST(GameEnd, FivesAndSixesOfTheMover) {
    Position pos;
    // Black's fifth stone, the ninth in all, closes a vertical five.
    for (int y = 4; y <= 7; ++y) put(pos, 10, y, black);
    for (int y = 4; y <= 7; ++y) put(pos, 2, y, white);
    put(pos, 10, 8, black);
    EXPECT_EQ(gameEndTest(pos, 9, 10, 8, black), blackWon);
    // The same stone judged before it is counted in stepNum is not looked at.
    EXPECT_EQ(gameEndTest(pos, 8, 10, 8, black), gameOpen);

    // Only the mover's colour is judged: a black five elsewhere does not end a
    // white move.
    put(pos, 2, 8, white);
    EXPECT_EQ(gameEndTest(pos, 10, 2, 8, white), whiteWon);
    EXPECT_EQ(gameEndTest(pos, 10, 2, 8, black), gameOpen);
    put(pos, 14, 14, white);
    EXPECT_EQ(gameEndTest(pos, 11, 14, 14, white), gameOpen);

    // A stone joining two runs into seven on a diagonal.
    Position six;
    for (int k : {1, 2, 3, 5, 6, 7}) put(six, k + 3, k + 3, white);
    for (int k : {1, 2, 3, 4, 5}) put(six, k, 14, black);
    put(six, 7, 7, white);
    EXPECT_EQ(six.census(white, 5), 3);
    EXPECT_EQ(gameEndTest(six, 13, 7, 7, white), whiteWon);
}

TEST(GameEnd, FullBoardAndDrawWithPointsLeft) {
    Position pos;
    int stones = 0;
    for (int x = 1; x <= boardSize; ++x)
        for (int y = 1; y <= boardSize; ++y)
            if (!(x == 8 && y == 8)) {
                put(pos, x, y, drawnPattern(x, y));
                ++stones;
            }
    ASSERT_EQ(stones, 224);
    ASSERT_EQ(drawnPattern(8, 8), black);
    ASSERT_EQ(pos.census(black, 5) + pos.census(white, 5), 0);
    Position full = pos;
    put(full, 8, 8, black);
    EXPECT_EQ(gameEndTest(full, 225, 8, 8, black), gameDrawn);

    // The last stone makes five: the win goes before the full board.
    Position winning;
    for (int x = 1; x <= boardSize; ++x)
        for (int y = 1; y <= boardSize; ++y)
            if (!(x == 5 && y == 1))
                put(winning, x, y, y == 1 && x <= 4 ? black : drawnPattern(x, y));
    put(winning, 5, 1, black);
    EXPECT_EQ(gameEndTest(winning, 225, 5, 1, black), blackWon);

    // With one point left every line is already opposed: a draw before the end.
    ASSERT_EQ(openLines(pos), 0);
    EXPECT_EQ(gameEndTest(pos, 224, 7, 8, white), gameDrawn);
    // Open lines left: the game goes on until the 225th stone.
    Position open;
    for (int x = 1; x <= boardSize; ++x)
        for (int y = 1; y <= 10; ++y) put(open, x, y, drawnPattern(x, y));
    ASSERT_GT(openLines(open), 0);
    EXPECT_EQ(gameEndTest(open, 150, 1, 10, drawnPattern(1, 10)), gameOpen);
    EXPECT_EQ(gameEndTest(open, 224, 1, 10, drawnPattern(1, 10)), gameOpen);
    EXPECT_EQ(gameEndTest(open, 225, 1, 10, drawnPattern(1, 10)), gameDrawn);
}

TEST(GameEnd, DrawWithAllLinesOpposedAndManyPointsEmpty) {
    // Every other point of the pattern's odd rows is left empty; each line still
    // holds both colours.
    Position pos;
    int stones = 0;
    for (int x = 1; x <= boardSize; ++x)
        for (int y = 1; y <= boardSize; ++y)
            if (y % 4 != 1 || x % 3 != 0) {
                put(pos, x, y, drawnPattern(x, y));
                ++stones;
            }
    ASSERT_LT(stones, 225);
    ASSERT_EQ(openLines(pos), 0);
    EXPECT_EQ(gameEndTest(pos, static_cast<std::int16_t>(stones), 1, 1, drawnPattern(1, 1)),
              gameDrawn);
}

TEST(SideToMove, OddNumbersAreBlack) {
    EXPECT_EQ(sideToMove(1), black);
    EXPECT_EQ(sideToMove(2), white);
    EXPECT_EQ(sideToMove(0), white);
    EXPECT_EQ(sideToMove(225), black);
    EXPECT_EQ(sideToMove(224), white);
}

}  // namespace
}  // namespace quintline

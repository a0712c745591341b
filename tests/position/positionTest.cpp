// The position model: the numbering of the 572 lines, the counts kept by
// placing and removing stones, and when a committed stone ends the game.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <random>
#include <vector>

#include "position/basicOpr.h"

namespace quintline {
namespace {

std::vector<int> idsAt(int x, int y) {
    std::vector<int> ids;
    for (int n = 1; n <= pointLines().count(x, y); ++n) ids.push_back(pointLines().id(x, y, n));
    return ids;
}

TEST(LineTable, LinesListsAndCounts) {
    std::array<int, lineCount + 1> uses{};
    for (int x = 0; x <= boardSize; ++x)
        for (int y = 0; y <= boardSize; ++y)
            for (int id : idsAt(x, y)) ++uses[static_cast<std::size_t>(id)];
    EXPECT_EQ(uses[0], 0);
    for (int id = 1; id <= lineCount; ++id) EXPECT_EQ(uses[id], lineLength) << "line " << id;

    // The lists keep the order of generation; with five uses per id, they place
    // lines of all four directions, from both edges and from the middle.
    using Ids = std::vector<int>;
    EXPECT_EQ(idsAt(15, 1), (Ids{452, 11, 320}));
    EXPECT_EQ(idsAt(3, 3), (Ids{331, 23, 343, 24, 188, 189, 25, 190, 355, 462}));
    EXPECT_EQ(idsAt(8, 8), (Ids{367, 488, 81,  379, 500, 82,  391, 512, 83,  403,
                                524, 84,  246, 247, 248, 249, 85,  250, 415, 536}));
}

// Long random sequences of places and removes agree with a recount after every
// step, and taking everything back in any order restores the empty position.
TEST(Census, RandomPlacesAndRemovesMatchARecount) {
    struct Stone {
        std::int16_t x, y;
        Side side;
    };
    std::mt19937 rng(20240611);
    for (int game = 0; game < 40; ++game) {
        Position pos;
        std::vector<Stone> stones;
        for (int step = 0; step < 40 + game * 10; ++step) {
            if (!stones.empty() && (rng() % 3 == 0 || stones.size() > 200)) {
                const std::size_t i = rng() % stones.size();
                removeStone(pos, stones[i].x, stones[i].y, stones[i].side);
                stones.erase(stones.begin() + static_cast<std::ptrdiff_t>(i));
            } else {
                Stone st;
                do {
                    st.x = static_cast<std::int16_t>(1 + rng() % boardSize);
                    st.y = static_cast<std::int16_t>(1 + rng() % boardSize);
                } while (pos.board[st.x][st.y] != empty);
                st.side = rng() % 2 ? black : white;
                placeStone(pos, st.x, st.y, st.side);
                stones.push_back(st);
            }
            ASSERT_TRUE(censusOk(pos)) << "game " << game << " step " << step;
        }
        // The recount notices any corrupted table, so the check above can be trusted.
        for (std::int16_t* entry : {&pos.lineStones[2][40], &pos.lineCensus[0][1],
                                    &pos.nearCount[16][16], &pos.board[1][1], &pos.lineCode[40],
                                    reinterpret_cast<std::int16_t*>(&pos.occupied[3])}) {
            ++*entry;
            EXPECT_FALSE(censusOk(pos));
            --*entry;
        }
        std::shuffle(stones.begin(), stones.end(), rng);
        for (const Stone& st : stones) removeStone(pos, st.x, st.y, st.side);
        const Position blank;
        EXPECT_EQ(std::memcmp(&pos, &blank, sizeof(Position)), 0);
    }
}

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

TEST(GameEnd, FivesOfTheMoverFromTheNinthStoneAndDraws) {
    Position pos, seven, full, winning, gaps, held, open;
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
    for (int k : {4, 5, 6, 8, 9, 10, 7}) put(seven, k, k, white);
    EXPECT_EQ(seven.census(white, 5), 3);
    EXPECT_EQ(gameEndTest(seven, 13, 7, 7, white), whiteWon);

    // Draws when no line is open or the board is full.
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
}

}  // namespace
}  // namespace quintline

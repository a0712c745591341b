// Placing and removing stones: the counts against a recount after long random
// sequences, exact restore, and a few counts worked out by hand.

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <vector>

#include "position/basicOpr.h"

namespace quintline {
namespace {

bool sameTables(const Position& a, const Position& b) {
    return std::memcmp(&a, &b, sizeof(Position)) == 0;
}

TEST(Census, CountsWorkedOutByHand) {
    Position pos;
    for (std::int16_t x = 4; x <= 7; ++x) placeStone(pos, x, 8, black);
    // Fours on (3..7, 8) and (4..8, 8), threes on (2..6, 8) and (5..9, 8).
    EXPECT_EQ(pos.census(black, 4), 2);
    EXPECT_EQ(pos.census(black, 3), 2);
    EXPECT_EQ(pos.nearCount[3][7], 1);
    EXPECT_EQ(pos.nearCount[5][9], 3);
    placeStone(pos, 8, 8, white);
    EXPECT_EQ(pos.census(black, 4), 1);  // only (3..7, 8) is left
    EXPECT_EQ(pos.census(white, 1), pointLines().count(8, 8) - 4);

    // The recount notices any corrupted table, so the random test can trust it.
    ASSERT_TRUE(censusOk(pos));
    for (std::int16_t* entry :
         {&pos.lineStones[2][40], &pos.lineCensus[0][1], &pos.nearCount[16][16], &pos.board[1][1],
          &pos.lineCode[40], reinterpret_cast<std::int16_t*>(&pos.occupied[3])}) {
        ++*entry;
        EXPECT_FALSE(censusOk(pos));
        --*entry;
    }
}

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
        // Taking everything back, in any order, leaves the empty position.
        std::shuffle(stones.begin(), stones.end(), rng);
        for (const Stone& st : stones) removeStone(pos, st.x, st.y, st.side);
        EXPECT_TRUE(sameTables(pos, Position{}));
    }
}

}  // namespace
}  // namespace quintline

// Placing and removing stones: the census bookkeeping against cases worked out
// by hand, and against a recount after long random sequences.

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

TEST(Census, CasesWorkedOutByHand) {
    Position pos;
    placeStone(pos, 1, 1, black);
    EXPECT_EQ(pos.census(black, 1), 3);
    // Three board points and five rim entries get a neighbour; the point itself none.
    EXPECT_EQ(pos.nearCount[1][1], 0);
    for (auto [x, y] : {std::pair{2, 1}, {1, 2}, {2, 2}, {0, 0}, {0, 1}, {0, 2}, {1, 0}, {2, 0}})
        EXPECT_EQ(pos.nearCount[x][y], 1) << x << "," << y;

    const Position beforeWhite = pos;
    placeStone(pos, 2, 2, white);
    EXPECT_EQ(pos.census(black, 1), 2);  // line 331 is opposed now
    EXPECT_EQ(pos.census(white, 1), pointLines().count(2, 2) - 1);
    removeStone(pos, 2, 2, white);  // gives line 331 back to black
    EXPECT_TRUE(sameTables(pos, beforeWhite));

    // A line moves from entry 3 to 4 and leaves the census when opposed.
    pos.clear();
    for (std::int16_t x = 4; x <= 7; ++x) placeStone(pos, x, 8, black);
    // Fours on (3..7, 8) and (4..8, 8), threes on (2..6, 8) and (5..9, 8).
    EXPECT_EQ(pos.census(black, 4), 2);
    EXPECT_EQ(pos.census(black, 3), 2);
    const Position withFour = pos;

    placeStone(pos, 8, 8, white);
    EXPECT_EQ(pos.census(black, 4), 1);  // only (3..7, 8) is left
    EXPECT_EQ(pos.census(white, 1), pointLines().count(8, 8) - 4);
    removeStone(pos, 8, 8, white);
    EXPECT_TRUE(sameTables(pos, withFour));

    // The recount notices a corrupted table, so the random test below can trust it.
    ASSERT_TRUE(censusOk(pos));
    auto corrupt = [&pos](auto& entry) {
        ++entry;
        EXPECT_FALSE(censusOk(pos));
        --entry;
    };
    corrupt(pos.lineStones[2][40]);
    corrupt(pos.lineCensus[0][1]);
    corrupt(pos.nearCount[16][16]);
    corrupt(pos.board[1][1]);
    corrupt(pos.occupied[3]);
    corrupt(pos.lineCode[40]);
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
            // Every table, unused entries included, is a function of the board,
            // so a stone taken back restores them byte for byte.
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

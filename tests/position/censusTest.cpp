// Placing and removing stones: the census bookkeeping against the cases worked
// out by hand, and against a recount after long random sequences.

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

// Id of the horizontal line whose left point is (i, j).
int horizontal(int i, int j) {
    return (j - 1) * 11 + i;
}

TEST(Census, CornerStoneThenAWhiteStoneBeside) {
    Position pos;
    placeStone(pos, 1, 1, black);
    for (int id : {1, 166, 331}) EXPECT_EQ(pos.lineStones[2][id], 1) << id;
    EXPECT_EQ(pos.census(black, 1), 3);
    EXPECT_EQ(pos.census(white, 1), 0);
    // Three board points and five rim entries get a neighbour; the point itself none.
    EXPECT_EQ(pos.nearCount[1][1], 0);
    for (auto [x, y] : {std::pair{2, 1}, {1, 2}, {2, 2}, {0, 0}, {0, 1}, {0, 2}, {1, 0}, {2, 0}})
        EXPECT_EQ(pos.nearCount[x][y], 1) << x << "," << y;
    int touched = 0;
    for (auto& column : pos.nearCount)
        for (std::int16_t n : column) touched += n;
    EXPECT_EQ(touched, 8);
    EXPECT_TRUE(censusOk(pos));

    Position beforeWhite = pos;
    placeStone(pos, 2, 2, white);
    EXPECT_EQ(pos.lineStones[0][331], 1);
    EXPECT_EQ(pos.lineStones[2][331], 1);
    EXPECT_EQ(pos.census(black, 1), 2);  // line 331 is opposed now
    // (2,2) lies on 6 lines; all but 331 hold no black stone.
    EXPECT_EQ(pos.census(white, 1), pointLines().count(2, 2) - 1);
    EXPECT_TRUE(censusOk(pos));

    removeStone(pos, 2, 2, white);
    EXPECT_EQ(pos.census(black, 1), 3);
    EXPECT_EQ(pos.census(white, 1), 0);
    EXPECT_TRUE(sameTables(pos, beforeWhite));
}

TEST(Census, LineMovesBetweenEntriesAndLeavesWhenOpposed) {
    Position pos;
    const int line = horizontal(4, 8);  // (4,8) .. (8,8)
    for (int x = 4; x <= 6; ++x) placeStone(pos, static_cast<std::int16_t>(x), 8, black);
    EXPECT_EQ(pos.lineStones[2][line], 3);
    const int threes = pos.census(black, 3);
    const int fours = pos.census(black, 4);
    placeStone(pos, 7, 8, black);
    EXPECT_EQ(pos.census(black, 4), fours + 2);   // lines (3..7,8) and (4..8,8)
    EXPECT_EQ(pos.census(black, 3), threes - 1);  // two threes left, (5..9,8) came
    const Position withFour = pos;

    placeStone(pos, 8, 8, white);
    EXPECT_EQ(pos.lineStones[2][line], 4);
    EXPECT_EQ(pos.lineStones[0][line], 1);
    EXPECT_EQ(pos.census(black, 4), fours + 1);  // only (3..7,8) is left
    // Four lines of the row hold black; the other sixteen are white's now.
    EXPECT_EQ(pos.census(white, 1), pointLines().count(8, 8) - 4);
    EXPECT_TRUE(censusOk(pos));

    removeStone(pos, 8, 8, white);
    EXPECT_EQ(pos.census(black, 4), fours + 2);
    EXPECT_TRUE(sameTables(pos, withFour));

    // A six raises several lines to five at once.
    placeStone(pos, 8, 8, black);
    placeStone(pos, 3, 8, black);
    placeStone(pos, 9, 8, black);
    EXPECT_EQ(pos.census(black, 5), 3);
    EXPECT_TRUE(censusOk(pos));
}

// A recount that disagrees with the tables is noticed, so the random test below
// can trust it.
TEST(Census, RecountNoticesACorruptedTable) {
    Position pos;
    placeStone(pos, 8, 8, black);
    placeStone(pos, 9, 8, white);
    ASSERT_TRUE(censusOk(pos));
    for (int which = 0; which < 6; ++which) {
        Position bad = pos;
        switch (which) {
            case 0:
                ++bad.lineStones[2][horizontal(4, 8)];
                break;
            case 1:
                --bad.lineCensus[0][1];
                break;
            case 2:
                ++bad.nearCount[16][16];
                break;
            default:
                bad.board[1][1] = black;
                break;
        }
        EXPECT_FALSE(censusOk(bad)) << "corruption " << which;
    }
}

struct Stone {
    std::int16_t x, y;
    Side side;
};

TEST(Census, RandomPlacesAndRemovesMatchARecount) {
    std::mt19937 rng(20240611);
    for (int game = 0; game < 40; ++game) {
        Position pos;
        std::vector<Stone> stones;
        const int steps = 40 + game * 10;
        for (int step = 0; step < steps; ++step) {
            const bool remove = !stones.empty() && (rng() % 3 == 0 || stones.size() > 200);
            if (remove) {
                const std::size_t i = rng() % stones.size();
                const Stone st = stones[i];
                stones.erase(stones.begin() + static_cast<std::ptrdiff_t>(i));
                removeStone(pos, st.x, st.y, st.side);
            } else {
                Stone st;
                do {
                    st.x = static_cast<std::int16_t>(1 + rng() % boardSize);
                    st.y = static_cast<std::int16_t>(1 + rng() % boardSize);
                } while (pos.board[st.x][st.y] != empty);
                st.side = rng() % 2 ? black : white;
                // Place then remove must restore every table byte for byte.
                const Position before = pos;
                placeStone(pos, st.x, st.y, st.side);
                removeStone(pos, st.x, st.y, st.side);
                ASSERT_TRUE(sameTables(pos, before));
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

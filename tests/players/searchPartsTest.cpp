// The pieces the fast searches are built from, each against the plain way of
// getting the same answer: candidates against the neighbour counts, leaf scores
// against placing the stone, windowed values against the literal search.

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "players/candidates.h"
#include "players/leafScore.h"
#include "players/playerA.h"
#include "players/playerB.h"
#include "players/windowSearch.h"
#include "reference/literalSearches.h"
#include "support/positionBuilder.h"

namespace quintline {
namespace {

// Random positions from empty to crowded, stones anywhere (edges and corners
// included), so that fours and fives of both colours occur.
SearchState randomPosition(std::mt19937& rng, int stones) {
    SearchState s;
    for (int n = 0; n < stones; ++n) {
        std::int16_t x, y;
        do {
            x = static_cast<std::int16_t>(1 + rng() % boardSize);
            y = static_cast<std::int16_t>(1 + rng() % boardSize);
        } while (s.position.board[x][y] != empty);
        placeStone(s.position, x, y, n % 2 == 0 ? black : white);
    }
    s.stepNum = static_cast<std::int16_t>(stones);
    return s;
}

TEST(Candidates, ExactlyTheEmptyPointsBesideAStoneInScanOrder) {
    std::mt19937 rng(5);
    for (int stones : {0, 1, 2, 5, 20, 60, 120, 200, 224, 225}) {
        for (int trial = 0; trial < 10; ++trial) {
            const SearchState s = randomPosition(rng, stones);
            std::vector<Point> expected;
            for (std::int16_t x = 1; x <= boardSize; ++x)
                for (std::int16_t y = 1; y <= boardSize; ++y)
                    if (s.position.nearCount[x][y] >= 1 && s.position.board[x][y] == empty)
                        expected.push_back({x, y});
            CandidateList list;
            findCandidates(s.position, list);
            ASSERT_EQ(std::vector<Point>(list.points, list.points + list.count), expected)
                << stones << " stones";
            const CandidateSet set = findCandidates(s.position);
            EXPECT_EQ(set.count(), static_cast<int>(expected.size()));
            for (const Point p : expected) EXPECT_TRUE(set.contains(p));
        }
    }
    // A lone corner stone: exactly its three neighbours, none on the rim.
    SearchState corner = testing::stateWith({{15, 15, white}}, 1);
    CandidateList list;
    findCandidates(corner.position, list);
    EXPECT_EQ(std::vector<Point>(list.points, list.points + list.count),
              (std::vector<Point>{{14, 14}, {14, 15}, {15, 14}}));
}

template <class Eval>
void expectLeafScoresMatch(SearchState& s) {
    const CensusSummary summary = summarize<Eval>(s.position);
    for (std::int16_t x = 1; x <= boardSize; ++x)
        for (std::int16_t y = 1; y <= boardSize; ++y) {
            if (s.position.board[x][y] != empty) continue;
            for (Side side : {black, white})
                for (std::int16_t after : {s.stepNum, static_cast<std::int16_t>(s.stepNum + 1)}) {
                    const Score fast = leafScoreAfter<Eval>(s.position, summary, x, y, side, after);
                    Score placed;
                    {
                        TrialStone stone(s.position, x, y, side);
                        placed = Eval::score(s.position, after, 0);
                    }
                    ASSERT_EQ(fast, placed) << "(" << x << ", " << y << ") side " << side;
                }
        }
}

TEST(LeafScore, SameAsPlacingTheStoneForBothEvaluators) {
    std::mt19937 rng(17);
    for (int stones : {0, 1, 9, 30, 70, 110, 160, 210}) {
        SearchState s = randomPosition(rng, stones);
        expectLeafScoresMatch<EvaluatorA>(s);
        expectLeafScoresMatch<EvaluatorB>(s);
        if (HasFatalFailure()) return;
    }
    // Fours of both colours with an open fifth point, a five already standing.
    SearchState s = testing::stateWith({{3, 3, black},
                                        {4, 3, black},
                                        {5, 3, black},
                                        {6, 3, black},
                                        {3, 5, white},
                                        {4, 5, white},
                                        {5, 5, white},
                                        {6, 5, white},
                                        {9, 9, white},
                                        {10, 10, white},
                                        {11, 11, white},
                                        {12, 12, white},
                                        {13, 13, white}},
                                       13);
    expectLeafScoresMatch<EvaluatorA>(s);
    expectLeafScoresMatch<EvaluatorB>(s);
}

TEST(NoFiveWithin, CountsTheStonesEachSideStillPlaces) {
    using search::noFiveWithin;
    // Black (to move at 6 stones) holds three in a row; white a two.
    SearchState three = testing::stateWith({{5, 5, black},
                                            {6, 5, black},
                                            {7, 5, black},
                                            {5, 9, white},
                                            {6, 9, white},
                                            {12, 12, white}},
                                           6);
    const Position& p = three.position;
    EXPECT_TRUE(noFiveWithin(p, 6, 1));
    EXPECT_TRUE(noFiveWithin(p, 6, 2));   // black places one stone above the horizon
    EXPECT_TRUE(noFiveWithin(p, 6, 3));   // one each
    EXPECT_FALSE(noFiveWithin(p, 6, 4));  // black places two: the three can become five
    EXPECT_FALSE(noFiveWithin(p, 7, 5));  // white to move, black still places two

    SearchState four = testing::stateWith({{5, 5, black},
                                           {6, 5, black},
                                           {7, 5, black},
                                           {8, 5, black},
                                           {5, 9, white},
                                           {6, 9, white},
                                           {7, 9, white},
                                           {12, 12, white}},
                                          8);
    EXPECT_FALSE(noFiveWithin(four.position, 8, 2));  // black to move completes it
    EXPECT_TRUE(noFiveWithin(four.position, 9, 2));   // white to move: black never moves again
    EXPECT_FALSE(noFiveWithin(four.position, 9, 3));

    // A five on the board, or a board that fills up before the horizon.
    SearchState five = testing::stateWith(
        {{1, 1, white}, {1, 2, white}, {1, 3, white}, {1, 4, white}, {1, 5, white}}, 5);
    EXPECT_FALSE(noFiveWithin(five.position, 5, 2));
    SearchState lone = testing::stateWith({{8, 8, black}}, 1);
    EXPECT_TRUE(noFiveWithin(lone.position, 223, 2));
    EXPECT_FALSE(noFiveWithin(lone.position, 224, 2));
}

// The window contract against the exact value of the literal search:
//   r >= beta -> value >= beta;  r <= alpha -> value <= r;  otherwise r == value.
template <class Eval, Score (*literal)(SearchState&, std::int16_t, std::int16_t)>
void expectWindowContract(const SearchState& start, std::int16_t depth, std::mt19937& rng) {
    SearchState exact = start;
    const std::int16_t step = start.stepNum;
    const Side side = search::moverAt(step);
    const Score value = side * literal(exact, step, depth);
    const Score probes[] = {-scoreInfinity, value - 1000,  value - 1, value,    value + 1,
                            value + 1000,   sureScore - 1, sureScore, winScore, scoreInfinity};
    for (int trial = 0; trial < 12; ++trial) {
        Score alpha = probes[rng() % 10];
        Score beta = probes[rng() % 10];
        if (alpha >= beta) continue;
        SearchState s = start;
        // Any remembered point is only a hint, even one that is taken or far away.
        Point killer{static_cast<std::int16_t>(1 + rng() % boardSize),
                     static_cast<std::int16_t>(1 + rng() % boardSize)};
        const Score r =
            search::windowValue<search::PlainRules<Eval>>(s, step, depth, alpha, beta, &killer);
        const std::string where = "depth " + std::to_string(depth) + " window (" +
                                  std::to_string(alpha) + ", " + std::to_string(beta) + ") value " +
                                  std::to_string(value) + " result " + std::to_string(r);
        if (r >= beta)
            ASSERT_GE(value, beta) << where;
        else if (r <= alpha)
            ASSERT_LE(value, r) << where;
        else
            ASSERT_EQ(value, r) << where;
        ASSERT_EQ(std::memcmp(&s.position, &start.position, sizeof(Position)), 0) << where;
    }
}

TEST(WindowValue, KeepsItsContractAgainstTheLiteralValue) {
    std::mt19937 rng(99);
#ifdef NDEBUG
    const int positions = 60;
#else
    const int positions = 15;  // unoptimised builds run the literal search slowly
#endif
    for (int n = 0; n < positions; ++n) {
        // Compact clusters: threes and fours are common, trees stay small.
        SearchState s;
        const int stones = 3 + static_cast<int>(rng() % 12);
        for (int i = 0; i < stones; ++i) {
            std::int16_t x, y;
            do {
                x = static_cast<std::int16_t>(6 + rng() % 5);
                y = static_cast<std::int16_t>(6 + rng() % 5);
            } while (s.position.board[x][y] != empty);
            placeStone(s.position, x, y, i % 2 == 0 ? black : white);
        }
        s.stepNum = static_cast<std::int16_t>(stones);
        for (std::int16_t depth = 1; depth <= 3; ++depth) {
            expectWindowContract<EvaluatorA, reference::searchA>(s, depth, rng);
            expectWindowContract<EvaluatorB, reference::searchB>(s, depth, rng);
            if (HasFatalFailure()) return;
        }
    }
}

}  // namespace
}  // namespace quintline

// The production searches against the literal ones on many positions: random
// openings near the centre, stones scattered to the rim, positions from real
// games and fives outweighed by fours; every kind, depths 0 to 4. Root value or
// scores, root point, position tables and the stepNum left behind must agree.
//
// QUINTLINE_DIFF_SCALE multiplies the number of positions (default 1 in
// optimised builds, 0.08 in unoptimised ones such as the sanitizer build).

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "reference/literalSearches.h"
#include "support/gameRecords.h"

namespace quintline {
namespace {

int scaled(int count) {
#ifdef NDEBUG
    double scale = 1.0;
#else
    double scale = 0.08;
#endif
    if (const char* text = std::getenv("QUINTLINE_DIFF_SCALE")) scale = std::atof(text);
    return std::max(1, static_cast<int>(count * scale));
}

struct Sample {
    SearchState state;
    std::string label;
};

std::int16_t pick(std::mt19937& rng, int low, int size) {
    return static_cast<std::int16_t>(low + static_cast<int>(rng() % static_cast<unsigned>(size)));
}

// Positions of 1 to `maxStones` stones inside the centre square of side `box`,
// each stone beside an earlier one unless `scattered`.
std::vector<Sample> randomPositions(int count, std::uint32_t seed, int maxStones, int box,
                                    bool scattered = false) {
    std::mt19937 rng(seed);
    std::vector<Sample> samples(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        SearchState& s = samples[i].state;
        const int stones = 1 + pick(rng, 0, maxStones);
        for (int n = 0; n < stones; ++n) {
            std::int16_t x, y;
            do {
                x = pick(rng, 8 - box / 2, box);
                y = pick(rng, 8 - box / 2, box);
            } while (s.position.board[x][y] != empty ||
                     (n > 0 && !scattered && s.position.nearCount[x][y] == 0));
            placeStone(s.position, x, y, n % 2 == 0 ? black : white);
        }
        s.stepNum = static_cast<std::int16_t>(stones);
        samples[i].label = "random " + std::to_string(seed) + "/" + std::to_string(i);
    }
    return samples;
}

// Prefixes of real games, from a few moves to the finished game (a five on the board).
std::vector<Sample> gamePositions(int count, std::uint32_t seed) {
    static const std::vector<testing::GameRecord> games = testing::loadGameRecords();
    std::vector<Sample> samples;
    std::mt19937 rng(seed);
    for (int i = 0; i < count && !games.empty(); ++i) {
        const std::size_t g = rng() % games.size();
        const std::size_t k = 1 + rng() % games[g].moves.size();
        samples.push_back({testing::positionAfter(games[g], k),
                           "game " + std::to_string(g) + " after " + std::to_string(k)});
    }
    return samples;
}

// A five of one colour outweighed, for evalA, by a block of fours of the other:
// one evaluator sees a finished game and the other does not, so the searches
// go on past a five.
std::vector<Sample> outweighedFives(int count, std::uint32_t seed) {
    std::mt19937 rng(seed);
    std::vector<Sample> samples(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        SearchState& s = samples[i].state;
        const Side fiveSide = i % 2 == 0 ? black : white;
        const std::int16_t row = pick(rng, 1, 2), from = pick(rng, 1, 4);
        for (int k = 0; k < 5; ++k)
            placeStone(s.position, static_cast<std::int16_t>(from + k), row, fiveSide);
        const std::int16_t bx = pick(rng, 4, 6), by = pick(rng, 6, 5);
        for (int k = 0; k < 16; ++k)
            placeStone(s.position, static_cast<std::int16_t>(bx + k / 4),
                       static_cast<std::int16_t>(by + k % 4), static_cast<Side>(-fiveSide));
        s.stepNum = static_cast<std::int16_t>(21 + i % 2);  // both colours to move
        EXPECT_LT(std::abs(evalA(s.position, s.stepNum, 1)), winScore);
        samples[i].label = "outweighed five " + std::to_string(i);
    }
    return samples;
}

nodeScores run(const SearchSet& set, PlayerKind kind, SearchState& s, std::int16_t depth) {
    const std::int16_t step = s.stepNum;
    switch (kind) {
        case computerA:
            return {0, set.searchA(s, step, depth), 0};
        case computerB:
            return {0, set.searchB(s, step, depth), 0};
        case aKnowsB:
            return set.searchAKnowsB(s, step, depth);
        default:
            return set.searchBKnowsA(s, step, depth);
    }
}

// Runs one kind both ways and compares everything a caller can see. The
// modeller is seated on the colour to move unless `seats` says otherwise.
void compare(const Sample& sample, PlayerKind kind, std::int16_t depth,
             const PlayerKind* seats = nullptr) {
    SearchState fast = sample.state;
    const std::int16_t step = fast.stepNum;
    const bool blackMoves = (step / 2) * 2 == step;
    const PlayerKind opponent = kind == aKnowsB ? computerB : computerA;
    fast.blackSide = seats ? seats[0] : blackMoves ? kind : opponent;
    fast.whiteSide = seats ? seats[1] : blackMoves ? opponent : kind;
    for (std::size_t i = 0; i < fast.bestX.size(); ++i) {
        fast.bestX[i] = static_cast<std::int16_t>(100 + i);
        fast.bestY[i] = static_cast<std::int16_t>(300 + i);
    }
    SearchState literal = fast;
    const std::string where = sample.label + ", kind " + std::to_string(kind) + ", seats " +
                              std::to_string(fast.blackSide) + std::to_string(fast.whiteSide) +
                              ", depth " + std::to_string(depth) + ", step " + std::to_string(step);
    const nodeScores expected = run(reference::literalSearchSet(), kind, literal, depth);
    const nodeScores got = run(SearchSet{}, kind, fast, depth);
    ASSERT_EQ(got.ownScore, expected.ownScore) << where;
    ASSERT_EQ(got.modelScore, expected.modelScore) << where;
    ASSERT_EQ(got.spare, 0) << where;
    ASSERT_EQ(fast.bestX[step], literal.bestX[step]) << where;
    ASSERT_EQ(fast.bestY[step], literal.bestY[step]) << where;
    ASSERT_EQ(fast.stepNum, literal.stepNum) << where;
    ASSERT_EQ(std::memcmp(&fast.position, &sample.state.position, sizeof(Position)), 0) << where;
}

void compareAll(PlayerKind kind, std::uint32_t seed) {
    ASSERT_FALSE(gamePositions(1, 0).empty()) << "no games at " << testing::gameRecordsPath();
    struct Batch {
        std::vector<Sample> samples;
        std::int16_t fromDepth, toDepth;
    };
    const Batch batches[] = {
        {randomPositions(scaled(500), seed, 16, 9), 1, 2},
        {gamePositions(scaled(500), seed + 1), 1, 2},
        {randomPositions(scaled(150), seed + 2, 200, 15, true), 1, 2},
        {randomPositions(scaled(150), seed + 3, 16, 9), 3, 3},
        {gamePositions(scaled(60), seed + 4), 3, 3},
        {outweighedFives(scaled(16), seed + 5), 1, 3},
        // Compact clusters keep the literal depth-4 trees small and often hold
        // threes and fours, where the last line of play can end early.
        {randomPositions(scaled(40), seed + 6, 12, 5), 4, 4},
        // Roots that are leaves, and the empty board, where nothing is searched.
        {gamePositions(20, seed + 7), 0, 0},
        {{{SearchState{}, "empty board"}}, 0, 2},
    };
    for (const Batch& batch : batches)
        for (const Sample& sample : batch.samples)
            for (std::int16_t depth = batch.fromDepth; depth <= batch.toDepth; ++depth) {
                compare(sample, kind, depth);
                if (::testing::Test::HasFatalFailure()) return;
            }
    if (kind == computerA || kind == computerB) return;
    // Seats callers never set up: the knowing kind on both colours, on neither,
    // or waiting at the root. The node-by-node results still hold.
    const PlayerKind seats[][2] = {{aKnowsB, aKnowsB},     {bKnowsA, bKnowsA},
                                   {computerA, computerB}, {userKind, userKind},
                                   {computerB, aKnowsB},   {bKnowsA, computerA}};
    for (const Sample& sample : randomPositions(scaled(60), seed + 8, 12, 5))
        for (const auto& seat : seats)
            for (std::int16_t depth = 1; depth <= 2; ++depth) {
                compare(sample, kind, depth, seat);
                if (::testing::Test::HasFatalFailure()) return;
            }
}

TEST(SearchDifferential, ComputerA) {
    compareAll(computerA, 1000);
}
TEST(SearchDifferential, ComputerB) {
    compareAll(computerB, 2000);
}
TEST(SearchDifferential, AKnowsB) {
    compareAll(aKnowsB, 3000);
}
TEST(SearchDifferential, BKnowsA) {
    compareAll(bKnowsA, 4000);
}

}  // namespace
}  // namespace quintline

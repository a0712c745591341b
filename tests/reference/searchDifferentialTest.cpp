// The production searches against the literal ones on many positions: random
// openings near the centre and positions from real games, every kind, depths 1
// to 3 (4 on fewer positions). Root value or scores, root point, position tables
// and the stepNum left behind must all agree.
//
// QUINTLINE_DIFF_SCALE multiplies the number of positions (default 1 in
// optimised builds, 0.08 in unoptimised ones such as the sanitizer build).

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "players/searchSet.h"
#include "reference/literalSearches.h"
#include "support/gameRecords.h"

namespace quintline {
namespace {

double sampleScale() {
    if (const char* text = std::getenv("QUINTLINE_DIFF_SCALE")) return std::atof(text);
#ifdef NDEBUG
    return 1.0;
#else
    return 0.08;
#endif
}

int scaled(int count) {
    const int n = static_cast<int>(count * sampleScale());
    return n < 1 ? 1 : n;
}

struct Sample {
    SearchState state;
    std::string label;
};

// Openings of 1 to `maxStones` stones, each beside an earlier one, inside the
// centre square of side `box`.
std::vector<Sample> randomOpenings(int count, std::uint32_t seed, int maxStones = 16, int box = 9) {
    std::mt19937 rng(seed);
    std::vector<Sample> samples;
    for (int i = 0; i < count; ++i) {
        Sample sample;
        SearchState& s = sample.state;
        const int stones = 1 + static_cast<int>(rng() % static_cast<unsigned>(maxStones));
        const int low = 8 - box / 2;
        for (int n = 0; n < stones; ++n) {
            std::int16_t x, y;
            do {
                x = static_cast<std::int16_t>(low +
                                              static_cast<int>(rng() % static_cast<unsigned>(box)));
                y = static_cast<std::int16_t>(low +
                                              static_cast<int>(rng() % static_cast<unsigned>(box)));
            } while (s.position.board[x][y] != empty || (n > 0 && s.position.nearCount[x][y] == 0));
            placeStone(s.position, x, y, n % 2 == 0 ? black : white);
        }
        s.stepNum = static_cast<std::int16_t>(stones);
        sample.label = "opening " + std::to_string(i);
        samples.push_back(sample);
    }
    return samples;
}

// Prefixes of real games, from a few moves to the finished game (a five on the board).
std::vector<Sample> gamePositions(int count, std::uint32_t seed, std::size_t maxStones = 225) {
    static const std::vector<testing::GameRecord> games = testing::loadGameRecords();
    std::vector<Sample> samples;
    if (games.empty()) return samples;
    std::mt19937 rng(seed);
    for (int i = 0; i < count; ++i) {
        const std::size_t g = rng() % games.size();
        std::size_t length = games[g].moves.size();
        if (length > maxStones) length = maxStones;
        const std::size_t k = 1 + rng() % length;
        samples.push_back({testing::positionAfter(games[g], k),
                           "game " + std::to_string(g) + " after " + std::to_string(k)});
    }
    return samples;
}

void markChoices(SearchState& s) {
    for (std::size_t i = 0; i < s.bestX.size(); ++i) {
        s.bestX[i] = static_cast<std::int16_t>(100 + i);
        s.bestY[i] = static_cast<std::int16_t>(300 + i);
    }
}

// Runs one kind on both sides and compares everything a caller can see.
void compareKind(const Sample& sample, PlayerKind kind, std::int16_t depth) {
    SearchState fast = sample.state;
    const std::int16_t step = fast.stepNum;
    if (kind == aKnowsB || kind == bKnowsA) {
        const PlayerKind opponent = kind == aKnowsB ? computerB : computerA;
        const bool blackMoves = (step / 2) * 2 == step;
        fast.blackSide = blackMoves ? kind : opponent;
        fast.whiteSide = blackMoves ? opponent : kind;
    }
    markChoices(fast);
    SearchState literal = fast;
    const SearchSet production;
    const SearchSet reference = reference::literalSearchSet();
    const std::string where = sample.label + ", kind " + std::to_string(kind) + ", depth " +
                              std::to_string(depth) + ", step " + std::to_string(step);
    switch (kind) {
        case computerA:
            ASSERT_EQ(production.searchA(fast, step, depth),
                      reference.searchA(literal, step, depth))
                << where;
            break;
        case computerB:
            ASSERT_EQ(production.searchB(fast, step, depth),
                      reference.searchB(literal, step, depth))
                << where;
            break;
        case aKnowsB:
            ASSERT_EQ(production.searchAKnowsB(fast, step, depth),
                      reference.searchAKnowsB(literal, step, depth))
                << where;
            break;
        default:
            ASSERT_EQ(production.searchBKnowsA(fast, step, depth),
                      reference.searchBKnowsA(literal, step, depth))
                << where;
            break;
    }
    ASSERT_EQ(fast.bestX[step], literal.bestX[step]) << where;
    ASSERT_EQ(fast.bestY[step], literal.bestY[step]) << where;
    ASSERT_EQ(fast.stepNum, literal.stepNum) << where;
    ASSERT_EQ(std::memcmp(&fast.position, &sample.state.position, sizeof(Position)), 0) << where;
    ASSERT_EQ(std::memcmp(&literal.position, &sample.state.position, sizeof(Position)), 0) << where;
}

void compareAll(PlayerKind kind, std::uint32_t seed) {
    ASSERT_FALSE(testing::loadGameRecords().empty())
        << "no games at " << testing::gameRecordsPath();
    // Depths 1 and 2 on many positions, 3 on fewer, 4 on short openings only.
    const std::vector<Sample> shallow[] = {randomOpenings(scaled(500), seed),
                                           gamePositions(scaled(500), seed + 1)};
    for (const auto& samples : shallow)
        for (const Sample& sample : samples)
            for (std::int16_t depth = 1; depth <= 2; ++depth) {
                compareKind(sample, kind, depth);
                if (::testing::Test::HasFatalFailure()) return;
            }
    const std::vector<Sample> deep[] = {randomOpenings(scaled(150), seed + 2),
                                        gamePositions(scaled(60), seed + 3)};
    for (const auto& samples : deep)
        for (const Sample& sample : samples) {
            compareKind(sample, kind, 3);
            if (::testing::Test::HasFatalFailure()) return;
        }
    // Compact clusters keep the literal depth-4 trees small and often hold
    // threes and fours, where the last line of play can end early.
    for (const Sample& sample : randomOpenings(scaled(40), seed + 4, 12, 5)) {
        compareKind(sample, kind, 4);
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

// A five of one colour outweighed, for evalA, by a block of fours of the other:
// one evaluator sees a finished game and the other does not, so the searches
// go on past a five.
std::vector<Sample> outweighedFives(int count, std::uint32_t seed) {
    std::mt19937 rng(seed);
    std::vector<Sample> samples;
    for (int i = 0; i < count; ++i) {
        Sample sample;
        SearchState& s = sample.state;
        const Side fiveSide = i % 2 == 0 ? black : white;
        const auto row = static_cast<std::int16_t>(1 + rng() % 2);
        const auto from = static_cast<std::int16_t>(1 + rng() % 4);
        for (std::int16_t k = 0; k < 5; ++k)
            placeStone(s.position, static_cast<std::int16_t>(from + k), row, fiveSide);
        const auto bx = static_cast<std::int16_t>(4 + rng() % 6);
        const auto by = static_cast<std::int16_t>(6 + rng() % 5);
        for (std::int16_t dx = 0; dx < 4; ++dx)
            for (std::int16_t dy = 0; dy < 4; ++dy)
                placeStone(s.position, static_cast<std::int16_t>(bx + dx),
                           static_cast<std::int16_t>(by + dy), static_cast<Side>(-fiveSide));
        s.stepNum = static_cast<std::int16_t>(21 + i % 2);  // both colours to move
        sample.label = "outweighed five " + std::to_string(i);
        samples.push_back(sample);
    }
    return samples;
}

TEST(SearchDifferential, OutweighedFives) {
    const std::vector<Sample> samples = outweighedFives(scaled(16), 66);
    for (const Sample& sample : samples) {
        const Position& p = sample.state.position;
        ASSERT_LT(std::abs(evalA(p, sample.state.stepNum, 1)), winScore) << sample.label;
        for (PlayerKind kind = computerA; kind <= bKnowsA; ++kind)
            for (std::int16_t depth = 1; depth <= 3; ++depth) {
                compareKind(sample, kind, depth);
                if (HasFatalFailure()) return;
            }
    }
}

// Depth 0, leaves at the root and the empty board, where nothing is searched.
TEST(SearchDifferential, RootsThatAreNotExpanded) {
    std::vector<Sample> samples = gamePositions(20, 77);
    samples.push_back({SearchState{}, "empty board"});
    for (const Sample& sample : samples)
        for (PlayerKind kind = computerA; kind <= bKnowsA; ++kind) {
            compareKind(sample, kind, 0);
            if (sample.state.stepNum == 0) compareKind(sample, kind, 2);
            if (HasFatalFailure()) return;
        }
}

// Player kinds callers never set up (the knowing kind on both colours, on
// neither, or waiting at the root) still give the node-by-node results.
TEST(SearchDifferential, KindsOutsideTheCallersPromise) {
    const SearchSet production;
    const SearchSet reference = reference::literalSearchSet();
    const PlayerKind seats[][2] = {{aKnowsB, aKnowsB},     {bKnowsA, bKnowsA},
                                   {computerA, computerB}, {userKind, userKind},
                                   {computerB, aKnowsB},   {bKnowsA, computerA}};
    for (const Sample& sample : randomOpenings(30, 55, 8))
        for (const auto& seat : seats)
            for (std::int16_t depth = 1; depth <= 2; ++depth) {
                SearchState fast = sample.state;
                fast.blackSide = seat[0];
                fast.whiteSide = seat[1];
                SearchState literal = fast;
                const std::int16_t step = fast.stepNum;
                ASSERT_EQ(production.searchAKnowsB(fast, step, depth),
                          reference.searchAKnowsB(literal, step, depth));
                ASSERT_EQ(production.searchBKnowsA(fast, step, depth),
                          reference.searchBKnowsA(literal, step, depth));
                ASSERT_EQ(fast.bestX[step], literal.bestX[step]);
                ASSERT_EQ(fast.bestY[step], literal.bestY[step]);
                ASSERT_EQ(fast.stepNum, literal.stepNum);
            }
}

}  // namespace
}  // namespace quintline

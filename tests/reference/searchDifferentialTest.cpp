// The production searches against the literal ones on batches of positions:
// random openings near the centre, stones scattered to the rim, positions from
// real games, fives outweighed by fours, lopsided boards whose values land
// exactly on the stop thresholds; every kind, depths 0 to 4, and seatings no
// caller sets up. Scores, root point, position tables and the stepNum left
// behind must agree.
//
// QUINTLINE_DIFF_SCALE multiplies the number of positions (default 1 in
// optimised builds, 0.08 in unoptimised ones such as the sanitizer build).

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "game/seatedSearch.h"
#include "reference/literalSearches.h"
#include "support/gameRecords.h"
#include "support/randomBoards.h"

namespace quintline {
namespace {

using namespace testing::boards;

int scaled(int count) {
#ifdef NDEBUG
    double scale = 1.0;
#else
    double scale = 0.08;
#endif
    if (const char* text = std::getenv("QUINTLINE_DIFF_SCALE")) scale = std::atof(text);
    return std::max(1, static_cast<int>(count * scale));
}

// Prefixes of real games, from a few moves to the finished game (a five on the board).
Samples gamePositions(int count, std::uint32_t seed) {
    static const std::vector<testing::GameRecord> games = testing::loadGameRecords();
    Samples samples;
    std::mt19937 rng(seed);
    for (int i = 0; i < count && !games.empty(); ++i) {
        const std::size_t g = rng() % games.size();
        samples.push_back(testing::positionAfter(games[g], 1 + rng() % games[g].moves.size()));
    }
    return samples;
}

// Fives facing blocks of the other colour, numbered from `seed` on.
Samples fivesFacingBlocks(int count, std::uint32_t seed) {
    Samples samples;
    for (int i = 0; i < count; ++i) samples.push_back(fiveFacingBlock(seed + i));
    return samples;
}

// Runs one kind both ways and compares everything a caller can see. The
// modeller is seated against its opponent unless `seats` says otherwise.
void compare(const SearchState& start, PlayerKind kind, std::int16_t depth,
             const PlayerKind* seats = nullptr) {
    SearchState fast = start;
    seatSides(fast, kind);
    if (seats) std::tie(fast.blackSide, fast.whiteSide) = std::tie(seats[0], seats[1]);
    for (std::size_t i = 0; i < fast.bestX.size(); ++i)
        std::tie(fast.bestX[i], fast.bestY[i]) = std::tuple(100 + i, 300 + i);
    SearchState literal = fast;
    const std::int16_t step = start.stepNum;
    const nodeScores expected = *reference::literalSearchSet().run(kind, literal, depth);
    const nodeScores got = *SearchSet{}.run(kind, fast, depth);
    const auto seen = [](const SearchState& s, nodeScores r, std::int16_t at) {
        return std::tuple(r.spare, r.ownScore, r.modelScore, s.bestX[at], s.bestY[at], s.stepNum);
    };
    ASSERT_EQ(seen(fast, got, step), seen(literal, expected, step))
        << "kind " << kind << ", seats " << fast.blackSide << fast.whiteSide << ", depth " << depth
        << ", step " << step;
    ASSERT_EQ(std::memcmp(&fast.position, &start.position, sizeof(Position)), 0);
}

void compareAll(PlayerKind kind, std::uint32_t seed) {
    ASSERT_FALSE(gamePositions(1, 0).empty()) << "no games at " << testing::gameRecordsPath;
    const std::tuple<Samples, std::int16_t, std::int16_t> batches[] = {
        {randomPositions(scaled(500), seed, 16, 9), 1, 2},
        {gamePositions(scaled(500), seed + 1), 1, 2},
        {randomPositions(scaled(150), seed + 2, 200, 15, true), 1, 2},
        {randomPositions(scaled(150), seed + 3, 16, 9), 3, 3},
        {gamePositions(scaled(60), seed + 4), 3, 3},
        {fivesFacingBlocks(scaled(16), seed + 5), 1, 3},
        {{fiveFacingBlock(87), fiveFacingBlock(91), fiveFacingBlock(295), fiveFacingBlock(3026),
          fiveFacingBlock(3271)},
         4,
         4},
        {onThresholds(), 1, 2},
        // Compact clusters keep the literal depth-4 trees small and often hold
        // threes and fours, where the last line of play can end early.
        {randomPositions(scaled(40), seed + 6, 12, 5), 4, 4},
        // Roots that are leaves, and the empty board, where nothing is searched.
        {gamePositions(20, seed + 7), 0, 0},
        {{SearchState{}}, 0, 2},
    };
    for (const auto& [samples, fromDepth, toDepth] : batches)
        for (const SearchState& sample : samples)
            for (std::int16_t depth = fromDepth; depth <= toDepth; ++depth) {
                compare(sample, kind, depth);
                if (::testing::Test::HasFatalFailure()) return;
            }
    if (kind == computerA || kind == computerB) return;
    // Seats callers never set up: the knowing kind on both colours, on neither,
    // or waiting at the root. The literal procedure's results still hold.
    const PlayerKind seats[][2] = {{aKnowsB, aKnowsB},     {bKnowsA, bKnowsA},
                                   {computerA, computerB}, {userKind, userKind},
                                   {computerB, aKnowsB},   {bKnowsA, computerA}};
    for (const SearchState& sample : randomPositions(scaled(60), seed + 8, 12, 5))
        for (const auto& seat : seats)
            for (std::int16_t depth = 1; depth <= 2; ++depth) {
                compare(sample, kind, depth, seat);
                if (::testing::Test::HasFatalFailure()) return;
            }
}

TEST(SearchDifferential, EveryKind) {
    for (auto [kind, seed] :
         {std::pair{computerA, 1000u}, {computerB, 2000u}, {aKnowsB, 3000u}, {bKnowsA, 4000u}})
        compareAll(kind, seed);
}

}  // namespace
}  // namespace quintline

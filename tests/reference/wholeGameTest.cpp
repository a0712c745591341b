// Whole games between computers played with the production searches and with
// the literal ones: every stone and the result must be the same.

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "game/game.h"
#include "game/silentToolkit.h"
#include "reference/literalSearches.h"

namespace quintline {
namespace {

struct Pairing {
    PlayerKind black;
    PlayerKind white;
    std::int16_t depthA;
    std::int16_t depthB;
};

struct Played {
    std::vector<MoveRecordEntry> moves;
    GameCode result = gameOpen;
};

Played play(const SearchSet& searches, const Pairing& pairing, const std::vector<Point>& opening) {
    SilentToolkit toolkit;
    Game game(toolkit, searches);
    game.startSession();
    game.newGame();
    GameState& s = game.state();
    for (std::size_t i = 0; i < opening.size(); ++i)
        game.Putchess(opening[i].x, opening[i].y, i % 2 == 0 ? black : white);
    s.blackSide = pairing.black;
    s.whiteSide = pairing.white;
    s.depthA = pairing.depthA;
    s.depthB = pairing.depthB;
    game.computerGame();
    Played played;
    played.moves.assign(s.moveRecord.begin() + 1, s.moveRecord.begin() + 1 + s.stepNum);
    played.result = s.gameResult;
    return played;
}

// Random openings of four to six stones around the centre.
std::vector<Point> opening(std::mt19937& rng) {
    std::vector<Point> stones{{8, 8}};
    const int count = 4 + static_cast<int>(rng() % 3);
    while (static_cast<int>(stones.size()) < count) {
        const Point p{static_cast<std::int16_t>(6 + rng() % 5),
                      static_cast<std::int16_t>(6 + rng() % 5)};
        bool taken = false;
        for (const Point q : stones) taken = taken || q == p;
        if (!taken) stones.push_back(p);
    }
    return stones;
}

TEST(WholeGames, SameStonesAndResultWithTheLiteralSearches) {
#ifdef NDEBUG
    const std::int16_t deep = 3;
#else
    const std::int16_t deep = 2;  // unoptimised builds: keep the literal games short
#endif
    // The fourteen pairings of a tournament (kinds of black and white, depthA, depthB).
    const Pairing pairings[] = {
        {computerA, computerB, deep, 2},    {computerB, computerA, deep, 2},
        {aKnowsB, computerB, deep, 2},      {computerB, aKnowsB, deep, 2},
        {computerA, computerB, 2, deep},    {computerB, computerA, 2, deep},
        {computerA, bKnowsA, 2, deep},      {bKnowsA, computerA, 2, deep},
        {computerA, computerB, deep, deep}, {computerB, computerA, deep, deep},
        {aKnowsB, computerB, deep, deep},   {computerB, aKnowsB, deep, deep},
        {computerA, bKnowsA, deep, deep},   {bKnowsA, computerA, deep, deep}};
    std::mt19937 rng(314);
    const SearchSet literal = reference::literalSearchSet();
    for (int cycle = 0; cycle < 3; ++cycle) {
        const std::vector<Point> stones = opening(rng);
        for (const Pairing& pairing : pairings) {
            const Played fast = play(SearchSet{}, pairing, stones);
            const Played slow = play(literal, pairing, stones);
            const std::string which = "black " + std::to_string(pairing.black) + " white " +
                                      std::to_string(pairing.white);
            ASSERT_EQ(fast.moves, slow.moves) << which;
            EXPECT_EQ(fast.result, slow.result) << which;
            EXPECT_NE(fast.result, gameOpen) << which;
        }
    }
}

}  // namespace
}  // namespace quintline

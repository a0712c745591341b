// The windowed value below the root against the exact value of the literal
// search, for windows the searches themselves rarely pass (bounds at and past
// the stop thresholds), and remembered points that are taken or far away:
//   r >= beta -> value >= beta;  r <= alpha -> value <= r;  otherwise r == value.

#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "players/plainSearch.h"
#include "reference/literalSearches.h"
#include "support/randomBoards.h"

namespace quintline {
namespace {

// Windows from the probes: `trials` drawn from the first ten, or every one
// when `trials` is 0.
template <class Eval, Evaluator eval>
void expectContract(const SearchState& start, std::int16_t depth, std::mt19937& rng,
                    int trials = 12) {
    SearchState exact = start;
    const std::int16_t step = start.stepNum;
    const Score value = search::moverAt(step) * reference::plain<eval>(exact, step, depth);
    const Score probes[] = {-scoreInfinity, value - 1000,  value - 1,     value,
                            value + 1,      value + 1000,  sureScore - 1, sureScore,
                            winScore,       scoreInfinity, sureScore + 1, winScore + 1};
    for (int trial = 0; trial < (trials ? trials : 144); ++trial) {
        const Score alpha = probes[trials ? rng() % 10 : trial / 12],
                    beta = probes[trials ? rng() % 10 : trial % 12];
        if (alpha >= beta) continue;
        SearchState s = start;
        Point killer{static_cast<std::int16_t>(1 + rng() % 15),
                     static_cast<std::int16_t>(1 + rng() % 15)};
        const Score r =
            search::windowValue<search::PlainRules<Eval>>(s, step, depth, alpha, beta, &killer);
        const bool kept = r >= beta ? value >= beta : r <= alpha ? value <= r : value == r;
        ASSERT_TRUE(kept) << "depth " << depth << " window (" << alpha << ", " << beta << ") value "
                          << value << " result " << r;
        ASSERT_EQ(std::memcmp(&s.position, &start.position, sizeof(Position)), 0);
    }
}

#ifdef NDEBUG
constexpr int positions = 60;
#else
constexpr int positions = 15;  // unoptimised builds run the literal search slowly
#endif

// Compact clusters, where threes and fours are common and trees stay small, at
// depths 1 to 3; then boards whose leaves two plies down land exactly on the
// stop thresholds, with every window, bounds one past the thresholds included.
TEST(WindowValue, KeepsItsContractAgainstTheLiteralValue) {
    std::mt19937 rng(99), thresholdRng(7);
    for (const SearchState& s : testing::boards::randomPositions(positions, 99, 14, 5))
        for (std::int16_t depth = 1; depth <= 3 && !HasFatalFailure(); ++depth) {
            expectContract<EvaluatorA, evalA>(s, depth, rng);
            expectContract<EvaluatorB, evalB>(s, depth, rng);
        }
    for (const SearchState& s : testing::boards::onThresholds()) {
        expectContract<EvaluatorA, evalA>(s, 2, thresholdRng, 0);
        expectContract<EvaluatorB, evalB>(s, 2, thresholdRng, 0);
    }
}

}  // namespace
}  // namespace quintline

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

// Every window whose bounds are two of the probes, the killer drawn at random.
template <class Eval, Evaluator eval>
void expectContract(const SearchState& start, std::int16_t depth, std::mt19937& rng) {
    SearchState exact = start;
    const std::int16_t step = start.stepNum;
    const Score value = search::moverAt(step) * reference::plain<eval>(exact, step, depth);
    const Score probes[] = {-scoreInfinity, value - 1000,  value - 1,     value,
                            value + 1,      value + 1000,  sureScore - 1, sureScore,
                            winScore,       scoreInfinity, sureScore + 1, winScore + 1};
    for (const Score alpha : probes)
        for (const Score beta : probes) {
            if (alpha >= beta) continue;
            SearchState s = start;
            Point killer{static_cast<std::int16_t>(1 + rng() % 15),
                         static_cast<std::int16_t>(1 + rng() % 15)};
            const Score r =
                search::windowValue<search::PlainRules<Eval>>(s, step, depth, alpha, beta, &killer);
            const bool kept = r >= beta ? value >= beta : r <= alpha ? value <= r : value == r;
            ASSERT_TRUE(kept) << "depth " << depth << " window (" << alpha << ", " << beta
                              << ") value " << value << " result " << r;
            ASSERT_EQ(std::memcmp(&s.position, &start.position, sizeof(Position)), 0);
        }
}

// Boards whose leaves two plies down land exactly on the stop thresholds, with
// every window, bounds one past the thresholds included.
TEST(WindowValue, KeepsItsContractOnTheThresholdBoards) {
    std::mt19937 rng(7);
    for (const SearchState& s : testing::boards::onThresholds()) {
        expectContract<EvaluatorA, evalA>(s, 2, rng);
        expectContract<EvaluatorB, evalB>(s, 2, rng);
    }
}

}  // namespace
}  // namespace quintline

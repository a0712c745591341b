// Speed of the four searches beside the literal reference on middle-game
// positions from real games, and the bench signature.
//
//   quintline_bench                 all benchmarks (Google Benchmark flags apply)
//   quintline_bench signature       total nodes and a checksum of the results on
//                                   a fixed list of positions at depth 3; a change
//                                   claiming no functional change leaves both equal

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "game/game.h"
#include "game/seatedSearch.h"
#include "game/silentToolkit.h"
#include "harness/opening.h"
#include "harness/pairingGame.h"
#include "harness/uniformSource.h"
#include "players/searchSet.h"
#include "reference/literalSearches.h"
#include "support/gameRecords.h"

namespace quintline {
namespace {

// Middle-game positions: six games after their 24th move.
const std::vector<SearchState>& benchPositions() {
    static const std::vector<SearchState> positions = [] {
        const auto games = testing::loadGameRecords();
        std::vector<SearchState> list;
        for (std::size_t g = 10; g < games.size() && list.size() < 6; g += 50)
            list.push_back(testing::positionAfter(games[g], 24));
        return list;
    }();
    return positions;
}

// Twelve positions from 20 to 42 stones, for the signature.
std::vector<SearchState> signaturePositions() {
    const auto games = testing::loadGameRecords();
    std::vector<SearchState> list;
    for (std::size_t i = 0; i < 12 && i * 22 < games.size(); ++i)
        list.push_back(testing::positionAfter(games[i * 22], 20 + 2 * i));
    return list;
}

double secondsFor(const SearchSet& set, PlayerKind kind, std::int16_t depth, std::uint64_t* nodes) {
    const auto start = std::chrono::steady_clock::now();
    for (const SearchState& position : benchPositions()) {
        SearchState s = position;
        seatSides(s, kind);
        benchmark::DoNotOptimize(set.run(kind, s, depth));
        if (nodes) *nodes += s.nodesSearched;
    }
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Time for all bench positions with the production search; counters give its
// nodes per second, the time per move of both searches and their ratio. The
// literal search is timed once per position at depth 4, else repeated for at
// least a quarter of a second.
void searchBesideLiteral(benchmark::State& state) {
    const auto kind = static_cast<PlayerKind>(state.range(0));
    const auto depth = static_cast<std::int16_t>(state.range(1));
    const double moves = static_cast<double>(benchPositions().size());
    double literal = 0;
    int rounds = 0;
    do {
        literal += secondsFor(reference::literalSearchSet(), kind, depth, nullptr);
        ++rounds;
    } while (depth < 4 && literal < 0.25);
    literal /= rounds;
    std::uint64_t nodes = 0;
    double fast = 0;
    for (auto _ : state) {
        const double seconds = secondsFor(SearchSet{}, kind, depth, &nodes);
        fast += seconds;
        state.SetIterationTime(seconds);
    }
    fast /= static_cast<double>(state.iterations());
    state.counters["nodes/s"] =
        static_cast<double>(nodes) / (fast * static_cast<double>(state.iterations()));
    state.counters["ms/move"] = 1000 * fast / moves;
    state.counters["literal_ms/move"] = 1000 * literal / moves;
    state.counters["ratio"] = literal / fast;
}

void allKindsAndDepths(benchmark::internal::Benchmark* b) {
    for (int kind = computerA; kind <= bKnowsA; ++kind)
        for (int depth = 2; depth <= 4; ++depth) b->Args({kind, depth});
}

BENCHMARK(searchBesideLiteral)
    ->Apply(allKindsAndDepths)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->MinTime(0.5);

// Tournament cycles of the fourteen pairings from four seeded random openings,
// through the batch harness; returns the seconds taken.
double cyclesWith(const SearchSet& searches) {
    SilentToolkit toolkit;
    Game game(toolkit, searches);
    game.startSession();
    game.newGame();
    SeededUniform uniform(1234);
    const auto start = std::chrono::steady_clock::now();
    for (int cycle = 0; cycle < 4; ++cycle)
        benchmark::DoNotOptimize(playCycle(game, Schedule::fixed(), drawOpening(uniform)));
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Four cycles with the production searches; counters give the literal searches'
// time for the same games and the ratio.
void pairingCyclesBesideLiteral(benchmark::State& state) {
    const double literal = cyclesWith(reference::literalSearchSet());
    double fast = 0;
    for (auto _ : state) {
        const double seconds = cyclesWith(SearchSet{});
        fast += seconds;
        state.SetIterationTime(seconds);
    }
    fast /= static_cast<double>(state.iterations());
    state.counters["literal_s"] = literal;
    state.counters["ratio"] = literal / fast;
}

BENCHMARK(pairingCyclesBesideLiteral)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(1);

int printSignature() {
    std::uint64_t nodes = 0;
    std::uint64_t checksum = 0;
    std::uint64_t modelChecksum = 0;  // the knowing kinds' model scores
    for (PlayerKind kind = computerA; kind <= bKnowsA; ++kind) {
        std::uint64_t kindNodes = 0;
        for (const SearchState& position : signaturePositions()) {
            SearchState s = position;
            seatSides(s, kind);
            const std::int16_t step = s.stepNum;
            const nodeScores scores = SearchSet{}.run(kind, s, 3).value();
            kindNodes += s.nodesSearched;
            for (std::int64_t part : {std::int64_t{scores.ownScore}, std::int64_t{s.bestX[step]},
                                      std::int64_t{s.bestY[step]}, std::int64_t{s.stepNum}})
                checksum = checksum * 1000003u + static_cast<std::uint64_t>(part);
            if (kind == aKnowsB || kind == bKnowsA)
                modelChecksum = modelChecksum * 1000003u +
                                static_cast<std::uint64_t>(std::int64_t{scores.modelScore});
        }
        std::printf("kind %d: nodes %llu\n", kind, static_cast<unsigned long long>(kindNodes));
        nodes += kindNodes;
    }
    std::printf("signature: nodes %llu checksum %016llx model %016llx\n",
                static_cast<unsigned long long>(nodes), static_cast<unsigned long long>(checksum),
                static_cast<unsigned long long>(modelChecksum));
    return 0;
}

}  // namespace
}  // namespace quintline

int main(int argc, char** argv) {
    if (argc > 1 && std::strcmp(argv[1], "signature") == 0) return quintline::printSignature();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

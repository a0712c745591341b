// A tournament run with the production searches and with the literal ones:
// the report must be the same byte for byte (with the clock scripted).

#include <gtest/gtest.h>

#include "game/game.h"
#include "game/silentToolkit.h"
#include "harness/fakes.h"
#include "harness/tournament.h"
#include "reference/literalSearches.h"
#include "support/scratchDirectory.h"

namespace quintline {
namespace {

std::string tournamentReport(const SearchSet& searches, int cycles,
                             const std::filesystem::path& reportFile) {
    SilentToolkit toolkit;
    Game game(toolkit, searches);
    game.startSession();
    game.newGame();
    game.state().cycleCount = static_cast<std::int16_t>(cycles);
    SeededUniform uniform(20240611);
    testing::ScriptedClock clock({"10:00:00", "10:00:09"}, {36000.0f, 36009.0f});
    runTournament(game, uniform, clock, reportFile);
    return testing::readBytes(reportFile);
}

// A search one ply shallower (at least 1): unoptimised builds run the literal
// searches too slowly for whole tournaments at full depth.
template <auto search>
auto shallower(SearchState& s, std::int16_t step, std::int16_t depth) {
    return search(s, step, static_cast<std::int16_t>(depth > 2 ? depth - 1 : 1));
}

template <auto a, auto b, auto aKnowsB, auto bKnowsA>
SearchSet forThisBuild() {
    SearchSet set;
#ifdef NDEBUG
    set.searchA = a;
    set.searchB = b;
    set.searchAKnowsB = aKnowsB;
    set.searchBKnowsA = bKnowsA;
#else
    set.searchA = &shallower<a>;
    set.searchB = &shallower<b>;
    set.searchAKnowsB = &shallower<aKnowsB>;
    set.searchBKnowsA = &shallower<bKnowsA>;
#endif
    return set;
}

TEST(BatchRun, TournamentReportIsTheSameWithTheLiteralSearches) {
    const int cycles = 3;
    testing::ScratchDirectory dir;
    const std::string fast =
        tournamentReport(forThisBuild<&searchA, &searchB, &searchAKnowsB, &searchBKnowsA>(), cycles,
                         dir / "fast.txt");
    const std::string literal =
        tournamentReport(forThisBuild<&reference::searchA, &reference::searchB,
                                      &reference::searchAKnowsB, &reference::searchBKnowsA>(),
                         cycles, dir / "literal.txt");
    EXPECT_EQ(fast, literal);
    // Start, header, one line of fourteen games per cycle, summary, end, used time.
    std::size_t lines = 0;
    for (std::size_t at = fast.find("\r\n"); at != std::string::npos;
         at = fast.find("\r\n", at + 2))
        ++lines;
    EXPECT_EQ(lines, static_cast<std::size_t>(cycles) + 5);
}

}  // namespace
}  // namespace quintline

// One search on a saved position agrees with the library's search on the same stones: each kind
// and colour to move, depth 0 to 3, fours, a game past its five (a whole game: the engine tests).

#include <gtest/gtest.h>

#include <optional>
#include <tuple>
#include <vector>

#include "batch/analyse.h"
#include "support/gameRecords.h"
#include "tools/batchFixtures.h"

namespace quintline::batch {
namespace {

using quintline::testing::ScratchDirectory;
using quintline::testing::writeBoardFile;
using Moves = std::vector<Point>;  // black first, colours alternating

// The library's search of `kind` on the stones, the colours played by the kinds given: the
// point it chooses and its scores, as analyse prints them.
auto librarySearch(const Moves& moves, PlayerKind kind, std::int16_t depth, PlayerKind blackKind,
                   PlayerKind whiteKind) {
    SearchState s = quintline::testing::positionAfter({moves}, moves.size());
    std::tie(s.blackSide, s.whiteSide) = std::tuple(blackKind, whiteKind);
    const std::int16_t step = s.stepNum;
    const nodeScores r = *SearchSet{}.run(kind, s, depth);
    const bool modeller = kind == aKnowsB || kind == bKnowsA;
    return std::tuple(s.bestX[step], s.bestY[step], r.ownScore,
                      modeller ? std::optional(r.modelScore) : std::nullopt);
}

const Moves oneStone{{8, 8}};
const Moves smallOpening{{8, 8}, {9, 8}, {7, 6}};
const Moves blackFour{{5, 5}, {5, 6}, {6, 5}, {6, 6}, {7, 5}, {7, 6}, {8, 5}, {12, 12}};
// Black's five along row 1 at move 9; the two moves after it are replayed too.
const Moves pastAFive{{1, 1}, {1, 3}, {2, 1}, {2, 3},   {3, 1}, {3, 3},
                      {4, 1}, {4, 3}, {5, 1}, {10, 10}, {9, 9}};

TEST(Analyse, AgreesWithTheLibrarySearchesWhereTheMoverPlaysTheKind) {
    // By default the other colour plays the other family's plain computer.
    const std::tuple<const Moves*, PlayerKind, std::int16_t, PlayerKind, PlayerKind> examples[] = {
        {&oneStone, computerB, 1, computerA, computerB},
        {&oneStone, bKnowsA, 1, computerA, bKnowsA},
        {&smallOpening, aKnowsB, 2, computerB, aKnowsB},
        {&smallOpening, bKnowsA, 0, computerA, bKnowsA},
        {&blackFour, computerA, 3, computerA, computerB},
        {&blackFour, aKnowsB, 2, aKnowsB, computerB},
        {&pastAFive, computerA, 3, computerB, computerA},
    };
    ScratchDirectory dir;
    for (const auto& [moves, kind, depth, blackKind, whiteKind] : examples) {
        SCOPED_TRACE(::testing::Message()
                     << moves->size() << " stones, kind " << kind << " depth " << depth);
        writeBoardFile(dir / "position.txt", *moves);
        const AnalyseOutcome outcome =
            analysePosition({(dir / "position.txt").string(), kind, depth, {}, {}});
        ASSERT_TRUE(outcome.analysis) << outcome.error;
        const Analysis& a = *outcome.analysis;
        EXPECT_EQ(std::tuple(a.point.x, a.point.y, a.value, a.modelScore),
                  librarySearch(*moves, kind, depth, blackKind, whiteKind));
    }
}

}  // namespace
}  // namespace quintline::batch

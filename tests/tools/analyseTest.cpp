#include <gtest/gtest.h>

#include <optional>
#include <sstream>
#include <vector>

#include "batch/analyse.h"
#include "batch/commands.h"
#include "players/playerA.h"
#include "players/playerB.h"
#include "tools/batchFixtures.h"

namespace quintline::batch {
namespace {

using quintline::testing::ScratchDirectory;
using quintline::testing::writeBoardFile;
using quintline::testing::writeBytes;

// A position as the stones of each colour; the board file holds them in
// alternating order, black first.
struct Stones {
    std::vector<Point> black;
    std::vector<Point> white;

    std::vector<Point> moves() const {
        std::vector<Point> out;
        for (std::size_t i = 0; i < black.size() || i < white.size(); ++i) {
            if (i < black.size()) out.push_back(black[i]);
            if (i < white.size()) out.push_back(white[i]);
        }
        return out;
    }
    std::int16_t count() const { return static_cast<std::int16_t>(black.size() + white.size()); }
};

// The same position built straight into a search state, not through a file
// and the game's replay.
SearchState searchStateOf(const Stones& stones, PlayerKind blackKind, PlayerKind whiteKind) {
    SearchState s;
    for (Point p : stones.black) placeStone(s.position, p.x, p.y, black);
    for (Point p : stones.white) placeStone(s.position, p.x, p.y, white);
    s.stepNum = stones.count();
    s.blackSide = blackKind;
    s.whiteSide = whiteKind;
    return s;
}

// What the library's search gives on that state.
Analysis librarySearch(const Stones& stones, PlayerKind kind, std::int16_t depth,
                       PlayerKind blackKind, PlayerKind whiteKind) {
    SearchState s = searchStateOf(stones, blackKind, whiteKind);
    const std::int16_t step = stones.count();
    Analysis a;
    if (kind == computerA) a.value = searchA(s, step, depth);
    if (kind == computerB) a.value = searchB(s, step, depth);
    if (kind == aKnowsB || kind == bKnowsA) {
        const nodeScores r =
            kind == aKnowsB ? searchAKnowsB(s, step, depth) : searchBKnowsA(s, step, depth);
        a.value = r.ownScore;
        a.modelScore = r.modelScore;
    }
    a.point = {s.bestX[step], s.bestY[step]};
    return a;
}

const Stones oneStone{{{8, 8}}, {}};
const Stones smallOpening{{{8, 8}, {7, 6}}, {{9, 8}}};
const Stones blackFour{{{5, 5}, {6, 5}, {7, 5}, {8, 5}}, {{5, 6}, {6, 6}, {7, 6}, {12, 12}}};
const Stones blackThree{{{5, 5}, {6, 5}, {7, 5}}, {{5, 6}, {6, 6}, {12, 12}}};
const Stones blackFourWhiteToMove{{{5, 5}, {6, 5}, {7, 5}, {8, 5}}, {{5, 6}, {6, 6}, {7, 6}}};
const Stones whiteFour{{{5, 6}, {6, 6}, {7, 6}, {12, 12}, {1, 1}},
                       {{5, 5}, {6, 5}, {7, 5}, {8, 5}}};

struct Example {
    const Stones* stones;
    PlayerKind kind;
    std::int16_t depth;
    PlayerKind blackKind;  // as the search is expected to see them
    PlayerKind whiteKind;
    Point point;
    Score value;
    std::optional<Score> model;
};

TEST(Analyse, AgreesWithTheLibrarySearchesOnTheWorkedExamples) {
    ScratchDirectory dir;
    // The kinds of the colours are the defaults: the mover plays the kind,
    // the other side the other family's plain computer.
    const std::vector<Example> examples = {
        {&oneStone, computerA, 1, computerB, computerA, {9, 9}, 0, {}},
        {&oneStone, computerB, 1, computerA, computerB, {9, 9}, 0, {}},
        {&oneStone, aKnowsB, 1, computerB, aKnowsB, {7, 7}, 0, 0},
        {&oneStone, bKnowsA, 1, computerA, bKnowsA, {7, 7}, 0, 0},
        {&smallOpening, aKnowsB, 2, computerB, aKnowsB, {9, 9}, 145, 75},
        {&smallOpening, bKnowsA, 2, computerA, bKnowsA, {9, 9}, 75, 160},
        {&smallOpening, computerA, 2, computerB, computerA, {10, 7}, 160, {}},
        {&smallOpening, computerB, 2, computerA, computerB, {9, 9}, 75, {}},
        {&blackFour, computerA, 1, computerA, computerB, {4, 5}, 10749853, {}},
        {&blackFour, computerA, 2, computerA, computerB, {4, 5}, 21499706, {}},
        {&blackFour, computerA, 3, computerA, computerB, {4, 4}, 10745913, {}},
        {&blackFour, aKnowsB, 2, aKnowsB, computerB, {4, 5}, 21499706, 21497086},
        {&blackThree, computerA, 2, computerA, computerB, {4, 5}, 1082517, {}},
        {&blackThree, computerB, 2, computerB, computerA, {4, 5}, 1081917, {}},
        {&blackThree, computerA, 1, computerA, computerB, {8, 5}, 1525, {}},
        {&blackThree, computerB, 1, computerB, computerA, {7, 6}, 600, {}},
        {&blackFourWhiteToMove, computerA, 1, computerB, computerA, {4, 5}, 1082162, {}},
        {&blackFourWhiteToMove, computerA, 2, computerB, computerA, {4, 5}, 10745913, {}},
        {&whiteFour, aKnowsB, 1, computerB, aKnowsB, {4, 5}, -10749838, -10748543},
        {&whiteFour, aKnowsB, 2, computerB, aKnowsB, {4, 5}, -21499676, -21497086},
        {&whiteFour, aKnowsB, 3, computerB, aKnowsB, {1, 2}, -10745863, -10745193},
    };
    for (std::size_t i = 0; i < examples.size(); ++i) {
        const Example& e = examples[i];
        SCOPED_TRACE("example " + std::to_string(i));
        const auto file = dir / ("example" + std::to_string(i) + ".txt");
        writeBoardFile(file, e.stones->moves());

        const AnalyseOutcome outcome = analysePosition({file.string(), e.kind, e.depth, {}, {}});
        ASSERT_TRUE(outcome.analysis) << outcome.error;
        const Analysis& got = *outcome.analysis;
        const Analysis library =
            librarySearch(*e.stones, e.kind, e.depth, e.blackKind, e.whiteKind);
        EXPECT_EQ(got.point, library.point);
        EXPECT_EQ(got.value, library.value);
        EXPECT_EQ(got.modelScore, library.modelScore);
        EXPECT_EQ(got.point, e.point);
        EXPECT_EQ(got.value, e.value);
        EXPECT_EQ(got.modelScore, e.model);
    }
}

TEST(Analyse, NoPointGivesZeroZero) {
    ScratchDirectory dir;
    const auto empty = dir / "empty.txt";
    writeBoardFile(empty, {});
    auto outcome = analysePosition({empty.string(), computerA, 2, {}, {}});
    ASSERT_TRUE(outcome.analysis);
    EXPECT_EQ(analysisLine(*outcome.analysis), "0 0 -2147483647");

    // Depth 0: the evaluators' scores, and no point.
    const auto small = dir / "small.txt";
    writeBoardFile(small, smallOpening.moves());
    outcome = analysePosition({small.string(), computerB, 0, {}, {}});
    ASSERT_TRUE(outcome.analysis);
    const Analysis library = librarySearch(smallOpening, computerB, 0, computerA, computerB);
    EXPECT_EQ(analysisLine(*outcome.analysis), "0 0 " + std::to_string(library.value));
    outcome = analysePosition({small.string(), bKnowsA, 0, {}, {}});
    ASSERT_TRUE(outcome.analysis);
    EXPECT_EQ(outcome.analysis->point, (Point{0, 0}));
    EXPECT_EQ(outcome.analysis->modelScore,
              librarySearch(smallOpening, bKnowsA, 0, computerA, bKnowsA).modelScore);
}

TEST(Analyse, ReplaysEveryMovePastAFive) {
    // Black's five along row 1 comes up at move 9; two more moves follow and
    // must be on the board too, so white is to move after 11 stones.
    ScratchDirectory dir;
    const Stones played{{{1, 1}, {2, 1}, {3, 1}, {4, 1}, {5, 1}, {9, 9}},
                        {{1, 3}, {2, 3}, {3, 3}, {4, 3}, {10, 10}}};
    const auto file = dir / "five.txt";
    writeBoardFile(file, played.moves());
    const AnalyseOutcome outcome = analysePosition({file.string(), computerA, 3, {}, {}});
    ASSERT_TRUE(outcome.analysis) << outcome.error;
    const Analysis library = librarySearch(played, computerA, 3, computerB, computerA);
    EXPECT_EQ(outcome.analysis->value, library.value);
    // A five on the board ends the search at the root: four times the score.
    SearchState s = searchStateOf(played, computerB, computerA);
    EXPECT_EQ(outcome.analysis->value, 4 * evalA(s.position, 11, 3));
    EXPECT_EQ(outcome.analysis->point, (Point{0, 0}));
}

TEST(Analyse, KindsOfTheColoursCanBeSetButTheModellerMustMove) {
    ScratchDirectory dir;
    const auto file = dir / "small.txt";
    writeBoardFile(file, smallOpening.moves());  // white to move

    // Black played by Computer A instead of B: the reply model is still B's.
    auto outcome = analysePosition({file.string(), aKnowsB, 2, computerA, {}});
    ASSERT_TRUE(outcome.analysis) << outcome.error;
    const Analysis library = librarySearch(smallOpening, aKnowsB, 2, computerA, aKnowsB);
    EXPECT_EQ(outcome.analysis->value, library.value);
    EXPECT_EQ(outcome.analysis->modelScore, library.modelScore);

    for (const auto& [blackKind, whiteKind] :
         std::vector<std::pair<std::optional<PlayerKind>, std::optional<PlayerKind>>>{
             {{}, computerB}, {aKnowsB, aKnowsB}, {aKnowsB, computerB}}) {
        outcome = analysePosition({file.string(), aKnowsB, 2, blackKind, whiteKind});
        EXPECT_FALSE(outcome.analysis);
        EXPECT_TRUE(outcome.usageError);
        EXPECT_NE(outcome.error.find("white here"), std::string::npos) << outcome.error;
    }
    // Plain searches read no kinds: any setting gives the same answer.
    outcome = analysePosition({file.string(), computerA, 2, bKnowsA, userKind});
    ASSERT_TRUE(outcome.analysis);
    EXPECT_EQ(outcome.analysis->point, (Point{10, 7}));
}

TEST(Analyse, CommandPrintsOneLineOrRefusesTheFile) {
    ScratchDirectory dir;
    const auto file = dir / "small.txt";
    writeBoardFile(file, smallOpening.moves());
    std::ostringstream out, err;
    EXPECT_EQ(analyseCommand({file.string(), bKnowsA, 2, {}, {}}, {}, {out, err}), exitDone);
    EXPECT_EQ(out.str(), "9 9 75 160\n");
    EXPECT_EQ(err.str(), "");

    out.str("");
    EXPECT_EQ(analyseCommand({file.string(), computerA, 2, {}, {}}, {}, {out, err}), exitDone);
    EXPECT_EQ(out.str(), "10 7 160\n");

    const auto wide = dir / "wide.txt";
    writeBytes(wide,
               "Grid Size\r\n 19 \r\nPiece number\r\n 5 \r\nTotal Move\r\n 0 \r\n"
               "UserTurn\r\n 1 \r\nend\r\n");
    out.str("");
    EXPECT_EQ(analyseCommand({wide.string(), computerA, 2, {}, {}}, {}, {out, err}), exitRefused);
    EXPECT_EQ(out.str(), "");
    EXPECT_EQ(err.str(),
              "quintline-batch: the gird size or the piece number is not suitable! Not loaded\n");

    err.str("");
    EXPECT_EQ(
        analyseCommand({(dir / "missing.txt").string(), computerA, 2, {}, {}}, {}, {out, err}),
        exitRefused);
    EXPECT_NE(err.str().find("missing.txt: board file cannot be opened! Not loaded"),
              std::string::npos);

    err.str("");
    EXPECT_EQ(analyseCommand({file.string(), aKnowsB, 2, aKnowsB, {}}, {}, {out, err}), exitUsage);
    EXPECT_EQ(out.str(), "");
}

}  // namespace
}  // namespace quintline::batch

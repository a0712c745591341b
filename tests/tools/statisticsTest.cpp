// The statistics against figures worked out by hand, undefined ones
// included; the tally and the tables built on them; the progress line.

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "batch/progress.h"
#include "batch/statistics.h"
#include "batch/summaryTable.h"
#include "harness/credit.h"

namespace quintline::batch {
namespace {

const Schedule& schedule = Schedule::fixed();

using Figure = std::optional<double>;
constexpr std::nullopt_t none = std::nullopt;

void expectFigures(std::vector<Figure> got, std::vector<Figure> want, const std::string& trace) {
    for (std::size_t i = 0; i < want.size(); ++i) {
        SCOPED_TRACE(trace + " figure " + std::to_string(i));
        EXPECT_EQ(got[i].has_value(), want[i].has_value());
        const double w = want[i].value_or(0);
        EXPECT_NEAR(got[i].value_or(0), w, 1e-5 * std::max(1.0, std::abs(w)));
    }
}

TEST(Statistics, FiguresWorkedOutByHand) {
    // Elo, its error, LOS. 6/8/2: score 10/16, Elo 400 log10(5/3), var 1.75/16,
    // LOS 1/2 + erf(1)/2. 2/0/1: Elo 400 log10 2, but 2/3 + 1.96 sqrt(2/27) > 1.
    const std::tuple<WinDrawLoss, Figure, Figure, Figure> games[] = {
        {{0, 0, 0}, none, none, none},
        {{3, 0, 0}, none, none, 0.958368},  // a score of 1; LOS 1/2 + erf(3/sqrt 6)/2
        {{2, 0, 1}, 120.411998, none, 0.718149},
        {{0, 4, 0}, 0.0, 0.0, none},  // no variance, and W + L = 0
        {{6, 8, 2}, 88.739500, 126.440446, 0.921350},
    };
    for (const auto& [wdl, elo, error, los] : games) {
        const GameFigures f = gameFigures(wdl);
        expectFigures({f.elo, f.eloError, f.los}, {elo, error, los},
                      std::to_string(wdl.wins) + "/" + std::to_string(wdl.draws));
    }
    // Pairs: Elo, error, nElo, its error, LOS, draw ratio, pairs ratio.
    // 1 2 3 4 2: mean 7/12, var 0.086806; nElo error 1.96 x 800/ln 10 / sqrt 24.
    const std::tuple<Pentanomial, std::size_t, std::vector<Figure>> pairs[] = {
        {{0, 0, 0, 0, 0}, 0, {none, none, none, none, none, none, none}},
        {{0, 0, 3, 0, 0}, 6, {0.0, 0.0, none, 278.0013, none, 1.0, none}},
        {{1, 0, 2, 0, 0}, 0, {-120.4120, 264.5329, -173.7178, 278.0013, 0.11034, 0.0, 0.0}},
        {{1, 2, 3, 4, 2}, 7, {58.4512, 124.6758, 69.4871, 139.0006, 0.83641, 0.29167, 2.0}},
        {{0, 0, 0, 0, 2}, 0, {none, none, none, 340.4806, none, 0.0, none}},
    };
    for (const auto& [counts, drawn, want] : pairs) {
        const PairFigures f = pairFigures(counts, drawn);
        expectFigures({f.elo, f.eloError, f.nElo, f.nEloError, f.los, f.drawRatio, f.pairsRatio},
                      want, "pairs " + std::to_string(counts[0]) + std::to_string(counts[4]));
    }
    // SPRT: bounds ln(beta/(1-alpha)), ln((1-beta)/alpha); LLR 0 without variance.
    expectFigures(
        {sprtBounds(0.05, 0.1).lower, sprtBounds(0.05, 0.1).upper, sprtLlr({1, 2, 3, 4, 2}, 0, 10),
         sprtLlr({1, 0, 2, 0, 0}, 0, 200), sprtLlr({0, 0, 5, 0, 0}, 0, 10), sprtLlr({}, 0, 10)},
        {-2.251292, 2.890372, 0.151433, -4.159371, 0.0, 0.0}, "SPRT");
    // Wilson at z 1.96 out of 10, and wider at a larger z.
    const auto wilson = [](std::size_t k) { return *wilsonInterval(k, 10); };
    expectFigures({wilson(5).low, wilson(5).high, wilson(0).low, wilson(0).high, wilson(10).low,
                   wilson(10).high},
                  {0.236593, 0.763407, 0.0, 0.277533, 0.722467, 1.0}, "Wilson");
    EXPECT_FALSE(wilsonInterval(0, 0));
    EXPECT_LT(wilsonInterval(5, 10, 2.576)->low, 0.2366);
}

// Four cycles of 14 games, all drawn but pairings 1 and 2, whose results by cycle are given: A wins
// both (a pair of 1), draws both (1/2), wins one (1/2), loses both (0).
RunTally fourCycles() {
    const GameCode first[] = {blackWon, gameDrawn, whiteWon, whiteWon};
    const GameCode second[] = {whiteWon, gameDrawn, whiteWon, blackWon};
    RunTally tally(schedule);
    for (std::size_t c = 0; c < 4; ++c) {
        std::vector<PlayedGame> games(schedule.size());
        games[0].result = first[c];
        games[1].result = second[c];
        for (std::size_t n = 0; n < games.size(); ++n)
            games[n].group = creditGame(schedule[n], games[n].result, 9);
        tally.add(games);
    }
    return tally;
}

TEST(SummaryTable, RowsPerPairingAndPerPairWithinAHundredColumns) {
    const RunTally tally = fourCycles();
    const SprtStatus sprt = sprtStatus({2, -10, 10, 0.05, 0.05}, tally);
    const std::string table = summaryTable(tally, sprt);
    std::vector<std::string> lines;
    std::istringstream in(table);
    for (std::string line; std::getline(in, line);) {
        EXPECT_LE(line.size(), 100u) << line;
        lines.push_back(line);
    }
    ASSERT_EQ(lines.size(), 26u);  // heading, 14 pairings, blank, heading, 7 pairs, blank, SPRT
    // Pairings 1 to 3, pairs 1 and 2, and the SPRT line.
    std::ifstream golden(QUINTLINE_SUMMARY_ROWS);
    std::string want;
    for (const std::size_t row : {1, 2, 3, 17, 18, 25})
        EXPECT_EQ(lines[row], std::getline(golden, want) ? want : "(missing)");
}
TEST(Progress, RateAndTimeLeft) {
    EXPECT_EQ(progressLine(0, 140, 0.0), "0/140 games, 0.00 games/s, ? left");
    EXPECT_EQ(progressLine(37, 140, 14.8), "37/140 games, 2.50 games/s, 0:41 left");
    EXPECT_EQ(progressLine(10, 14010, 10.0), "10/14010 games, 1.00 games/s, 3:53:20 left");
    EXPECT_EQ(std::tuple(clockDuration(59.6), clockDuration(-3)), std::tuple("1:00", "0:00"));
}

}  // namespace
}  // namespace quintline::batch

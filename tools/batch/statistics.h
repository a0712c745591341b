#pragma once
// The figures engine testers read off a match, all from the A family's view:
// the Wilson interval of a share, Elo difference with its 95% error and the
// likelihood of superiority for single games, the same and normalized Elo for
// colour-swapped game pairs (pentanomial counts), and the sequential
// probability ratio test on those pairs.
//
// Pure functions of counts. A figure whose formula is undefined for the
// counts given (no games, a score of 0 or 1, no variance, a zero
// denominator) is empty, never NaN or infinite.

#include <array>
#include <cstddef>
#include <optional>

namespace quintline::batch {

// The normal quantile for a two-sided 95% interval.
inline constexpr double z95 = 1.959963984540054;

struct Interval {
    double low = 0.0;
    double high = 0.0;
};

// Unlike the plain normal interval it stays inside 0..1 and is usable for
// small counts and for shares of 0 or 1, which short batches give often.
std::optional<Interval> wilsonInterval(std::size_t successes, std::size_t trials, double z = z95);

// -400 log10(1/score - 1); empty outside 0 < score < 1.
std::optional<double> eloOfScore(double score);

// 1 / (1 + 10^(-elo/400)).
double scoreOfElo(double elo);

struct WinDrawLoss {
    std::size_t wins = 0;
    std::size_t draws = 0;
    std::size_t losses = 0;
    std::size_t games() const { return wins + draws + losses; }
};

struct GameFigures {
    std::optional<double> elo;
    std::optional<double> eloError;  // half the width of the 95% interval
    std::optional<double> los;       // likelihood of superiority, 0..1
};

GameFigures gameFigures(const WinDrawLoss& games);

// Game pairs that scored 0, 1/4, 1/2, 3/4 and 1 (in pairs of points: LL, LD,
// DD or WL, WD, WW).
using Pentanomial = std::array<std::size_t, 5>;

struct PairFigures {
    std::optional<double> elo;
    std::optional<double> eloError;
    std::optional<double> nElo;  // normalized Elo
    std::optional<double> nEloError;
    std::optional<double> los;
    std::optional<double> drawRatio;   // drawn games over all games of the pairs
    std::optional<double> pairsRatio;  // (WW + WD) / (LL + LD)
};

PairFigures pairFigures(const Pentanomial& pairs, std::size_t drawnGames);

// The log-likelihood ratio of H1 (elo1) against H0 (elo0) on the pairs, and
// the bounds it is tested against.
struct SprtBounds {
    double lower = 0.0;  // at or below: H0 accepted
    double upper = 0.0;  // at or above: H1 accepted
};

SprtBounds sprtBounds(double alpha, double beta);
double sprtLlr(const Pentanomial& pairs, double elo0, double elo1);

}  // namespace quintline::batch

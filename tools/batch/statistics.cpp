#include "batch/statistics.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

#include <boost/math/distributions/normal.hpp>

namespace quintline::batch {
namespace {

// Count, mean and variance of samples.
struct Moments {
    double count = 0.0;
    double mean = 0.0;
    double variance = 0.0;
};

// Of the pair scores 0, 1/4, ..., 1; empty for no pairs.
std::optional<Moments> pairMoments(const Pentanomial& pairs) {
    const std::size_t count = std::accumulate(pairs.begin(), pairs.end(), std::size_t{0});
    if (count == 0) return {};
    const double n = static_cast<double>(count);
    std::size_t quarters = 0;
    for (std::size_t k = 0; k < pairs.size(); ++k) quarters += k * pairs[k];
    Moments m{n, static_cast<double>(quarters) / (4.0 * n), 0.0};
    for (std::size_t k = 0; k < pairs.size(); ++k) {
        const double d = static_cast<double>(k) / 4.0 - m.mean;
        m.variance += static_cast<double>(pairs[k]) * d * d / n;
    }
    return m;
}

// Half the distance between the Elo of mean + z sd and mean - z sd, where sd
// is the standard error of the mean.
std::optional<double> eloError(const Moments& m) {
    const double spread = z95 * std::sqrt(m.variance / m.count);
    const auto high = eloOfScore(m.mean + spread);
    const auto low = eloOfScore(m.mean - spread);
    if (!high || !low) return {};
    return (*high - *low) / 2.0;
}

std::optional<double> ratio(double numerator, double denominator) {
    if (denominator == 0.0) return {};
    return numerator / denominator;
}

constexpr double eloPerNormalized = 800.0 / std::numbers::ln10;

}  // namespace

std::optional<Interval> wilsonInterval(std::size_t successes, std::size_t trials, double z) {
    if (trials == 0) return {};
    const double n = static_cast<double>(trials);
    const double p = static_cast<double>(successes) / n;
    const double z2 = z * z;
    const double denominator = 1.0 + z2 / n;
    const double centre = (p + z2 / (2.0 * n)) / denominator;
    const double half = z / denominator * std::sqrt(p * (1.0 - p) / n + z2 / (4.0 * n * n));
    // Rounding can push an end a hair past 0 or 1 when the share is exactly 0 or 1.
    return Interval{std::max(0.0, centre - half), std::min(1.0, centre + half)};
}

std::optional<double> eloOfScore(double score) {
    if (!(score > 0.0 && score < 1.0)) return {};
    return -400.0 * std::log10(1.0 / score - 1.0) + 0.0;  // no -0 for an even score
}

double scoreOfElo(double elo) {
    return 1.0 / (1.0 + std::pow(10.0, -elo / 400.0));
}

GameFigures gameFigures(const WinDrawLoss& games) {
    GameFigures f;
    const std::size_t count = games.games();
    if (count == 0) return f;
    const double n = static_cast<double>(count);
    const double w = static_cast<double>(games.wins);
    const double d = static_cast<double>(games.draws);
    const double l = static_cast<double>(games.losses);
    Moments m{n, (w + d / 2.0) / n, 0.0};
    m.variance = (w * (1.0 - m.mean) * (1.0 - m.mean) + d * (0.5 - m.mean) * (0.5 - m.mean) +
                  l * m.mean * m.mean) /
                 n;
    f.elo = eloOfScore(m.mean);
    if (f.elo) f.eloError = eloError(m);
    if (w + l > 0.0) f.los = 0.5 + 0.5 * std::erf((w - l) / std::sqrt(2.0 * (w + l)));
    return f;
}

PairFigures pairFigures(const Pentanomial& pairs, std::size_t drawnGames) {
    PairFigures f;
    const auto m = pairMoments(pairs);
    if (!m) return f;
    const double n = m->count;
    f.elo = eloOfScore(m->mean);
    if (f.elo) f.eloError = eloError(*m);
    if (m->variance > 0.0) {
        f.nElo = (m->mean - 0.5) / std::sqrt(2.0 * m->variance) * eloPerNormalized;
        const boost::math::normal normal;
        f.los = boost::math::cdf(normal, (m->mean - 0.5) / std::sqrt(m->variance / n));
    }
    f.nEloError = z95 * eloPerNormalized / std::sqrt(2.0 * n);
    f.drawRatio = static_cast<double>(drawnGames) / (2.0 * n);
    f.pairsRatio =
        ratio(static_cast<double>(pairs[4] + pairs[3]), static_cast<double>(pairs[0] + pairs[1]));
    return f;
}

SprtBounds sprtBounds(double alpha, double beta) {
    return {std::log(beta / (1.0 - alpha)), std::log((1.0 - beta) / alpha)};
}

double sprtLlr(const Pentanomial& pairs, double elo0, double elo1) {
    const auto m = pairMoments(pairs);
    if (!m || m->variance == 0.0) return 0.0;
    const double s0 = scoreOfElo(elo0);
    const double s1 = scoreOfElo(elo1);
    return m->count * (s1 - s0) * (2.0 * m->mean - s0 - s1) / (2.0 * m->variance);
}

}  // namespace quintline::batch

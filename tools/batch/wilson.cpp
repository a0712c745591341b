#include "batch/wilson.h"

#include <algorithm>
#include <cmath>

namespace quintline::batch {

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

}  // namespace quintline::batch

#pragma once
// The Wilson score interval for a share of successes: unlike the plain normal
// interval it stays inside 0..1 and is usable for small counts and for shares
// of 0 or 1, which short batches give often.

#include <cstddef>
#include <optional>

namespace quintline::batch {

struct Interval {
    double low = 0.0;
    double high = 0.0;
};

// The normal quantile for a two-sided 95% interval.
inline constexpr double z95 = 1.959963984540054;

// Empty for no trials.
std::optional<Interval> wilsonInterval(std::size_t successes, std::size_t trials, double z = z95);

}  // namespace quintline::batch

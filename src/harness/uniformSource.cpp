#include "harness/uniformSource.h"

#include <chrono>

namespace quintline {

double SeededUniform::next() {
    // The top 53 bits fill a double's mantissa exactly, so 1 is never reached.
    return static_cast<double>(engine_() >> 11) * 0x1.0p-53;
}

std::uint64_t clockSeed() {
    return static_cast<std::uint64_t>(
        std::chrono::high_resolution_clock::now().time_since_epoch().count());
}

}  // namespace quintline

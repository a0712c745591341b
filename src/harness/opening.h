#pragma once
// The random six-stone opening of a tournament cycle: black on the centre,
// then five stones drawn in a 5 by 4 area (x 6..10, y 7..10), alternating white
// and black, each redrawn whole while it falls on a stone.

#include <array>

#include "harness/uniformSource.h"
#include "position/types.h"

namespace quintline {

inline constexpr Point openingCentre{8, 8};

struct Opening {
    std::array<Point, 5> stones{};  // stones 2 to 6, in the order played
};

// Uses two numbers per attempt: r for x, then s for y.
Opening drawOpening(UniformSource& uniform);

}  // namespace quintline

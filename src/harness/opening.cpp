#include "harness/opening.h"

#include <algorithm>
#include <cmath>

namespace quintline {
namespace {

// The whole part of width * u + 1, plus offset.
std::int16_t drawCoordinate(UniformSource& uniform, int width, int offset) {
    const int whole = static_cast<int>(std::floor(width * uniform.next() + 1.0));
    return static_cast<std::int16_t>(std::min(whole, width) + offset);
}

}  // namespace

Opening drawOpening(UniformSource& uniform) {
    Opening opening;
    for (std::size_t i = 0; i < opening.stones.size(); ++i) {
        const auto taken = [&](Point p) {
            return p == openingCentre ||
                   std::find(opening.stones.begin(), opening.stones.begin() + i, p) !=
                       opening.stones.begin() + i;
        };
        Point p;
        do {
            p.x = drawCoordinate(uniform, 5, 5);
            p.y = drawCoordinate(uniform, 4, 6);
        } while (taken(p));
        opening.stones[i] = p;
    }
    return opening;
}

}  // namespace quintline

#pragma once
// Stones for tests to lay on a board, one per point.

#include "position/types.h"

namespace quintline::testing {

struct Stone {
    int x;
    int y;
    Side side;
};

}  // namespace quintline::testing

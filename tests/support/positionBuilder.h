#pragma once
// A stone of a test position.

#include "position/types.h"

namespace quintline::testing {

struct Stone {
    int x;
    int y;
    Side side;
};

}  // namespace quintline::testing

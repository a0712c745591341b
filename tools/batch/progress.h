#pragma once
// The progress line a batch shows on a terminal while it runs.

#include <cstddef>
#include <string>

namespace quintline::batch {

// "37/140 games, 2.41 games/s, 0:42 left"; the time left is "?" until a game
// has finished. Hours are shown when needed ("1:02:05").
std::string progressLine(std::size_t done, std::size_t total, double elapsedSeconds);

// Whole seconds as m:ss or h:mm:ss.
std::string clockDuration(double seconds);

}  // namespace quintline::batch

#pragma once
// A test-suite run: the fourteen pairings played from each board file named in
// "testsuit.txt", reported to "result.txt"; both in the current directory.

#include <filesystem>

#include "game/game.h"
#include "harness/clock.h"

namespace quintline {

void runTestSuite(Game& game);

// The same with the clock and both files supplied.
void runTestSuite(Game& game, Clock& clock, const std::filesystem::path& listFile,
                  const std::filesystem::path& reportFile);

}  // namespace quintline

#pragma once
// A tournament: cycleCount random openings, each played through the fourteen
// pairings, reported to "result.txt" in the current directory.

#include <filesystem>

#include "game/game.h"
#include "harness/clock.h"
#include "harness/uniformSource.h"

namespace quintline {

// Reads state().cycleCount; seeds from the clock.
void runTournament(Game& game);

// The same with the randomness, the clock and the report file supplied.
void runTournament(Game& game, UniformSource& uniform, Clock& clock,
                   const std::filesystem::path& reportFile);

}  // namespace quintline

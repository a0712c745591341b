#pragma once
// One pairing played from a starting position, and the pairings of a schedule
// for a cycle or test-suite entry. Shared by the desktop runs and the headless
// runner.

#include "boardfile/boardFileFormat.h"
#include "game/game.h"
#include "harness/credit.h"
#include "harness/opening.h"

namespace quintline {

// A new game holding the opening, laid by newGame and userMove as two users
// would, so that every stone is in the move record.
void setUpOpening(Game& game, const Opening& opening);

// Sets the depths, lays the opening, sets the sides and their captions, plays
// the game through computerGame and credits it.
PlayedGame playPairing(Game& game, const Pairing& pairing, const Opening& opening);

// The same from a board file: read into the record and replayed to its end
// (stepForward runs at least once), whatever the replay's result.
PlayedGame playPairing(Game& game, const Pairing& pairing, const BoardFile& file);

CycleResults playCycle(Game& game, const Schedule& schedule, const Opening& opening);
CycleResults playEntry(Game& game, const Schedule& schedule, const BoardFile& file);

}  // namespace quintline

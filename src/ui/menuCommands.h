#pragma once
// The menu commands that hand over to the board-file unit and the batch
// harness, one function per menu item.

#include <cstdint>

#include "game/game.h"

namespace quintline {

// Menu item save, once dlgSavefile has named a file and the caption shows it.
void saveBoardFileCommand(Game& game);
// Menu item read, likewise after dlgOpenfile.
void readBoardFileCommand(Game& game);
// The random items of the testsuit menu: cycleCount := cycles, then the tournament.
void randomTournamentCommand(Game& game, std::int16_t cycles);
// Menu item fromFile of the testsuit menu.
void testSuiteCommand(Game& game);

}  // namespace quintline

#include "ui/menuCommands.h"

namespace quintline {

// The board-file unit and the harness are not part of this branch yet; until
// they are, these commands stop at the point where they would hand over.

void saveBoardFileCommand(Game&) {}

void readBoardFileCommand(Game&) {}

void randomTournamentCommand(Game& game, std::int16_t cycles) {
    game.state().cycleCount = cycles;
}

void testSuiteCommand(Game&) {}

}  // namespace quintline

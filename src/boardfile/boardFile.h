#pragma once
// Saving and reading the board file named by boardFilePath. Both refuse with a
// message box and change nothing when the file can't be used.

#include "boardfile/boardFileFormat.h"
#include "game/game.h"

namespace quintline {

// Writes stepNum moves of the record and userColour, replacing the file.
// Changes no game state.
void saveBoardFile(Game& game);

// Reads the file into the record, ready to be played out by stepForward:
// an empty board, movesAhead at the number of moves, cmdForw enabled.
void readBoardFile(Game& game);

// What readBoardFile does with a file that passed its checks.
void applyBoardFile(Game& game, const BoardFile& file);

}  // namespace quintline

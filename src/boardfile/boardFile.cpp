#include "boardfile/boardFile.h"

namespace quintline {

void saveBoardFile(Game& game) {
    const std::string& path = game.state().boardFilePath;
    if (!replaceFile(path, formatBoardFile(game.state())))
        game.toolkit().messageBox(path + ": board file cannot be written! Not saved",
                                  MessageButtons::ok);
}

void readBoardFile(Game& game) {
    const std::string path = game.state().boardFilePath;
    const BoardFileRead read = loadBoardFile(path);
    if (read.fault != BoardFileFault::none) {
        game.toolkit().messageBox(refusalMessage(path, read), MessageButtons::ok);
        return;
    }
    applyBoardFile(game, read.file);
}

void applyBoardFile(Game& game, const BoardFile& file) {
    GameState& state = game.state();
    // With userColour at 1 the new game leaves the board empty.
    state.userColour = black;
    game.newGame();
    state.clickAllowed = flagTrue;
    for (const MoveRecordEntry& move : file.moves) {
        ++state.stepNum;
        state.moveRecord[static_cast<std::size_t>(state.stepNum)] = move;
    }
    state.userColour = file.userColour;
    if (state.userColour == white) state.clickAllowed = flagFalse;
    state.movesAhead = state.stepNum;
    state.stepNum = 0;
    game.toolkit().setEnabled(Control::cmdForw, true);
}

}  // namespace quintline

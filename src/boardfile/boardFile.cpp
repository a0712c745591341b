#include "boardfile/boardFile.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace quintline {
namespace {

// Writes beside the target and renames over it, so a failed write leaves the
// old file whole.
bool replaceFile(const std::string& path, const std::string& bytes) {
    const std::string partial = path + ".part";
    {
        std::ofstream out(partial, std::ios::binary | std::ios::trunc);
        if (!out.is_open()) return false;
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        out.close();
        if (!out) {
            std::remove(partial.c_str());
            return false;
        }
    }
    std::error_code error;
    std::filesystem::rename(partial, path, error);
    if (error) {
        std::remove(partial.c_str());
        return false;
    }
    return true;
}

}  // namespace

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

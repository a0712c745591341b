#pragma once
// The board file as bytes: writing a game's record out, and reading a file
// into a checked temporary that touches no game until it is known to be good.

#include <cstdint>
#include <filesystem>
#include <istream>
#include <string>
#include <vector>

#include "game/global.h"

namespace quintline {

inline constexpr std::int16_t fileGridSize = 15;
inline constexpr std::int16_t filePieceNumber = 5;
// No board file is larger: 225 moves take under 4 KiB.
inline constexpr std::size_t maxBoardFileBytes = 64 * 1024;

// The content of a board file that passed every check.
struct BoardFile {
    std::vector<MoveRecordEntry> moves;  // move 1 first
    Side userColour = black;             // the "UserTurn" value; 1 when that label is missing
};

enum class BoardFileFault {
    none,
    cannotOpen,
    unsuitable,  // grid size other than 15 or piece number other than 5
    tooLarge,    // more than maxBoardFileBytes
    broken,      // anything else: early end, bad number, bad move, bad "UserTurn"
};

struct BoardFileRead {
    BoardFile file;
    BoardFileFault fault = BoardFileFault::none;
    int line = 0;        // where a broken file went wrong
    std::string detail;  // what was wrong there
};

// The first stepNum moves of the record and userColour: what Save keeps.
BoardFile savedBoard(const GameState& state);

// The whole file for stepNum moves of the record and userColour, byte for byte.
std::string formatBoardFile(const GameState& state);
std::string formatBoardFile(const BoardFile& file);

// Writes beside the target and renames over it, so that the target is never
// seen half written and a failed write leaves the old file whole. The old file
// keeps its mode; a symbolic link keeps pointing at it. Refuses (writing
// nothing) a target that is not a regular file or that is read-only.
bool replaceFile(const std::string& path, const std::string& bytes);

// Removes from `folder` the partial copies that a process killed inside
// replaceFile left of the files whose names match the regular expression
// `targets`. Only for files that no other process may be replacing meanwhile.
void removeLeftoverPartials(const std::filesystem::path& folder, const std::string& targets);

// Reads and checks a whole file: the head, at most 225 moves with colours 1 or
// -1 on distinct points of the board, and the "UserTurn" value (-1, 0 or 1).
BoardFileRead parseBoardFile(std::istream& in);
// Reads at most maxBoardFileBytes and one byte more, so an endless file is refused at once.
BoardFileRead loadBoardFile(const std::string& path);

// The text of the message box that refuses a file.
std::string refusalMessage(const std::string& path, const BoardFileRead& read);

}  // namespace quintline

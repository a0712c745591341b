// Board files from any bytes: a file that passes its checks holds a legal
// record and saves to bytes that read back the same; a refusal is one line.

#include <cstdint>
#include <cstdlib>
#include <set>
#include <sstream>

#include "boardfile/boardFileFormat.h"

using namespace quintline;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
    const BoardFileRead read = parseBoardFile(in);
    if (read.fault != BoardFileFault::none) {
        if (refusalMessage("f", read).find_first_of("\r\n") != std::string::npos) std::abort();
        return 0;
    }
    std::set<std::pair<int, int>> points;
    GameState state;
    for (const MoveRecordEntry& m : read.file.moves) {
        if (!onBoard(m.x, m.y) || !points.insert({m.x, m.y}).second) std::abort();
        state.moveRecord[static_cast<std::size_t>(++state.stepNum)] = m;
    }
    state.userColour = read.file.userColour;
    std::istringstream saved(formatBoardFile(state));
    const BoardFileRead again = parseBoardFile(saved);
    if (again.fault != BoardFileFault::none || again.file.moves != read.file.moves ||
        again.file.userColour != read.file.userColour)
        std::abort();
    return 0;
}

#pragma once
// Shared pieces of the runner's and the engine's tests.

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "boardfile/boardFileFormat.h"
#include "game/game.h"
#include "game/silentToolkit.h"
#include "players/searchSet.h"
#include "support/scratchDirectory.h"

namespace quintline::testing {

// A real search one ply shallower (at least one): the same game flow in a fraction of the time.
template <auto search>
auto shallower(SearchState& s, std::int16_t step, std::int16_t depth) {
    return search(s, step, static_cast<std::int16_t>(std::max(depth - 1, 1)));
}

inline SearchSet shallowSearches() {
    return {&shallower<searchA>, &shallower<searchB>, &shallower<searchAKnowsB>,
            &shallower<searchBKnowsA>};
}

// A game of the library's own, opened as a session opens.
struct LibraryGame {
    SilentToolkit toolkit;
    Game game;
    explicit LibraryGame(SearchSet searches = {}) : game(toolkit, searches) {
        game.startSession();
        game.newGame();
    }
};

// A board file holding the moves in order, colours alternating from black.
inline void writeBoardFile(const std::filesystem::path& file, const std::vector<Point>& moves) {
    GameState state;
    for (std::size_t i = 0; i < moves.size(); ++i)
        state.moveRecord[i + 1] = {sideToMove(static_cast<std::int16_t>(i + 1)), moves[i].x,
                                   moves[i].y};
    state.stepNum = static_cast<std::int16_t>(moves.size());
    state.userColour = black;
    writeBytes(file, formatBoardFile(state));
}

// The lines of a report without their CR LF.
inline std::vector<std::string> reportLines(const std::filesystem::path& file) {
    std::vector<std::string> lines;
    std::istringstream in(readBytes(file));
    for (std::string line; std::getline(in, line);)
        lines.push_back(line.ends_with('\r') ? line.substr(0, line.size() - 1) : line);
    return lines;
}

}  // namespace quintline::testing

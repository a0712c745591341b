#pragma once
// Shared pieces of the batch runner's tests: cheaper searches, board files
// written from move lists, near-finished positions from real games, and the
// report split into its lines.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "boardfile/boardFileFormat.h"
#include "players/searchSet.h"
#include "support/gameRecords.h"
#include "support/scratchDirectory.h"

namespace quintline::testing {

// The real searches one ply shallower (at least one): the same game flow,
// a fraction of the time.
inline SearchSet shallowSearches() {
    SearchSet s;
    s.searchA = [](SearchState& st, std::int16_t step, std::int16_t depth) {
        return searchA(st, step, static_cast<std::int16_t>(std::max(depth - 1, 1)));
    };
    s.searchB = [](SearchState& st, std::int16_t step, std::int16_t depth) {
        return searchB(st, step, static_cast<std::int16_t>(std::max(depth - 1, 1)));
    };
    s.searchAKnowsB = [](SearchState& st, std::int16_t step, std::int16_t depth) {
        return searchAKnowsB(st, step, static_cast<std::int16_t>(std::max(depth - 1, 1)));
    };
    s.searchBKnowsA = [](SearchState& st, std::int16_t step, std::int16_t depth) {
        return searchBKnowsA(st, step, static_cast<std::int16_t>(std::max(depth - 1, 1)));
    };
    return s;
}

// A board file holding the moves in order, colours alternating from black.
inline void writeBoardFile(const std::filesystem::path& file, const std::vector<Point>& moves,
                           Side userColour = black) {
    GameState state;
    for (std::size_t i = 0; i < moves.size(); ++i)
        state.moveRecord[i + 1] = {static_cast<std::int16_t>(i % 2 == 0 ? black : white),
                                   moves[i].x, moves[i].y};
    state.stepNum = static_cast<std::int16_t>(moves.size());
    state.userColour = userColour;
    writeBytes(file, formatBoardFile(state));
}

// Game `index` (from 0) of the real games in the test data.
inline std::vector<Point> recordedGame(std::size_t index) {
    const std::vector<GameRecord> games = loadGameRecords();
    if (games.size() <= index) throw std::runtime_error("no recorded game: " + gameRecordsPath());
    return games[index].moves;
}

// The lines of a report without their CR LF.
inline std::vector<std::string> reportLines(const std::filesystem::path& file) {
    std::vector<std::string> lines;
    std::istringstream in(readBytes(file));
    std::string line;
    while (std::getline(in, line)) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

// The report without the lines that carry a time: what must not depend on
// the number of threads or on when the run happened.
inline std::vector<std::string> untimedLines(const std::filesystem::path& file) {
    std::vector<std::string> kept;
    for (const std::string& line : reportLines(file))
        if (line.find("Time") == std::string::npos) kept.push_back(line);
    return kept;
}

}  // namespace quintline::testing

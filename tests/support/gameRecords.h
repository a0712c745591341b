#pragma once
// Real tournament games (tests/data/gomocup-freestyle15.txt) as lists of
// points, and positions made from their first moves.

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "players/searchState.h"

namespace quintline::testing {

struct GameRecord {
    std::vector<Point> moves;  // black first, colours alternate
};

// The folder is fixed when the build is configured (QUINTLINE_DATA_DIR), so a
// test binary finds the games whatever directory it runs from.
inline constexpr const char* gameRecordsPath = QUINTLINE_DATA_DIR "/gomocup-freestyle15.txt";

// A point as the records write it, such as "H8": column letter A..O from the
// left, row 1..15 from the bottom; none for any other word.
inline std::optional<Point> recordPoint(const std::string& word) {
    const int row = word.empty() ? 0 : std::atoi(word.c_str() + 1);
    if (row < 1 || row > boardSize || word[0] < 'A' || word[0] > 'O') return std::nullopt;
    return Point{std::int16_t(word[0] - 'A' + 1), std::int16_t(16 - row)};
}

// Every game of the file, one a line, its moves as recordPoint reads them; a
// word from "#" on ends the line. An unreadable file gives an empty list.
inline std::vector<GameRecord> loadGameRecords() {
    std::vector<GameRecord> games;
    std::ifstream in(gameRecordsPath);
    for (std::string line; std::getline(in, line);) {
        std::istringstream words(line);
        GameRecord game;
        for (std::string word; words >> word && word[0] != '#';)
            if (const auto p = recordPoint(word)) game.moves.push_back(*p);
        if (!game.moves.empty()) games.push_back(std::move(game));
    }
    return games;
}

// The position after the first `count` moves of a game, with stepNum counting them.
inline SearchState positionAfter(const GameRecord& game, std::size_t count) {
    SearchState s;
    for (std::size_t i = 0; i < count && i < game.moves.size(); ++i) {
        placeStone(s.position, game.moves[i].x, game.moves[i].y, i % 2 == 0 ? black : white);
        ++s.stepNum;
    }
    return s;
}

}  // namespace quintline::testing

#pragma once
// Real tournament games (tests/data/gomocup-freestyle15.txt) as lists of
// points, and positions made from their first moves.

#include <cstdint>
#include <cstdlib>
#include <fstream>
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

// Every game of the file, one a line, its moves such as "H8": column letter A..O from the left, row
// 1..15 from the bottom; a word from "#" on ends the line. An unreadable file gives an empty list.
inline std::vector<GameRecord> loadGameRecords() {
    std::vector<GameRecord> games;
    std::ifstream in(gameRecordsPath);
    for (std::string line; std::getline(in, line);) {
        std::istringstream words(line);
        GameRecord game;
        for (std::string word; words >> word && word[0] != '#';) {
            const int row = std::atoi(word.c_str() + 1);
            if (word[0] >= 'A' && word[0] <= 'O' && row >= 1 && row <= boardSize)
                game.moves.push_back({std::int16_t(word[0] - 'A' + 1), std::int16_t(16 - row)});
        }
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

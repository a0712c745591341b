#pragma once
// The engine's side of the pbrain protocol, with no input or output of its
// own: one command line in, the answer lines out. The program feeds it the
// lines of stdin; the tests feed it scripts.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "game/seatedSearch.h"

namespace quintline::engine {

struct EngineSettings {
    PlayerKind kind = aKnowsB;  // 1..4
    std::int16_t depth = 3;     // 1..9
};

// True for the command that ends the engine, in any case and with any blanks
// around it; the program acts on it as soon as it is read.
bool isEndCommand(std::string_view line);

// "Quintline A-knows-B d3" and the like.
std::string engineName(const EngineSettings& settings);

class PbrainSession {
  public:
    explicit PbrainSession(EngineSettings settings, SearchSet searches = {});

    // The answer to one line (its line end removed): whole lines, each ending
    // in '\n', or nothing. A refused command leaves the board as it was.
    std::string answer(std::string_view line);

    bool ended() const { return ended_; }
    const SearchState& state() const { return state_; }

  private:
    struct Field {
        Point point;  // the engine's point, 1..15
        int owner;    // 1 own stone, 2 the opponent's
    };

    std::string command(std::string_view word, std::string_view rest, std::string_view line);
    std::string boardLine(std::string_view line);
    std::string setUpBoard();
    std::string turn(std::string_view rest);
    std::string takeBack(std::string_view rest);
    void noteRule(std::string_view rest);
    // The engine's move for the side to move: played on the board and answered.
    std::string move();
    SearchChoice search();
    void clear();

    EngineSettings settings_;
    SearchSet searches_;
    SearchState state_;
    bool ended_ = false;
    bool readingBoard_ = false;
    std::vector<Field> boardFields_;
    std::string boardFault_;    // the first fault of the BOARD lines, answered at DONE
    std::string pendingNotes_;  // MESSAGE lines waiting for the next move
};

}  // namespace quintline::engine

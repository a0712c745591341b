#pragma once
// One game and its control: the routines that turn clicks, buttons and menu
// commands into moves, over one GameState and one Toolkit.

#include <cstdint>

#include "game/global.h"
#include "game/toolkit.h"
#include "players/searchSet.h"

namespace quintline {

class Game {
  public:
    explicit Game(Toolkit& toolkit, SearchSet searches = {})
        : toolkit_(toolkit), searches_(searches) {}

    GameState& state() { return state_; }
    const GameState& state() const { return state_; }
    Toolkit& toolkit() { return toolkit_; }
    const SearchSet& searches() const { return searches_; }

    // Session start-up and new game.
    void startSession();
    void newGame();

    // The one door through which a stone enters the game: counts, records,
    // places and draws it.
    void Putchess(std::int16_t x, std::int16_t y, Side side);

    // One move of the computer player `kind` (1..4); returns the game-end code.
    GameCode computerMove(PlayerKind kind);

    // Turn flow.
    void boardMouseDown(float X, float Y);  // twips
    void userMove(std::int16_t x, std::int16_t y);
    void computerGame();

    // Move record and replay, and the four replay buttons.
    void stepForward();
    void stepBack();
    void cmdBackClick();
    void cmdForwClick();
    void backwardEndClick();
    void cmdForwardEndClick();

    // Suggestion.
    void toggleSuggestion();
    void showSuggestion();

    // Frames the candidate points and shows their number.
    void markCandidates();

  private:
    GameState state_;
    Toolkit& toolkit_;
    SearchSet searches_;
};

}  // namespace quintline

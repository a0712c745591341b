#include <string>

#include "game/captions.h"
#include "game/game.h"
#include "game/suggestionDepth.h"

namespace quintline {

void Game::toggleSuggestion() {
    GameState& s = state_;
    if (s.suggestionOn == flagFalse) {
        s.suggestionOn = flagTrue;
        toolkit_.setCaption(Control::Command1, captions::suggestionOn);
        showSuggestion();
    } else {
        // A mark already drawn stays on the board.
        s.suggestionOn = flagFalse;
        toolkit_.setCaption(Control::Command1, captions::suggestionOff);
    }
}

void Game::showSuggestion() {
    GameState& s = state_;
    const std::int16_t step = s.stepNum;
    const std::int16_t depth = suggestionDepth(step);
    toolkit_.setCaption(Control::Label1, std::to_string(depth));
    // Cleared so that a search that chooses nothing leaves no point to mark.
    s.bestX[step] = 0;
    s.bestY[step] = 0;
    searches_.run(computerA, s, depth);
    s.stepNum = step;
    const std::int16_t x = s.bestX[step];
    const std::int16_t y = s.bestY[step];
    if (onBoard(x, y) && s.position.board[x][y] == empty) toolkit_.drawSuggestionMark({x, y});
}

}  // namespace quintline

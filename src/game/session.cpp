#include <string>

#include "game/captions.h"
#include "game/game.h"
#include "game/settings.h"

namespace quintline {

void Game::startSession() {
    GameState& s = state_;
    const std::string size = std::to_string(boardSize);
    s.windowTitle = toolkit_.designCaption() + "  " + size + "*" + size + "  ";
    toolkit_.setCaption(Control::mainForm, s.windowTitle);

    s.cellSize = cellSizeFor(toolkit_.boardWidth());
    // The line table is built at compile time; there is nothing to build here.

    s.twoUsers = flagFalse;
    s.userColour = white;
    s.clickAllowed = flagTrue;
    s.blackSide = computerA;
    s.whiteSide = userKind;
    s.computerKind = computerA;
    s.computerColour = black;

    // Box 1 belongs to kind B, box 0 to kind A. A text that gives no depth keeps
    // the depth the state holds.
    if (const auto depth = depthFromText(toolkit_.depthBoxText(1))) s.depthB = *depth;
    if (const auto depth = depthFromText(toolkit_.depthBoxText(0))) s.depthA = *depth;
}

void Game::newGame() {
    GameState& s = state_;
    toolkit_.clearList(Control::List2);
    toolkit_.clearList(Control::List3);
    toolkit_.drawClearAndGrid();
    s.stepNum = 0;
    s.position.clear();
    for (std::size_t n = 1; n < s.moveRecord.size(); ++n) s.moveRecord[n] = {};
    // Whenever the user plays white, black's opening stone goes on the centre.
    if (s.userColour == white) Putchess(8, 8, black);
    s.clickAllowed = flagTrue;
    s.suggestionOn = flagFalse;
    toolkit_.setCaption(Control::Command1, captions::suggestionOff);
    s.movesAhead = 0;
}

}  // namespace quintline

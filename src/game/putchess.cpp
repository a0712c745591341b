#include <cassert>
#include <string>

#include "game/captions.h"
#include "game/game.h"
#include "game/modelGuard.h"

namespace quintline {

void Game::Putchess(std::int16_t x, std::int16_t y, Side side) {
    GameState& s = state_;
    ++s.stepNum;
    toolkit_.setCaption(Control::stepNumLab, std::to_string(s.stepNum));
    s.moveRecord[s.stepNum] = {side, x, y};
    if (entersModel(x, y, side)) {
        placeStone(s.position, x, y, side);
        assert(censusOk(s.position));
    } else if (side != black && side != white) {
        // The canvas has no colour for it; the answer changes nothing.
        toolkit_.messageBox(captions::badColour, MessageButtons::okCancel);
    }
    toolkit_.drawStoneAndRing({x, y}, side, s.userColour);
    toolkit_.repaint();
}

}  // namespace quintline

#include <array>
#include <span>
#include <string>

#include "game/game.h"

namespace quintline {

void Game::markCandidates() {
    const Position& pos = state_.position;
    std::array<Point, maxStones> candidates;
    std::int16_t n = 0;
    for (std::int16_t x = 1; x <= boardSize; ++x)
        for (std::int16_t y = 1; y <= boardSize; ++y)
            if (pos.isCandidate(x, y)) candidates[n++] = {x, y};
    toolkit_.drawCandidateFrames(std::span<const Point>(candidates.data(), n));
    toolkit_.setCaption(Control::checkPos, std::to_string(n));
    toolkit_.repaint();
}

}  // namespace quintline

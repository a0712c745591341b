#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "game/captions.h"
#include "game/game.h"
#include "game/modelGuard.h"

namespace quintline {

namespace {

std::string_view runningCaption(PlayerKind kind) {
    switch (kind) {
        case computerA:
            return captions::aRunning;
        case computerB:
            return captions::bRunning;
        case aKnowsB:
            return captions::aKnowsBRunning;
        default:
            return captions::bKnowsARunning;
    }
}

std::string_view prediction(Score score, int horizon) {
    if (score >= winScore) return captions::blackWillWin;
    if (score <= -winScore) return captions::whiteWillWin;
    if (horizon == maxStones) return captions::noOneWillWin;
    return captions::notSure;
}

}  // namespace

GameCode Game::computerMove(PlayerKind kind) {
    GameState& s = state_;
    // A new stone gives up whatever lay ahead in the record.
    s.movesAhead = 0;
    toolkit_.setEnabled(Control::cmdForw, false);

    if (s.stepNum == 0) {
        Putchess(8, 8, black);
        s.gameResult = gameOpen;
    } else {
        const std::int16_t step = s.stepNum;
        const Side side = sideToMove(static_cast<std::int16_t>(step + 1));
        const std::int16_t depth = isAFamily(kind) ? s.depthA : s.depthB;
        // Cleared so that a search that chooses nothing cannot leave an old point here.
        s.bestX[step] = 0;
        s.bestY[step] = 0;

        std::optional<nodeScores> scores;
        if (kind >= computerA && kind <= bKnowsA) {
            toolkit_.setCaption(Control::Label1, std::to_string(depth));
            toolkit_.setCaption(Control::whoRun, runningCaption(kind));
            // Below depth 1 the search only scores the position and chooses
            // nothing; a negative depth would never reach a leaf.
            scores = searches_.run(kind, s, std::max<std::int16_t>(depth, 0));
            s.stepNum = step;  // every search node wrote it
            toolkit_.setCaption(Control::winLab, prediction(scores->ownScore, step + depth));
        }

        const std::int16_t x = s.bestX[step];
        const std::int16_t y = s.bestY[step];
        if (scores && onBoard(x, y) && s.position.board[x][y] == empty) {
            Putchess(x, y, side);
            s.gameResult = gameEndTest(s.position, s.stepNum, x, y, side);
            markCandidates();
        } else {
            // No point to play (depth below 1, a five already standing, or no
            // search for this kind): the game cannot go on from here.
            s.gameResult = fiveHolder(s.position);
        }
    }

    const GameCode code = s.gameResult;
    if (code == gameOpen) {
        s.clickAllowed = flagTrue;
        if (s.suggestionOn != flagFalse) showSuggestion();
    } else if (code == gameDrawn) {
        toolkit_.setCaption(Control::whoRun, captions::noOneWins);
    } else if (code == -s.userColour) {
        toolkit_.setCaption(Control::whoRun, captions::computerWins);
    }
    return code;
}

}  // namespace quintline

#include <cassert>
#include <string>

#include "game/captions.h"
#include "game/game.h"
#include "game/modelGuard.h"

namespace quintline {

void Game::stepForward() {
    GameState& s = state_;
    if (s.movesAhead > 0) {
        const MoveRecordEntry move = s.moveRecord[s.stepNum + 1];
        Putchess(move.x, move.y, move.colour);
        // A replayed stone never keeps a ring.
        if (move.colour == black || move.colour == white)
            toolkit_.drawPlainStone({move.x, move.y}, move.colour);
        --s.movesAhead;
        s.gameResult = judgeStone(s.position, s.stepNum, move.x, move.y, move.colour);
        if (s.gameResult == blackWon)
            toolkit_.setCaption(Control::whoRun, captions::replayBlackWins);
        else if (s.gameResult == gameDrawn)
            toolkit_.setCaption(Control::whoRun, captions::replayNoOneWins);
        else if (s.gameResult == whiteWon)
            toolkit_.setCaption(Control::whoRun, captions::replayWhiteWins);
        // While the game is open the opponent's stone hands the turn to the user.
        s.clickAllowed =
            s.gameResult == gameOpen && move.colour == -s.userColour ? flagTrue : flagFalse;
    } else if (s.userColour == empty) {
        // Watching a board file: a step past its end is one computer move.
        computerMove(s.computerKind);
    }
    if (s.movesAhead == 0) toolkit_.setEnabled(Control::cmdForw, false);
    toolkit_.setEnabled(Control::cmdBack, true);
}

void Game::stepBack() {
    GameState& s = state_;
    if (s.stepNum > 0) {
        ++s.movesAhead;
        const MoveRecordEntry move = s.moveRecord[s.stepNum];
        --s.stepNum;
        toolkit_.setCaption(Control::stepNumLab, std::to_string(s.stepNum));
        if (entersModel(move.x, move.y, move.colour)) {
            removeStone(s.position, move.x, move.y, move.colour);
            assert(censusOk(s.position));
        }
        toolkit_.eraseStone({move.x, move.y});
        // Taking back the user's own stone gives the user the turn again.
        s.clickAllowed = move.colour == s.userColour ? flagTrue : flagFalse;
    }
    if (s.stepNum == 0) toolkit_.setEnabled(Control::cmdBack, false);
    toolkit_.setEnabled(Control::cmdForw, true);
}

void Game::cmdBackClick() {
    stepBack();
}

void Game::cmdForwClick() {
    stepForward();
}

void Game::backwardEndClick() {
    do {
        stepBack();
    } while (state_.stepNum > 0);
}

void Game::cmdForwardEndClick() {
    do {
        stepForward();
    } while (state_.movesAhead > 0);
}

}  // namespace quintline

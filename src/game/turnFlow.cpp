#include <cmath>

#include "game/captions.h"
#include "game/game.h"

namespace quintline {

namespace {

// The board column (or row) under a position in twips, or 0 when the position
// lies outside the fifteen cells.
std::int16_t cellUnder(float twips, std::int16_t cellSize) {
    const double cell = std::floor(static_cast<double>(twips) / cellSize) + 1;
    if (!(cell >= 1 && cell <= boardSize)) return 0;
    return static_cast<std::int16_t>(cell);
}

}  // namespace

void Game::boardMouseDown(float X, float Y) {
    GameState& s = state_;
    if (s.clickAllowed == flagFalse) return;
    const std::int16_t x = cellUnder(X, s.cellSize);
    const std::int16_t y = cellUnder(Y, s.cellSize);
    // A click beside the board, or while nobody holds a colour (watching a
    // board file), is no move at all and leaves the turn as it was.
    if (x == 0 || y == 0 || (s.userColour != black && s.userColour != white)) return;
    if (s.twoUsers == flagFalse) s.clickAllowed = flagFalse;
    if (s.position.board[x][y] != empty) {
        s.clickAllowed = flagTrue;  // a click on a stone costs nothing
        return;
    }
    userMove(x, y);
}

void Game::userMove(std::int16_t x, std::int16_t y) {
    GameState& s = state_;
    if (s.userColour != black && s.userColour != white) return;
    toolkit_.setEnabled(Control::cmdBack, false);
    s.movesAhead = 0;
    toolkit_.setEnabled(Control::cmdForw, false);
    // Paint over the ring that marks the opponent's last stone.
    if (s.stepNum > 0) {
        const MoveRecordEntry& last = s.moveRecord[s.stepNum];
        toolkit_.drawPlainStone({last.x, last.y}, static_cast<Side>(-s.userColour));
    }
    Putchess(x, y, s.userColour);
    s.gameResult = gameEndTest(s.position, s.stepNum, x, y, s.userColour);

    if (s.gameResult != gameOpen) {
        toolkit_.setEnabled(Control::cmdBack, true);
        if (s.gameResult == gameDrawn)
            toolkit_.messageBox(captions::noOneWins, MessageButtons::ok);
        else if (s.gameResult == s.userColour)
            toolkit_.messageBox(captions::youWin, MessageButtons::ok);
        return;
    }
    if (s.twoUsers == flagFalse) {
        computerMove(s.computerKind);
        toolkit_.setEnabled(Control::cmdBack, true);
    } else {
        s.userColour = static_cast<Side>(-s.userColour);
    }
}

void Game::computerGame() {
    GameState& s = state_;
    s.movesAhead = 0;
    toolkit_.setEnabled(Control::cmdForw, false);

    // Every call commits a stone or ends the game, so the loop ends by the
    // 225th stone at the latest.
    bool blackMoves = sideToMove(static_cast<std::int16_t>(s.stepNum + 1)) == black;
    do {
        s.gameResult = computerMove(blackMoves ? s.blackSide : s.whiteSide);
        blackMoves = !blackMoves;
    } while (s.gameResult == gameOpen);

    if (s.gameResult == whiteWon)
        toolkit_.setCaption(Control::whoRun,
                            isAFamily(s.whiteSide) ? captions::aWhiteWins : captions::bWhiteWins);
    else if (s.gameResult == blackWon)
        toolkit_.setCaption(Control::whoRun,
                            isAFamily(s.blackSide) ? captions::aBlackWins : captions::bBlackWins);

    toolkit_.setEnabled(Control::cmdBack, true);
    s.clickAllowed = flagFalse;
}

}  // namespace quintline

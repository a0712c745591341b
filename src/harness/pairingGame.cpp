#include "harness/pairingGame.h"

#include "boardfile/boardFile.h"

namespace quintline {
namespace {

void setDepths(GameState& state, const Pairing& pairing) {
    state.depthA = pairing.depthA;
    state.depthB = pairing.depthB;
}

// Sides, captions, the game itself and its credit: the same for every start.
PlayedGame playFromPosition(Game& game, const Pairing& pairing) {
    GameState& state = game.state();
    state.blackSide = pairing.black;
    state.whiteSide = pairing.white;
    game.toolkit().setCaption(Control::blackSideLabel, pairing.blackCaption);
    game.toolkit().setCaption(Control::whiteSideLabel, pairing.whiteCaption);
    PlayedGame played;
    played.opening.reserve(static_cast<std::size_t>(state.stepNum));
    for (std::int16_t n = 1; n <= state.stepNum; ++n)
        played.opening.push_back({state.moveRecord[n].x, state.moveRecord[n].y});
    game.computerGame();
    played.group = creditGame(pairing, state.gameResult, state.stepNum);
    played.result = state.gameResult;
    played.record = savedBoard(state);
    return played;
}

// The side userColour must hold for opening stone k: white on even k.
Side colourOfStone(int k) {
    return k % 2 == 0 ? white : black;
}

template <typename Start>
CycleResults playAll(Game& game, const Schedule& schedule, const Start& start) {
    CycleResults results;
    for (const Pairing& pairing : schedule)
        results.push_back(playPairing(game, pairing, start).group);
    return results;
}

}  // namespace

void setUpOpening(Game& game, const Opening& opening) {
    GameState& state = game.state();
    state.userColour = white;
    game.newGame();
    state.twoUsers = flagTrue;
    for (std::size_t i = 0; i < opening.stones.size(); ++i) {
        state.userColour = colourOfStone(static_cast<int>(i) + 2);
        game.userMove(opening.stones[i].x, opening.stones[i].y);
    }
}

PlayedGame playPairing(Game& game, const Pairing& pairing, const Opening& opening) {
    setDepths(game.state(), pairing);
    setUpOpening(game, opening);
    return playFromPosition(game, pairing);
}

PlayedGame playPairing(Game& game, const Pairing& pairing, const BoardFile& file) {
    // The depths come first: a file whose user colour is 0 makes stepForward
    // past its end a computer move.
    setDepths(game.state(), pairing);
    applyBoardFile(game, file);
    do {
        game.stepForward();
    } while (game.state().movesAhead > 0);
    return playFromPosition(game, pairing);
}

CycleResults playCycle(Game& game, const Schedule& schedule, const Opening& opening) {
    return playAll(game, schedule, opening);
}

CycleResults playEntry(Game& game, const Schedule& schedule, const BoardFile& file) {
    return playAll(game, schedule, file);
}

}  // namespace quintline

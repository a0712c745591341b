#include "batch/analyse.h"

#include <memory>
#include <sstream>

#include "boardfile/boardFile.h"
#include "game/game.h"
#include "game/silentToolkit.h"

namespace quintline::batch {
namespace {

std::string_view colourName(Side side) {
    return side == black ? "black" : "white";
}

}  // namespace

AnalyseOutcome analysePosition(const AnalyseCommand& command, const SearchSet& searches) {
    AnalyseOutcome outcome;
    const BoardFileRead read = loadBoardFile(command.boardFile);
    if (read.fault != BoardFileFault::none) {
        outcome.error = refusalMessage(command.boardFile, read);
        return outcome;
    }

    SilentToolkit toolkit;
    auto game = std::make_unique<Game>(toolkit, searches);
    game->startSession();
    game->newGame();
    applyBoardFile(*game, read.file);
    while (game->state().movesAhead > 0) game->stepForward();

    GameState& state = game->state();
    const std::int16_t step = state.stepNum;
    const Side mover = sideToMove(static_cast<std::int16_t>(step + 1));
    seatSides(state, command.kind);
    state.blackSide = command.black.value_or(state.blackSide);
    state.whiteSide = command.white.value_or(state.whiteSide);

    const bool modelled = command.kind == aKnowsB || command.kind == bKnowsA;
    if (modelled) {
        const PlayerKind moverKind = mover == black ? state.blackSide : state.whiteSide;
        const PlayerKind otherKind = mover == black ? state.whiteSide : state.blackSide;
        if (moverKind != command.kind || otherKind == command.kind) {
            outcome.usageError = true;
            outcome.error = "kind " + std::to_string(command.kind) +
                            " searches for the side to move, " + std::string(colourName(mover)) +
                            " here: that side must play it and the other side another kind";
            return outcome;
        }
    }

    outcome.analysis = searchFor(state, command.kind, command.depth, searches);
    return outcome;
}

std::string analysisLine(const Analysis& analysis) {
    std::ostringstream line;
    line << analysis.point.x << ' ' << analysis.point.y << ' ' << analysis.value;
    if (analysis.modelScore) line << ' ' << *analysis.modelScore;
    return line.str();
}

}  // namespace quintline::batch

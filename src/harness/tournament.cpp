#include "harness/tournament.h"

#include "harness/batchMessages.h"
#include "harness/opening.h"
#include "harness/pairingGame.h"
#include "harness/report.h"
#include "harness/reportLines.h"
#include "harness/reportLock.h"

namespace quintline {

void runTournament(Game& game) {
    SeededUniform uniform(clockSeed());
    SystemClock clock;
    runTournament(game, uniform, clock, reportFileName);
}

void runTournament(Game& game, UniformSource& uniform, Clock& clock,
                   const std::filesystem::path& reportFile) {
    GameState& state = game.state();
    ReportLock lock;
    if (const auto taken = lock.tryTake(reportFile); taken != ReportLock::Outcome::taken) {
        game.toolkit().messageBox(taken == ReportLock::Outcome::busy ? reportBusy(reportFile)
                                                                     : reportNotStarted(reportFile),
                                  MessageButtons::ok);
        return;
    }
    Report report(reportFile, clock);
    if (!report.open(state.boardFilePath, Schedule::fixed().header())) {
        game.toolkit().messageBox(reportNotStarted(reportFile), MessageButtons::ok);
        return;
    }
    const Schedule& schedule = Schedule::fixed();
    CreditCounts credits(schedule.size());
    for (int cycle = 0; cycle < state.cycleCount; ++cycle) {
        const Opening opening = drawOpening(uniform);
        const CycleResults results = playCycle(game, schedule, opening);
        countCredits(credits, results);
        if (!report.addGameLine(state.boardFilePath, results)) {
            game.toolkit().messageBox(reportStopped(reportFile), MessageButtons::ok);
            return;
        }
    }
    if (!report.close(state.boardFilePath, credits))
        game.toolkit().messageBox(reportStopped(reportFile), MessageButtons::ok);
}

}  // namespace quintline

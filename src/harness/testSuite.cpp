#include "harness/testSuite.h"

#include "boardfile/boardFileFormat.h"
#include "harness/batchMessages.h"
#include "harness/pairingGame.h"
#include "harness/report.h"
#include "harness/reportLines.h"
#include "harness/reportLock.h"
#include "harness/testSuiteList.h"

namespace quintline {

void runTestSuite(Game& game) {
    SystemClock clock;
    runTestSuite(game, clock, testSuiteFileName, reportFileName);
}

void runTestSuite(Game& game, Clock& clock, const std::filesystem::path& listFile,
                  const std::filesystem::path& reportFile) {
    GameState& state = game.state();
    Toolkit& toolkit = game.toolkit();

    TestSuiteList list;
    std::string fault;
    if (!list.open(listFile, fault)) {
        toolkit.messageBox(listNotStarted(fault), MessageButtons::ok);
        return;
    }
    ReportLock lock;
    if (const auto taken = lock.tryTake(reportFile); taken != ReportLock::Outcome::taken) {
        toolkit.messageBox(taken == ReportLock::Outcome::busy ? reportBusy(reportFile)
                                                              : reportNotStarted(reportFile),
                           MessageButtons::ok);
        return;
    }
    Report report(reportFile, clock);
    if (!report.open(state.boardFilePath, Schedule::fixed().header())) {
        toolkit.messageBox(reportNotStarted(reportFile), MessageButtons::ok);
        return;
    }
    const Schedule& schedule = Schedule::fixed();
    CreditCounts credits(schedule.size());
    state.twoUsers = flagFalse;
    state.clickAllowed = flagFalse;

    while (std::optional<ListEntry> entry = list.nextEntry()) {
        if (!entry->refusal.empty()) {
            toolkit.messageBox(listFile.string() + ": an entry skipped: " + entry->refusal,
                               MessageButtons::ok);
            continue;
        }
        state.boardFilePath = std::move(entry->path);
        toolkit.setCaption(Control::mainForm, state.windowTitle + "      " + state.boardFilePath);
        // Read once and checked once: a refused file is reported once and skipped.
        const BoardFileRead read = loadBoardFile(state.boardFilePath);
        if (read.fault != BoardFileFault::none) {
            toolkit.messageBox(refusalMessage(state.boardFilePath, read), MessageButtons::ok);
            continue;
        }
        const CycleResults results = playEntry(game, schedule, read.file);
        countCredits(credits, results);
        if (!report.addGameLine(state.boardFilePath, results)) {
            toolkit.messageBox(reportStopped(reportFile), MessageButtons::ok);
            return;
        }
    }
    if (!report.close(state.boardFilePath, credits))
        toolkit.messageBox(reportStopped(reportFile), MessageButtons::ok);
    else if (!list.shortfall().empty())
        toolkit.messageBox(list.shortfall(), MessageButtons::ok);
}

}  // namespace quintline

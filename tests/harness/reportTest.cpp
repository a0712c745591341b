// A report written under a file-size limit: each stretch is appended whole or not at all.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>

#include "harness/fakes.h"
#include "harness/report.h"
#include "harness/schedule.h"
#include "support/scratchDirectory.h"

namespace quintline::testing {
namespace {

// The three stretches of a block (head, a game line, tail) under a file-size
// limit that falls inside each in turn: the file keeps the whole stretches
// before it and nothing of the one cut short. Lines end only where they should.
TEST(Report, EachStretchIsAppendedWholeOrNotAtAll) {
    ScratchDirectory dir;
    const std::string earlier = "an earlier run's line\r\n";
    std::vector<std::uintmax_t> ends{earlier.size()};  // of the earlier line and of each stretch
    const auto stretchesWritten = [&](const std::filesystem::path& file) {
        ScriptedClock clock({"10:00:00", "10:00:05"}, {36000.0f, 36004.5f});
        Report report(file, clock);
        const auto mark = [&] {  // records the sizes on the first, whole run
            if (ends.size() < 4) ends.push_back(file_size(file));
            return true;
        };
        const std::string path = "entry\r\n.txt";  // its line end never reaches the file
        if (!report.open(path, Schedule::fixed().header()) || !mark()) return 0;
        if (!report.addGameLine(path, CycleResults{}) || !mark()) return 1;
        return report.close(path, CreditCounts{}) && mark() ? 3 : 2;
    };
    writeBytes(dir / "whole.txt", earlier);
    ASSERT_EQ(stretchesWritten(dir / "whole.txt"), 3);
    const std::string whole = readBytes(dir / "whole.txt");
    ASSERT_EQ(std::count(whole.begin(), whole.end(), '\n'), 7);
    for (int stretch = 0; stretch < 3; ++stretch) {
        const std::filesystem::path file = dir / ("cut" + std::to_string(stretch) + ".txt");
        writeBytes(file, earlier);
        const pid_t pid = fork();
        if (pid == 0) {
            const rlim_t mid = (ends[stretch] + ends[stretch + 1]) / 2;
            const rlimit limit{mid, mid};
            std::signal(SIGXFSZ, SIG_IGN);
            setrlimit(RLIMIT_FSIZE, &limit);
            _exit(stretchesWritten(file));
        }
        int status = 0;
        waitpid(pid, &status, 0);
        EXPECT_EQ(WIFEXITED(status) ? WEXITSTATUS(status) : -1, stretch);
        EXPECT_EQ(readBytes(file), whole.substr(0, ends[stretch])) << stretch;
    }
}

}  // namespace
}  // namespace quintline::testing

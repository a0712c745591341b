#include <gtest/gtest.h>

#include "harness/fakes.h"
#include "harness/report.h"
#include "harness/reportLines.h"
#include "support/scratchDirectory.h"

namespace quintline {
namespace {

using testing::readBytes;
using testing::ScratchDirectory;
using testing::ScriptedClock;

const std::string header =
    "    A(3):B(2) ,  B(2):A(3) ,  A-K-B(3):B(2) , B(2):A-K-B(3) , A(2):B(3) , B(3):A(2) , "
    "A(2):B-KNOW-A(3) , B-KNOW-A(3):A(2) , A(3):B(3) , B(3):A(3) , A-K-B(3):B(3) , "
    "B(3):A-K-B(3) , A(3):B-K-A(3) , B-K-A(3):A(3)";

CycleResults sampleResults() {
    CycleResults r;
    for (std::size_t n = 0; n < r.size(); ++n)
        r[n] = ResultGroup{n % 3 == 0 ? 'A' : 'B', static_cast<std::int16_t>(20 + n)};
    r[13] = ResultGroup{'A', 100};
    return r;
}

TEST(ReportLines, EveryLineByteForByteWithAndWithoutPath) {
    EXPECT_EQ(startLine("", "09:05:01"), "start Time: 09:05:01\r\n");
    EXPECT_EQ(startLine("/b/x.txt", "23:59:59"), "/b/x.txtstart Time: 23:59:59\r\n");
    EXPECT_EQ(headerLine(""), header + "\r\n");
    EXPECT_EQ(headerLine("p"), "p" + header + "\r\n");
    EXPECT_EQ(resultGroupText({'A', 89}), "A 89 ");
    EXPECT_EQ(gameLine("", sampleResults()),
              " A 20 B 21 B 22 A 23 B 24 B 25 A 26 B 27 B 28 A 29 B 30 B 31 A 32 A 100 \r\n");
    EXPECT_EQ(gameLine("q.txt", sampleResults()).substr(0, 11), "q.txt A 20 ");
    CreditCounts counts{};
    counts[0] = 3;
    counts[2] = 12;
    counts[13] = 10000;
    EXPECT_EQ(summaryLine(counts),
              " 3 , 0 , 12 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 10000 \r\n");
    EXPECT_EQ(endLine("", "10:00:00"), "End Time: 10:00:00\r\n");
    EXPECT_EQ(usedLine("", 12.5f), "Used Time (second):  12.5 \r\n");
    EXPECT_EQ(usedLine("p", -86390.25f), "pUsed Time (second): -86390.25 \r\n");
}

TEST(Report, ThreeStretchesAppendOneBlockPerRunAndTimeTheMiddle) {
    ScratchDirectory dir;
    const auto file = dir / "result.txt";
    // Timer readings: after the header, after the end line; the first run
    // crosses midnight and reports a negative time as the timer does.
    ScriptedClock clock({"23:59:50", "00:00:10", "08:00:00", "08:00:02"},
                        {86390.0f, 10.0f, 28800.5f, 28802.75f});
    CreditCounts counts{};
    counts[1] = 1;

    Report first(file, clock);
    ASSERT_TRUE(first.open(""));
    EXPECT_EQ(readBytes(file), "start Time: 23:59:50\r\n" + header + "\r\n");
    ASSERT_TRUE(first.addGameLine("", sampleResults()));
    ASSERT_TRUE(first.close("", counts));

    Report second(file, clock);
    ASSERT_TRUE(second.open("x"));
    ASSERT_TRUE(second.close("y", CreditCounts{}));

    const std::string zeros = " 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 \r\n";
    EXPECT_EQ(readBytes(file), "start Time: 23:59:50\r\n" + header + "\r\n" +
                                   gameLine("", sampleResults()) +
                                   " 0 , 1 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 \r\n" +
                                   "End Time: 00:00:10\r\nUsed Time (second): -86380 \r\n" +
                                   "xstart Time: 08:00:00\r\nx" + header + "\r\n" + zeros +
                                   "yEnd Time: 08:00:02\r\nyUsed Time (second):  2.25 \r\n");
    EXPECT_EQ(clock.unusedReadings(), 0u);
}

TEST(Report, UnwritableFileWritesNothing) {
    ScratchDirectory dir;
    ScriptedClock clock({"01:02:03"}, {1.0f});
    // A directory stands where the report should be.
    std::filesystem::create_directory(dir / "result.txt");
    Report report(dir / "result.txt", clock);
    EXPECT_FALSE(report.open(""));
    EXPECT_FALSE(appendToFile(dir / "missing" / "result.txt", "x"));
    EXPECT_FALSE(std::filesystem::exists(dir / "missing"));
}

}  // namespace
}  // namespace quintline

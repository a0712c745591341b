#include <gtest/gtest.h>

#include "harness/reportLines.h"

namespace quintline {
namespace {

// Whole blocks are checked through the runs; these are the pieces they rarely reach.
TEST(ReportLines, PiecesRunStraightOnFromThePath) {
    EXPECT_EQ(startLine("/b/x.txt", "23:59:59"), "/b/x.txtstart Time: 23:59:59\r\n");
    EXPECT_EQ(resultGroupText({'A', 100}), "A 100 ");
    CycleResults results;
    results.fill({'B', 9});
    results[0] = {'A', 225};
    EXPECT_EQ(gameLine("", results),
              " A 225 B 9 B 9 B 9 B 9 B 9 B 9 B 9 B 9 B 9 B 9 B 9 B 9 B 9 \r\n");
    CreditCounts counts{};
    counts[0] = 3;
    counts[2] = 12;
    counts[13] = 10000;
    EXPECT_EQ(summaryLine(counts),
              " 3 , 0 , 12 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 10000 \r\n");
    // Over midnight the timer starts again from 0 and the difference goes negative.
    EXPECT_EQ(usedLine("p", 10.0f - 86390.75f), "pUsed Time (second): -86380.75 \r\n");
}

}  // namespace
}  // namespace quintline

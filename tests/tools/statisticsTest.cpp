// Wilson intervals, the summary table on stdout and the progress line.

#include <gtest/gtest.h>

#include <iterator>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "batch/progress.h"
#include "batch/summaryTable.h"
#include "batch/wilson.h"

namespace quintline::batch {
namespace {

using Words = std::vector<std::string>;

TEST(Wilson, KnownIntervalsAtZ196AndWiderAtALargerZ) {
    for (const auto& [k, n, low, high] :
         {std::tuple<std::size_t, std::size_t, double, double>(5, 10, 0.236593, 0.763407),
          {0, 10, 0.0, 0.277533},
          {10, 10, 0.722467, 1.0},
          {1, 1, 0.206549, 1.0},
          {81, 263, 0.255289, 0.366210}}) {
        const auto interval = wilsonInterval(k, n);
        ASSERT_TRUE(interval);
        EXPECT_NEAR(interval->low, low, 1e-6) << k << "/" << n;
        EXPECT_NEAR(interval->high, high, 1e-6) << k << "/" << n;
    }
    EXPECT_FALSE(wilsonInterval(0, 0));
    const auto wide = wilsonInterval(5, 10, 2.576);
    EXPECT_TRUE(wide && wide->low < 0.2366 && wide->high > 0.7634);
}

std::vector<Words> tableWords(const std::string& table) {
    std::vector<Words> rows;
    std::istringstream lines(table);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        rows.emplace_back(std::istream_iterator<std::string>(words),
                          std::istream_iterator<std::string>());
    }
    return rows;
}

TEST(SummaryTable, RowsPerPairingAndPerColourSwappedPair) {
    CreditCounts credits(14);
    credits[0] = 7;
    credits[1] = 3;
    credits[13] = 20;
    const auto rows = tableWords(summaryTable(Schedule::fixed(), credits, 20));
    ASSERT_EQ(rows.size(), 24u);  // heading, 14 pairings, blank, heading, 7 pairs
    EXPECT_EQ(rows[1], (Words{"1", "A(3):B(2)", "20", "7", "0.350", "0.181..0.567"}));
    EXPECT_EQ(rows[14], (Words{"14", "B-K-A(3):A(3)", "20", "20", "1.000", "0.839..1.000"}));
    // A pair adds both colours: 10 of 40.
    EXPECT_EQ(rows[17],
              (Words{"1-2", "A(3):B(2)", "/", "B(2):A(3)", "40", "10", "0.250", "0.142..0.402"}));
    EXPECT_EQ(tableWords(summaryTable(Schedule::fixed(), CreditCounts(14), 0))[5],
              (Words{"5", "A(2):B(3)", "0", "0", "-", "-"}));
}

TEST(Progress, RateAndTimeLeft) {
    EXPECT_EQ(progressLine(0, 140, 0.0), "0/140 games, 0.00 games/s, ? left");
    EXPECT_EQ(progressLine(37, 140, 14.8), "37/140 games, 2.50 games/s, 0:41 left");
    EXPECT_EQ(progressLine(10, 14010, 10.0), "10/14010 games, 1.00 games/s, 3:53:20 left");
    EXPECT_EQ(std::tuple(clockDuration(59.6), clockDuration(-3)), std::tuple("1:00", "0:00"));
}

}  // namespace
}  // namespace quintline::batch

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "batch/progress.h"
#include "batch/summaryTable.h"
#include "batch/wilson.h"

namespace quintline::batch {
namespace {

TEST(Wilson, KnownIntervals) {
    struct Case {
        std::size_t k, n;
        double low, high;
    };
    // Reference values of the Wilson score interval at z = 1.96.
    for (const Case& c : {Case{5, 10, 0.236593, 0.763407}, Case{0, 10, 0.0, 0.277533},
                          Case{10, 10, 0.722467, 1.0}, Case{1, 1, 0.206549, 1.0},
                          Case{81, 263, 0.255289, 0.366210}, Case{7, 20, 0.181192, 0.567146}}) {
        const auto interval = wilsonInterval(c.k, c.n);
        ASSERT_TRUE(interval);
        EXPECT_NEAR(interval->low, c.low, 1e-6) << c.k << "/" << c.n;
        EXPECT_NEAR(interval->high, c.high, 1e-6) << c.k << "/" << c.n;
    }
    EXPECT_FALSE(wilsonInterval(0, 0));
    // A wider interval at a larger z, around the same share.
    const auto wide = wilsonInterval(5, 10, 2.576);
    EXPECT_LT(wide->low, 0.2366);
    EXPECT_GT(wide->high, 0.7634);
}

std::vector<std::vector<std::string>> tableWords(const std::string& table) {
    std::vector<std::vector<std::string>> rows;
    std::istringstream lines(table);
    std::string line;
    while (std::getline(lines, line)) {
        std::istringstream words(line);
        std::vector<std::string> row;
        for (std::string w; words >> w;) row.push_back(w);
        rows.push_back(row);
    }
    return rows;
}

TEST(SummaryTable, RowsPerPairingAndPerColourSwappedPair) {
    CreditCounts credits{};
    credits[0] = 7;
    credits[1] = 3;
    credits[13] = 20;
    const auto rows = tableWords(summaryTable(credits, 20));
    // Heading, 14 pairings, blank, heading, 7 pairs.
    ASSERT_EQ(rows.size(), 24u);
    EXPECT_EQ(rows[1],
              (std::vector<std::string>{"1", "A(3):B(2)", "20", "7", "0.350", "0.181..0.567"}));
    EXPECT_EQ(rows[2][1], "B(2):A(3)");
    EXPECT_EQ(rows[2][3], "3");
    EXPECT_EQ(rows[14], (std::vector<std::string>{"14", "B-K-A(3):A(3)", "20", "20", "1.000",
                                                  "0.839..1.000"}));
    EXPECT_TRUE(rows[15].empty());
    // The first pair adds both colours: 10 of 40.
    EXPECT_EQ(rows[17], (std::vector<std::string>{"1-2", "A(3):B(2)", "/", "B(2):A(3)", "40", "10",
                                                  "0.250", "0.142..0.402"}));
    EXPECT_EQ(rows[23][0], "13-14");
    EXPECT_EQ(rows[23][5], "20");

    // Nothing played: no share and no interval.
    const auto empty = tableWords(summaryTable(CreditCounts{}, 0));
    EXPECT_EQ(empty[5], (std::vector<std::string>{"5", "A(2):B(3)", "0", "0", "-", "-"}));
}

TEST(Progress, RateAndTimeLeft) {
    EXPECT_EQ(progressLine(0, 140, 0.0), "0/140 games, 0.00 games/s, ? left");
    EXPECT_EQ(progressLine(37, 140, 14.8), "37/140 games, 2.50 games/s, 0:41 left");
    EXPECT_EQ(progressLine(10, 14010, 10.0), "10/14010 games, 1.00 games/s, 3:53:20 left");
    EXPECT_EQ(progressLine(28, 28, 7.0), "28/28 games, 4.00 games/s, 0:00 left");
    EXPECT_EQ(clockDuration(59.6), "1:00");
    EXPECT_EQ(clockDuration(3600), "1:00:00");
    EXPECT_EQ(clockDuration(-3), "0:00");
}

}  // namespace
}  // namespace quintline::batch

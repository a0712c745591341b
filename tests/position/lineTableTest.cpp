// The numbering of the 572 lines and the per-point index built from it.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <vector>

#include "position/lineTable.h"

namespace quintline {
namespace {

using Points = std::vector<Point>;

// Points of every line, recovered from the per-point lists (so every entry of
// the index is checked against the family formulas below).
std::array<Points, lineCount + 1> pointsByLine() {
    std::array<Points, lineCount + 1> lines;
    for (int x = 1; x <= boardSize; ++x)
        for (int y = 1; y <= boardSize; ++y)
            for (int n = 1; n <= pointLines().count(x, y); ++n)
                lines[pointLines().id(x, y, n)].push_back(
                    {static_cast<std::int16_t>(x), static_cast<std::int16_t>(y)});
    for (Points& p : lines)
        std::sort(p.begin(), p.end(),
                  [](Point a, Point b) { return a.x != b.x ? a.x < b.x : a.y < b.y; });
    return lines;
}

Points sorted(Points p) {
    std::sort(p.begin(), p.end(),
              [](Point a, Point b) { return a.x != b.x ? a.x < b.x : a.y < b.y; });
    return p;
}

Points run(int x0, int y0, int dx, int dy) {
    Points p;
    for (int k = 0; k < lineLength; ++k)
        p.push_back(
            {static_cast<std::int16_t>(x0 + k * dx), static_cast<std::int16_t>(y0 + k * dy)});
    return sorted(p);
}

TEST(LineTable, EveryLineMatchesItsFamilyFormula) {
    const auto lines = pointsByLine();
    EXPECT_TRUE(lines[0].empty()) << "id 0 stands in some list";
    std::array<bool, lineCount + 1> seen{};
    auto expectLine = [&](int id, int x0, int y0, int dx, int dy) {
        ASSERT_GE(id, 1);
        ASSERT_LE(id, lineCount);
        EXPECT_FALSE(seen[id]) << "id " << id << " given twice";
        seen[id] = true;
        EXPECT_EQ(lines[id], run(x0, y0, dx, dy)) << "line " << id;
    };
    for (int j = 1; j <= 15; ++j)
        for (int i = 1; i <= 11; ++i) expectLine((j - 1) * 11 + i, i, j, 1, 0);
    for (int i = 1; i <= 15; ++i)
        for (int j = 1; j <= 11; ++j) expectLine(165 + (i - 1) * 11 + j, i, j, 0, 1);
    for (int j = 1; j <= 11; ++j)
        for (int i = 1; i <= 11; ++i) {
            expectLine(330 + (j - 1) * 11 + i, i, j, 1, 1);
            expectLine(451 + (j - 1) * 11 + i, 16 - i, j, -1, 1);
        }
    EXPECT_EQ(std::count(seen.begin() + 1, seen.end(), true), lineCount);
}

TEST(LineTable, TellingRows) {
    const auto lines = pointsByLine();
    EXPECT_EQ(lines[1], sorted({{1, 1}, {2, 1}, {3, 1}, {4, 1}, {5, 1}}));
    EXPECT_EQ(lines[11], run(11, 1, 1, 0));
    EXPECT_EQ(lines[12], run(1, 2, 1, 0));
    EXPECT_EQ(lines[165], run(11, 15, 1, 0));
    EXPECT_EQ(lines[166], run(1, 1, 0, 1));
    EXPECT_EQ(lines[176], run(1, 11, 0, 1));
    EXPECT_EQ(lines[177], run(2, 1, 0, 1));
    EXPECT_EQ(lines[330], run(15, 11, 0, 1));
    EXPECT_EQ(lines[331], sorted({{1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 5}}));
    EXPECT_EQ(lines[451], run(11, 11, 1, 1));
    EXPECT_EQ(lines[452], sorted({{15, 1}, {14, 2}, {13, 3}, {12, 4}, {11, 5}}));
    EXPECT_EQ(lines[462], sorted({{5, 1}, {4, 2}, {3, 3}, {2, 4}, {1, 5}}));
    EXPECT_EQ(lines[572], sorted({{5, 11}, {4, 12}, {3, 13}, {2, 14}, {1, 15}}));
}

TEST(LineTable, ListsKeepTheOrderOfGeneration) {
    auto list = [](int x, int y) {
        std::vector<int> ids;
        for (int n = 1; n <= pointLines().count(x, y); ++n) ids.push_back(pointLines().id(x, y, n));
        return ids;
    };
    EXPECT_EQ(list(1, 1), (std::vector<int>{1, 166, 331}));
    EXPECT_EQ(list(15, 1), (std::vector<int>{452, 11, 320}));
    EXPECT_EQ(list(1, 15), (std::vector<int>{176, 155, 572}));
    EXPECT_EQ(list(15, 15), (std::vector<int>{451, 165, 330}));
    EXPECT_EQ(list(3, 3), (std::vector<int>{331, 23, 343, 24, 188, 189, 25, 190, 355, 462}));
    EXPECT_EQ(list(8, 8), (std::vector<int>{367, 488, 81,  379, 500, 82,  391, 512, 83,  403,
                                            524, 84,  246, 247, 248, 249, 85,  250, 415, 536}));
}

TEST(LineTable, CountsPerPoint) {
    // Rows 1 to 5 of the count table (row 5 stands for rows 5 to 11); columns
    // 1, 2, 3, 4, 5..11, 12, 13, 14, 15. Rows 12 to 15 mirror rows 4 to 1.
    const int rows[5][9] = {{3, 4, 5, 6, 8, 6, 5, 4, 3},
                            {4, 6, 7, 9, 11, 9, 7, 6, 4},
                            {5, 7, 10, 12, 14, 12, 10, 7, 5},
                            {6, 9, 12, 15, 17, 15, 12, 9, 6},
                            {8, 11, 14, 17, 20, 17, 14, 11, 8}};
    auto column = [](int x) { return x <= 4 ? x - 1 : x <= 11 ? 4 : x - 7; };
    auto row = [](int y) { return y <= 5 ? y - 1 : y <= 11 ? 4 : 15 - y; };
    int total = 0;
    for (int x = 1; x <= boardSize; ++x)
        for (int y = 1; y <= boardSize; ++y) {
            const int count = pointLines().count(x, y);
            EXPECT_EQ(count, rows[row(y)][column(x)]) << "(" << x << ", " << y << ")";
            EXPECT_GE(count, 3);
            EXPECT_LE(count, 20);
            total += count;
        }
    EXPECT_EQ(total, 5 * lineCount);
    for (int i = 0; i <= boardSize; ++i) {
        EXPECT_EQ(pointLines().count(0, i), 0);
        EXPECT_EQ(pointLines().count(i, 0), 0);
    }
}

}  // namespace
}  // namespace quintline

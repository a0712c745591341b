// The numbering of the 572 lines and the per-point index built from it.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <vector>

#include "position/lineTable.h"

namespace quintline {
namespace {

std::vector<int> idsAt(int x, int y) {
    std::vector<int> ids;
    for (int n = 1; n <= pointLines().count(x, y); ++n) ids.push_back(pointLines().id(x, y, n));
    return ids;
}

TEST(LineTable, LinesListsAndCounts) {
    std::array<int, lineCount + 1> uses{};
    for (int x = 0; x <= boardSize; ++x)
        for (int y = 0; y <= boardSize; ++y)
            for (int id : idsAt(x, y)) ++uses[static_cast<std::size_t>(id)];
    EXPECT_EQ(uses[0], 0);
    for (int id = 1; id <= lineCount; ++id) EXPECT_EQ(uses[id], lineLength) << "line " << id;

    // Id, first point and step. With five uses per id, these five points are the whole line.
    const int telling[][5] = {{1, 1, 1, 1, 0},     {11, 11, 1, 1, 0},   {12, 1, 2, 1, 0},
                              {165, 11, 15, 1, 0}, {166, 1, 1, 0, 1},   {176, 1, 11, 0, 1},
                              {177, 2, 1, 0, 1},   {330, 15, 11, 0, 1}, {331, 1, 1, 1, 1},
                              {451, 11, 11, 1, 1}, {452, 15, 1, -1, 1}, {462, 5, 1, -1, 1},
                              {572, 5, 11, -1, 1}};
    for (const auto& [id, x0, y0, dx, dy] : telling)
        for (int k = 0; k < lineLength; ++k) {
            const std::vector<int> ids = idsAt(x0 + k * dx, y0 + k * dy);
            EXPECT_NE(std::find(ids.begin(), ids.end(), id), ids.end()) << id << " at " << k;
        }

    // The lists keep the order of generation.
    using Ids = std::vector<int>;
    EXPECT_EQ(idsAt(15, 1), (Ids{452, 11, 320}));
    EXPECT_EQ(idsAt(3, 3), (Ids{331, 23, 343, 24, 188, 189, 25, 190, 355, 462}));
    EXPECT_EQ(idsAt(8, 8), (Ids{367, 488, 81,  379, 500, 82,  391, 512, 83,  403,
                                524, 84,  246, 247, 248, 249, 85,  250, 415, 536}));
}

TEST(LineTable, EachPointCountsTheLinesThroughIt) {
    // Rows 1 to 5 (row 5 stands for 5 to 11, rows 12 to 15 mirror 4 to 1);
    // columns 1, 2, 3, 4, 5..11, 12, 13, 14, 15.
    const int rows[5][9] = {{3, 4, 5, 6, 8, 6, 5, 4, 3},
                            {4, 6, 7, 9, 11, 9, 7, 6, 4},
                            {5, 7, 10, 12, 14, 12, 10, 7, 5},
                            {6, 9, 12, 15, 17, 15, 12, 9, 6},
                            {8, 11, 14, 17, 20, 17, 14, 11, 8}};
    auto column = [](int x) { return x <= 4 ? x - 1 : x <= 11 ? 4 : x - 7; };
    auto row = [](int y) { return y <= 5 ? y - 1 : y <= 11 ? 4 : 15 - y; };
    int total = 0;
    for (int x = 0; x <= boardSize; ++x)
        for (int y = 0; y <= boardSize; ++y) {
            const int expected = x == 0 || y == 0 ? 0 : rows[row(y)][column(x)];
            EXPECT_EQ(pointLines().count(x, y), expected) << "(" << x << ", " << y << ")";
            total += pointLines().count(x, y);
        }
    EXPECT_EQ(total, 5 * lineCount);
}

}  // namespace
}  // namespace quintline

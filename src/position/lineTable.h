#pragma once
// The 572 five-point lines of the board and, for every point, the ids of the
// lines through it. Built once, at compile time, and shared read-only by all
// games of the process.

#include <cstdint>

#include "position/types.h"

namespace quintline {

// pointLines(x, y, 0) is the number of lines through (x, y); entries 1..count
// are their ids in order of generation. x, y from 0 to 15; row and column 0 hold
// a count of 0.
struct PointLines {
    std::int16_t entries[boardSize + 1][boardSize + 1][21] = {};

    constexpr std::int16_t count(int x, int y) const { return entries[x][y][0]; }
    constexpr std::int16_t id(int x, int y, int n) const { return entries[x][y][n]; }
};

// Fills an all-zero table: i from 1 to 15 outside, j inside; at each (i, j) the
// horizontal line if i <= 11, the vertical if j <= 11, and if both hold the
// falling and then the rising diagonal.
constexpr void buildLineTable(PointLines& table) {
    auto add = [&table](int id, int x0, int y0, int dx, int dy) {
        for (int k = 0; k < lineLength; ++k) {
            auto& point = table.entries[x0 + k * dx][y0 + k * dy];
            ++point[0];
            point[point[0]] = static_cast<std::int16_t>(id);
        }
    };
    for (int i = 1; i <= boardSize; ++i) {
        for (int j = 1; j <= boardSize; ++j) {
            if (i <= 11) add((j - 1) * 11 + i, i, j, 1, 0);
            if (j <= 11) add(165 + (i - 1) * 11 + j, i, j, 0, 1);
            if (i <= 11 && j <= 11) {
                add(330 + (j - 1) * 11 + i, i, j, 1, 1);
                add(451 + (j - 1) * 11 + i, 16 - i, j, -1, 1);
            }
        }
    }
}

namespace detail {
constexpr PointLines makePointLines() {
    PointLines table;
    buildLineTable(table);
    return table;
}
inline constexpr PointLines pointLinesTable = makePointLines();
}  // namespace detail

inline constexpr const PointLines& pointLines() {
    return detail::pointLinesTable;
}

}  // namespace quintline

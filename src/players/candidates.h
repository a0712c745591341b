#pragma once
// The points a search node tries: every empty point with a stone on one of its
// eight neighbours, in scan order (x from 1 to 15 outside, y from 1 to 15
// inside). Worked out from the occupied columns for the whole board at once.

#include <bit>
#include <cstdint>
#include <cstring>

#include "position/basicOpr.h"

namespace quintline {

// Bit 16 * x + y stands for the point (x, y), so ascending bits are scan order.
// The occupied columns of a Position have exactly this layout in memory.
struct CandidateSet {
    std::uint64_t words[4] = {};

    bool contains(Point p) const {
        const int index = 16 * p.x + p.y;
        return (words[index >> 6] >> (index & 63)) & 1;
    }

    // Calls visit(Point) for each candidate in scan order while it returns true.
    template <class Visit>
    void forEach(Visit&& visit) const {
        for (int w = 0; w < 4; ++w)
            for (std::uint64_t bits = words[w]; bits != 0; bits &= bits - 1) {
                const int index = 64 * w + std::countr_zero(bits);
                if (!visit(Point{static_cast<std::int16_t>(index >> 4),
                                 static_cast<std::int16_t>(index & 15)}))
                    return;
            }
    }
};

static_assert(std::endian::native == std::endian::little);

// Exactly the points whose nearCount is at least 1 and whose board entry is 0.
inline CandidateSet findCandidates(const Position& pos) {
    std::uint64_t occ[5] = {};
    std::memcpy(occ, pos.occupied, 16 * sizeof(std::uint16_t));  // columns 0..15
    // Rows 1..15 of columns 1..15.
    constexpr std::uint64_t onBoard = 0xFFFEFFFEFFFEFFFEull;
    CandidateSet set;
    for (int w = 0; w < 4; ++w) {
        const std::uint64_t fromLeft = (occ[w] << 16) | (w > 0 ? occ[w - 1] >> 48 : 0);
        const std::uint64_t fromRight = (occ[w] >> 16) | (occ[w + 1] << 48);
        const std::uint64_t row = occ[w] | fromLeft | fromRight;
        // Bits carried past a column's end land on row 0 of a column, which is off the board.
        const std::uint64_t around = row | (row << 1) | (row >> 1);
        set.words[w] = around & ~occ[w] & onBoard;
    }
    set.words[0] &= ~std::uint64_t{0xFFFF};  // column 0
    return set;
}

// The candidates as a list, for scans that reorder them or need to know the last.
struct CandidateList {
    Point points[maxStones];
    int count = 0;
};

inline void findCandidates(const Position& pos, CandidateList& list) {
    list.count = 0;
    findCandidates(pos).forEach([&list](Point p) {
        list.points[list.count++] = p;
        return true;
    });
}

}  // namespace quintline

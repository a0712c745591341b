#pragma once
// Seeded random boards for the search tests: compact or scattered openings, and
// lopsided boards, some of whose leaves land exactly on the stop thresholds.

#include <cstdint>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "players/searchState.h"
#include "support/gameRecords.h"

namespace quintline::testing::boards {

using Samples = std::vector<SearchState>;

inline std::int16_t pick(std::mt19937& rng, int low, int size) {
    return static_cast<std::int16_t>(low + static_cast<int>(rng() % static_cast<unsigned>(size)));
}

// Positions of 1 to `most` stones, colours alternating, inside the centre
// square of side `box`, each stone beside an earlier one unless `scattered`.
inline Samples randomPositions(int count, std::uint32_t seed, int most, int box,
                               bool scattered = false) {
    std::mt19937 rng(seed);
    Samples samples(static_cast<std::size_t>(count));
    for (SearchState& s : samples) {
        const int stones = 1 + pick(rng, 0, most);
        for (s.stepNum = 0; s.stepNum < stones; ++s.stepNum) {
            std::int16_t x, y;
            do {
                x = pick(rng, 8 - box / 2, box);
                y = pick(rng, 8 - box / 2, box);
            } while (s.position.board[x][y] != empty ||
                     (s.stepNum > 0 && !scattered && s.position.nearCount[x][y] == 0));
            placeStone(s.position, x, y, s.stepNum % 2 == 0 ? black : white);
        }
    }
    return samples;
}

// A board from its stones, points as the game records write them ("H8"); with
// `swapped` every stone changes colour and the other side moves.
inline SearchState fromStones(const std::string& blacks, const std::string& whites, bool swapped) {
    SearchState s;
    for (const auto& [stones, side] : {std::pair(blacks, black), {whites, white}}) {
        std::istringstream points(stones);
        for (std::string word; points >> word; ++s.stepNum) {
            const Point p = recordPoint(word).value();
            placeStone(s.position, p.x, p.y, swapped ? static_cast<Side>(-side) : side);
        }
    }
    s.stepNum = static_cast<std::int16_t>(s.stepNum / 2 * 2 + (swapped ? 1 : 0));
    return s;
}

// Lopsided boards: 20 to 119 stones anywhere, a fifth to four fifths of them
// black, so the side with more lines can be far ahead while the other holds
// fours. These seeds give boards with a leaf two plies down scoring exactly
// sureScore or winScore, for either colour and either evaluator; then boards
// where a side that is to lose to a five has fives of several values against
// it, one of them exactly winScore; last, boards where the root's mover has a
// child scoring exactly its stop threshold. Then a root, for either colour,
// whose mover holds no four and meets a child scoring exactly sureScore by B's
// evaluation before a better one.
inline Samples onThresholds() {
    const std::uint32_t seeds[] = {12,   62,   144,    175,     189,     363,     398,    436, 573,
                                   744,  810,  970,    1120,    1216,    1503,    1802,   102, 190,
                                   1544, 9625, 278101, 3010215, 3127819, 3207719, 3309925};
    Samples samples;
    for (std::uint32_t seed : seeds) {
        std::mt19937 rng(seed);
        SearchState& s = samples.emplace_back();
        const int stones = 20 + static_cast<int>(rng() % 100);
        const unsigned blackShare = 20 + rng() % 60;  // percent
        for (int n = 0; n < stones; ++n) {
            std::int16_t x, y;
            do {
                x = pick(rng, 1, 15);
                y = pick(rng, 1, 15);
            } while (s.position.board[x][y] != empty);
            placeStone(s.position, x, y, rng() % 100 < blackShare ? black : white);
        }
        s.stepNum = static_cast<std::int16_t>(stones + rng() % 2);
    }
    for (const bool swapped : {false, true})
        samples.push_back(fromStones(
            "A11 F8 F5 G8 H8 O15",
            "A14 A13 A9 A5 B15 B14 B11 B10 B8 B5 B4 B3 C13 C3 C1 D15 D14 D12 D5 F15 F14 F13 F2 G11 "
            "H14 H12 H4 H3 I15 I3 K14 K12 K11 K5 K2 K1 L11 L5 L3 M9 M6 M4 M2 M1 N14 N13 N12 N8 N4 "
            "N2 O14 O5 O3 O1",
            swapped));
    return samples;
}

// A five of one colour facing a block of 12 to 19 stones of the other, a few
// stones of both anywhere: near the five, one evaluator sees a finished game
// and the other may not, and scores land on winScore.
inline SearchState fiveFacingBlock(std::uint32_t seed) {
    std::mt19937 rng(seed);
    SearchState s;
    const Side fiveSide = rng() % 2 ? black : white, other = static_cast<Side>(-fiveSide);
    const std::int16_t row = pick(rng, 1, 2), from = pick(rng, 1, 4);
    for (int k = 0; k < 5; ++k) placeStone(s.position, std::int16_t(from + k), row, fiveSide);
    const std::int16_t bx = pick(rng, 4, 6), by = pick(rng, 6, 5);
    const int block = 12 + static_cast<int>(rng() % 8), extra = static_cast<int>(rng() % 8);
    for (int k = 0; k < block; ++k)
        placeStone(s.position, std::int16_t(bx + k / 4), std::int16_t(by + k % 4), other);
    int placed = 0;
    for (int tries = 0; placed < extra && tries < 100; ++tries) {
        const std::int16_t x = pick(rng, 1, 15), y = pick(rng, 1, 15);
        if (s.position.board[x][y] == empty)
            placeStone(s.position, x, y, placed++ % 2 ? fiveSide : other);
    }
    s.stepNum = static_cast<std::int16_t>(5 + block + placed + static_cast<int>(rng() % 2));
    return s;
}

}  // namespace quintline::testing::boards

#pragma once
// The fourteen pairings of a batch run, in report column order. Odd pairings
// give black to the A family; each even pairing is its odd neighbour with the
// colours changed.

#include <array>
#include <cstdint>
#include <string_view>

#include "position/types.h"

namespace quintline {

struct Pairing {
    std::string_view label;  // the report column
    std::int16_t depthA;
    std::int16_t depthB;
    PlayerKind black;
    PlayerKind white;
    std::string_view blackCaption;
    std::string_view whiteCaption;
};

inline constexpr int pairingCount = 14;

// The captions are shown as they stand, the trailing blank of pairing 8 included.
inline constexpr std::array<Pairing, pairingCount> schedule{{
    {"A(3):B(2)", 3, 2, computerA, computerB, "Computer A 3", "Computer B 2"},
    {"B(2):A(3)", 3, 2, computerB, computerA, "Computer B 2", "Computer A 3"},
    {"A-K-B(3):B(2)", 3, 2, aKnowsB, computerB, "Computer A Know B 3", "Computer B 2"},
    {"B(2):A-K-B(3)", 3, 2, computerB, aKnowsB, "Computer B 2", "Computer A know B 3"},
    {"A(2):B(3)", 2, 3, computerA, computerB, "Computer A 2", "Computer B 3"},
    {"B(3):A(2)", 2, 3, computerB, computerA, "Computer B 3", "Computer A 2"},
    {"A(2):B-KNOW-A(3)", 2, 3, computerA, bKnowsA, "Computer A 2", "Computer B know A 3"},
    {"B-KNOW-A(3):A(2)", 2, 3, bKnowsA, computerA, "Computer B know A 3", "Computer A 2 "},
    {"A(3):B(3)", 3, 3, computerA, computerB, "Computer A 3", "Computer B 3"},
    {"B(3):A(3)", 3, 3, computerB, computerA, "Computer B 3", "Computer A 3"},
    {"A-K-B(3):B(3)", 3, 3, aKnowsB, computerB, "Computer A Know B 3", "Computer B 3"},
    {"B(3):A-K-B(3)", 3, 3, computerB, aKnowsB, "Computer B 3", "Computer A know B 3"},
    {"A(3):B-K-A(3)", 3, 3, computerA, bKnowsA, "Computer A 3", "Computer B know A 3"},
    {"B-K-A(3):A(3)", 3, 3, bKnowsA, computerA, "Computer B Know A 3", "Computer A 3"},
}};

// The report's header after boardFilePath: the column labels with their fixed spacing.
inline constexpr std::string_view headerLiteral =
    "    A(3):B(2) ,  B(2):A(3) ,  A-K-B(3):B(2) , B(2):A-K-B(3) , A(2):B(3) , B(3):A(2) , "
    "A(2):B-KNOW-A(3) , B-KNOW-A(3):A(2) , A(3):B(3) , B(3):A(3) , A-K-B(3):B(3) , "
    "B(3):A-K-B(3) , A(3):B-K-A(3) , B-K-A(3):A(3)";

}  // namespace quintline

#pragma once
// The pairings of a batch run, in report column order. The fixed schedule is
// the fourteen of the desktop program: odd pairings give black to the A
// family, and each even pairing is its odd neighbour with the colours changed.
// A run may play a schedule of its own instead (see scheduleFile.h).

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "position/types.h"

namespace quintline {

struct Pairing {
    std::string label;  // the report column
    std::int16_t depthA = 0;
    std::int16_t depthB = 0;
    PlayerKind black = computerA;
    PlayerKind white = computerB;
    std::string blackCaption;
    std::string whiteCaption;
    friend bool operator==(const Pairing&, const Pairing&) = default;
};

inline constexpr std::size_t fixedPairingCount = 14;
inline constexpr std::size_t maxPairings = 64;

// The report's header after boardFilePath for the fixed schedule: its column
// labels with their own spacing.
inline constexpr std::string_view headerLiteral =
    "    A(3):B(2) ,  B(2):A(3) ,  A-K-B(3):B(2) , B(2):A-K-B(3) , A(2):B(3) , B(3):A(2) , "
    "A(2):B-KNOW-A(3) , B-KNOW-A(3):A(2) , A(3):B(3) , B(3):A(3) , A-K-B(3):B(3) , "
    "B(3):A-K-B(3) , A(3):B-K-A(3) , B-K-A(3):A(3)";

class Schedule {
  public:
    // Between 1 and maxPairings pairings.
    explicit Schedule(std::vector<Pairing> pairings);

    // The fourteen pairings of the desktop program. The captions are shown as
    // they stand, the trailing blank of pairing 8 included.
    static const Schedule& fixed();

    const std::vector<Pairing>& pairings() const { return pairings_; }
    std::size_t size() const { return pairings_.size(); }
    const Pairing& operator[](std::size_t n) const { return pairings_[n]; }
    auto begin() const { return pairings_.begin(); }
    auto end() const { return pairings_.end(); }

    // The header literal when the labels are the fixed ones, in their order;
    // otherwise four blanks and the labels joined by " , ".
    std::string header() const;

  private:
    std::vector<Pairing> pairings_;
};

// Whether the two pairings are the same two players at the same depths with
// the colours changed.
bool swapsColours(const Pairing& first, const Pairing& second);

// The caption a side gets when a schedule gives none: "Computer A 3" and the like.
std::string sideCaption(PlayerKind kind, std::int16_t depthA, std::int16_t depthB);

}  // namespace quintline

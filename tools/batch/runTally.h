#pragma once
// What a batch has played so far, from the A family's view: wins, draws and
// losses per pairing, and the pentanomial counts of each colour-swapped pair
// of pairings, whose game pairs are the two games of one cycle or entry.

#include <cstddef>
#include <span>
#include <vector>

#include "batch/statistics.h"
#include "harness/credit.h"
#include "harness/schedule.h"

namespace quintline::batch {

// Two pairings (indices from 0) with the same players and the colours swapped.
struct SwappedPair {
    std::size_t first = 0;
    std::size_t second = 0;
};

// The colour-swapped pairs of a schedule: pairings 2k-1 and 2k where they are
// the same players at the same depths with the colours changed. Every figure
// on pairs goes through this list.
std::vector<SwappedPair> colourSwappedPairs(std::span<const Pairing> pairings);

// The counts of a tally, as plain data that a resumed run starts from.
struct TallyCounts {
    std::vector<WinDrawLoss> games;
    std::vector<std::size_t> credits;
    std::vector<Pentanomial> pentanomials;
};

class RunTally {
  public:
    explicit RunTally(std::span<const Pairing> pairings);

    // One cycle or entry: a game per pairing, in pairing order.
    void add(std::span<const PlayedGame> games);

    std::span<const Pairing> pairings() const { return pairings_; }
    const std::vector<WinDrawLoss>& games() const { return games_; }
    const std::vector<SwappedPair>& pairs() const { return pairs_; }
    // By the index into pairs().
    const Pentanomial& pentanomial(std::size_t pair) const { return pentanomials_[pair]; }
    std::size_t drawnGames(std::size_t pair) const;
    // Games credited to the A family, by pairing.
    const std::vector<std::size_t>& credits() const { return credits_; }

    TallyCounts counts() const { return {games_, credits_, pentanomials_}; }
    // Takes up the counts of the same schedule's tally.
    void restore(const TallyCounts& counts);

  private:
    std::span<const Pairing> pairings_;
    std::vector<SwappedPair> pairs_;
    std::vector<WinDrawLoss> games_;
    std::vector<std::size_t> credits_;
    std::vector<Pentanomial> pentanomials_;
};

}  // namespace quintline::batch

#include "batch/runTally.h"

#include <cassert>

namespace quintline::batch {

std::vector<SwappedPair> colourSwappedPairs(std::span<const Pairing> pairings) {
    std::vector<SwappedPair> pairs;
    for (std::size_t n = 0; n + 1 < pairings.size(); n += 2)
        if (swapsColours(pairings[n], pairings[n + 1])) pairs.push_back({n, n + 1});
    return pairs;
}

RunTally::RunTally(std::span<const Pairing> pairings)
    : pairings_(pairings),
      pairs_(colourSwappedPairs(pairings)),
      games_(pairings.size()),
      credits_(pairings.size()),
      pentanomials_(pairs_.size()) {}

void RunTally::add(std::span<const PlayedGame> games) {
    assert(games.size() == pairings_.size());
    std::vector<int> halfPoints(games.size());
    for (std::size_t n = 0; n < games.size(); ++n) {
        halfPoints[n] = aHalfPoints(pairings_[n], games[n].result);
        WinDrawLoss& tally = games_[n];
        ++(halfPoints[n] == 2 ? tally.wins : halfPoints[n] == 1 ? tally.draws : tally.losses);
        if (games[n].group.letter == 'A') ++credits_[n];
    }
    for (std::size_t p = 0; p < pairs_.size(); ++p)
        ++pentanomials_[p][static_cast<std::size_t>(halfPoints[pairs_[p].first] +
                                                    halfPoints[pairs_[p].second])];
}

void RunTally::restore(const TallyCounts& counts) {
    assert(counts.games.size() == games_.size() && counts.credits.size() == credits_.size() &&
           counts.pentanomials.size() == pentanomials_.size());
    games_ = counts.games;
    credits_ = counts.credits;
    pentanomials_ = counts.pentanomials;
}

std::size_t RunTally::drawnGames(std::size_t pair) const {
    return games_[pairs_[pair].first].draws + games_[pairs_[pair].second].draws;
}

}  // namespace quintline::batch

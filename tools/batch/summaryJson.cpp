#include "batch/summaryJson.h"

#include <nlohmann/json.hpp>

namespace quintline::batch {
namespace {

// Keys in the order they are documented in.
using json = nlohmann::ordered_json;

template <typename T>
json orNull(const std::optional<T>& value) {
    return value ? json(*value) : json(nullptr);
}

json stopCause(StopCause cause) {
    switch (cause) {
        case StopCause::interrupt:
            return "interrupt";
        case StopCause::sprt:
            return "sprt";
        case StopCause::report:
            return "report";
        case StopCause::rank:
            return "rank";
        case StopCause::none:
            break;
    }
    return nullptr;
}

json pairingObject(const RunTally& tally, std::size_t n) {
    const Pairing& pairing = tally.pairings()[n];
    const WinDrawLoss& games = tally.games()[n];
    const GameFigures f = gameFigures(games);
    const auto wilson = wilsonInterval(tally.credits()[n], games.games());
    return {{"n", n + 1},
            {"label", std::string(pairing.label)},
            {"black", pairing.black},
            {"white", pairing.white},
            {"depthA", pairing.depthA},
            {"depthB", pairing.depthB},
            {"games", games.games()},
            {"aWins", games.wins},
            {"draws", games.draws},
            {"aLosses", games.losses},
            {"aCredits", tally.credits()[n]},
            {"wilson", wilson ? json::array({wilson->low, wilson->high}) : json(nullptr)},
            {"elo", orNull(f.elo)},
            {"eloError", orNull(f.eloError)},
            {"los", orNull(f.los)}};
}

json pairObject(const RunTally& tally, std::size_t p) {
    const SwappedPair& pair = tally.pairs()[p];
    const Pentanomial& counts = tally.pentanomial(p);
    const PairFigures f = pairFigures(counts, tally.drawnGames(p));
    return {{"pairings", {pair.first + 1, pair.second + 1}},
            {"pairs", counts[0] + counts[1] + counts[2] + counts[3] + counts[4]},
            {"pentanomial", counts},
            {"elo", orNull(f.elo)},
            {"eloError", orNull(f.eloError)},
            {"nElo", orNull(f.nElo)},
            {"nEloError", orNull(f.nEloError)},
            {"los", orNull(f.los)},
            {"drawRatio", orNull(f.drawRatio)},
            {"pairsRatio", orNull(f.pairsRatio)}};
}

json sprtObject(const SprtStatus& s) {
    json result = nullptr;
    if (s.accepted) result = *s.accepted == Hypothesis::h1 ? "H1" : "H0";
    return {{"pair", s.options.pair},   {"elo0", s.options.elo0},  {"elo1", s.options.elo1},
            {"alpha", s.options.alpha}, {"beta", s.options.beta},  {"llr", s.llr},
            {"lower", s.bounds.lower},  {"upper", s.bounds.upper}, {"result", result}};
}

}  // namespace

std::string summaryJson(const RunFacts& run, const RunTally& tally,
                        const std::optional<SprtStatus>& sprt) {
    json pairings = json::array();
    for (std::size_t n = 0; n < tally.pairings().size(); ++n)
        pairings.push_back(pairingObject(tally, n));
    json pairs = json::array();
    for (std::size_t p = 0; p < tally.pairs().size(); ++p) pairs.push_back(pairObject(tally, p));
    const json summary = {{"run",
                           {{"command", run.command},
                            {"seed", orNull(run.seed)},
                            {"jobs", run.jobs},
                            {"played", run.played},
                            {"stoppedBy", stopCause(run.stoppedBy)}}},
                          {"pairings", pairings},
                          {"pairs", pairs},
                          {"sprt", sprt ? sprtObject(*sprt) : json(nullptr)}};
    return summary.dump(2) + '\n';
}

}  // namespace quintline::batch

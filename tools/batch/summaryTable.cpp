#include "batch/summaryTable.h"

#include <cstdio>

namespace quintline::batch {
namespace {

// printf into a string; every row here is shorter than the buffer.
template <typename... Args>
std::string format(const char* pattern, Args... args) {
    char text[200];
    std::snprintf(text, sizeof text, pattern, args...);
    return text;
}

std::string figure(const std::optional<double>& value, const char* pattern = "%.1f",
                   double scale = 1.0) {
    return value ? format(pattern, *value * scale) : "-";
}

std::string percent(const std::optional<double>& value) {
    return figure(value, "%.1f%%", 100.0);
}

std::string pairingRow(const RunTally& tally, std::size_t n) {
    const WinDrawLoss& games = tally.games()[n];
    const std::size_t credits = tally.credits()[n];
    const auto interval = wilsonInterval(credits, games.games());
    const GameFigures f = gameFigures(games);
    const std::string label = std::to_string(n + 1) + ' ' + std::string(tally.pairings()[n].label);
    const std::string share =
        interval ? format("%.3f", static_cast<double>(credits) / static_cast<double>(games.games()))
                 : "-";
    const std::string wilson = interval ? format("%.3f..%.3f", interval->low, interval->high) : "-";
    return format("%-20s %5zu %9zu %7s  %-12s %5zu %5zu %6zu %7s %6s %6s\n", label.c_str(),
                  games.games(), credits, share.c_str(), wilson.c_str(), games.wins, games.draws,
                  games.losses, figure(f.elo).c_str(), figure(f.eloError).c_str(),
                  percent(f.los).c_str());
}

std::string pairRow(const RunTally& tally, std::size_t p) {
    const SwappedPair& pair = tally.pairs()[p];
    const Pentanomial& counts = tally.pentanomial(p);
    const PairFigures f = pairFigures(counts, tally.drawnGames(p));
    const std::string label = std::to_string(pair.first + 1) + '-' +
                              std::to_string(pair.second + 1) + ' ' +
                              std::string(tally.pairings()[pair.first].label);
    const std::size_t pairs = counts[0] + counts[1] + counts[2] + counts[3] + counts[4];
    return format("%-20s %5zu %8s %6s %7s %6s %6s  %zu %zu %zu %zu %zu\n", label.c_str(), pairs,
                  figure(f.elo).c_str(), figure(f.eloError).c_str(), figure(f.nElo).c_str(),
                  figure(f.nEloError).c_str(), percent(f.los).c_str(), counts[0], counts[1],
                  counts[2], counts[3], counts[4]);
}

}  // namespace

std::string summaryTable(const RunTally& tally, const std::optional<SprtStatus>& sprt) {
    std::string table =
        format("%-20s %5s %9s %7s  %-12s %5s %5s %6s %7s %6s %6s\n", "pairing", "games",
               "A credits", "A share", "95% Wilson", "wins", "draws", "losses", "Elo", "+-", "LOS");
    for (std::size_t n = 0; n < tally.pairings().size(); ++n) table += pairingRow(tally, n);
    table += '\n';
    table += format("%-20s %5s %8s %6s %7s %6s %6s  %s\n", "colours swapped", "pairs", "Elo", "+-",
                    "nElo", "+-", "LOS", "Ptnml(0-2)");
    for (std::size_t p = 0; p < tally.pairs().size(); ++p) table += pairRow(tally, p);
    if (sprt) table += '\n' + sprtLine(*sprt);
    return table;
}

}  // namespace quintline::batch

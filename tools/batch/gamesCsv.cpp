#include "batch/gamesCsv.h"

#include <sstream>

namespace quintline::batch {
namespace {

// A field quoted when it holds a separator, a quote or a line break.
std::string csvField(std::string_view text) {
    if (text.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(text);
    std::string quoted = "\"";
    for (char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + '"';
}

}  // namespace

std::string gamesCsvRows(std::span<const Pairing> pairings, const FinishedCycle& cycle) {
    std::ostringstream rows;
    const std::string cycleField = cycle.tournament ? std::to_string(cycle.number) : "";
    const std::string entryField = cycle.tournament ? "" : csvField(cycle.boardFilePath);
    for (std::size_t n = 0; n < cycle.games.size(); ++n) {
        const Pairing& pairing = pairings[n];
        const PlayedGame& game = cycle.games[n];
        rows << cycleField << ',' << entryField << ',' << n + 1 << ',' << csvField(pairing.label)
             << ',' << pairing.black << ',' << pairing.white << ',' << pairing.depthA << ','
             << pairing.depthB << ',' << game.result << ',' << game.group.stones << ','
             << game.group.letter << ',';
        for (std::size_t i = 0; i < game.opening.size(); ++i)
            rows << (i ? "-" : "") << game.opening[i].x << '.' << game.opening[i].y;
        rows << '\n';
    }
    return rows.str();
}

}  // namespace quintline::batch

#include "batch/summaryTable.h"

#include <cstdio>
#include <sstream>

#include "batch/wilson.h"
#include "harness/schedule.h"

namespace quintline::batch {
namespace {

// One row: label, games, A credits, share and interval; "-" where no game
// was played.
std::string row(const std::string& label, std::size_t credits, std::size_t games) {
    char text[160];
    const auto interval = wilsonInterval(credits, games);
    if (!interval) {
        std::snprintf(text, sizeof text, "%-40s %6zu %9zu %8s  %s\n", label.c_str(), games, credits,
                      "-", "-");
    } else {
        const double share = static_cast<double>(credits) / static_cast<double>(games);
        std::snprintf(text, sizeof text, "%-40s %6zu %9zu %8.3f  %.3f..%.3f\n", label.c_str(),
                      games, credits, share, interval->low, interval->high);
    }
    return text;
}

std::string heading(const char* first) {
    char text[160];
    std::snprintf(text, sizeof text, "%-40s %6s %9s %8s  %s\n", first, "games", "A credits",
                  "A share", "95% Wilson interval");
    return text;
}

}  // namespace

std::string summaryTable(const Schedule& schedule, const CreditCounts& credits, std::size_t games) {
    std::string table = heading("pairing");
    for (std::size_t n = 0; n < schedule.size(); ++n) {
        std::ostringstream label;
        label << n + 1 << ' ' << schedule[n].label;
        table += row(label.str(), static_cast<std::size_t>(credits[n]), games);
    }
    table += '\n';
    table += heading("colours swapped");
    for (std::size_t n = 0; n + 1 < schedule.size(); n += 2) {
        if (!schedule.swapsColours(n)) continue;
        std::ostringstream label;
        label << n + 1 << '-' << n + 2 << ' ' << schedule[n].label << " / "
              << schedule[n + 1].label;
        const std::size_t both =
            static_cast<std::size_t>(credits[n]) + static_cast<std::size_t>(credits[n + 1]);
        table += row(label.str(), both, 2 * games);
    }
    return table;
}

}  // namespace quintline::batch

#include "batch/resumeCheck.h"

#include <filesystem>
#include <fstream>
#include <regex>
#include <string_view>

#include "boardfile/numberForm.h"
#include "harness/reportLines.h"

namespace quintline::batch {
namespace {

// The lines that may follow the kept game lines, in the order they may come.
enum class TailLine { game, summary, end, used, other };

TailLine kindOf(const std::string& line, std::size_t pairings) {
    const std::string groups = "(?:[AB] [0-9]+ ){" + std::to_string(pairings) + "}";
    const std::string numbers = "(?: [0-9]+ ,){" + std::to_string(pairings - 1) + "} [0-9]+ ";
    if (std::regex_match(line, std::regex(".* " + groups))) return TailLine::game;
    if (std::regex_match(line, std::regex(numbers))) return TailLine::summary;
    if (line.find("End Time: ") != std::string::npos) return TailLine::end;
    if (line.find("Used Time (second): ") != std::string::npos) return TailLine::used;
    return TailLine::other;
}

}  // namespace

std::string reportFault(const RunState& state, std::size_t pairings, const std::string& header) {
    const std::string& report = state.report;
    std::string notTheBlock = report + " does not end with the unfinished run of " +
                              sidecarPath(report).string() + "; nothing resumed";
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(report, error);
    if (error || size < state.reportSize || state.reportSize < state.reportSizeBefore)
        return notTheBlock + " (it is shorter than the run left it)";

    std::ifstream in(report, std::ios::binary);
    in.seekg(static_cast<std::streamoff>(state.reportSizeBefore));
    std::string block(size - state.reportSizeBefore, '\0');
    if (!in.read(block.data(), static_cast<std::streamsize>(block.size()))) return notTheBlock;

    const std::string headerText = headerLine({}, header);
    const std::size_t startEnd = block.find(lineEnd);
    if (!block.starts_with("start Time: ") || startEnd == std::string::npos ||
        block.compare(startEnd + lineEnd.size(), headerText.size(), headerText) != 0)
        return notTheBlock + " (its start and header lines are not where they were)";

    TailLine last = TailLine::game;
    std::string_view tail =
        std::string_view(block).substr(state.reportSize - state.reportSizeBefore);
    for (std::size_t end; (end = tail.find(lineEnd)) != std::string_view::npos;
         tail.remove_prefix(end + lineEnd.size())) {
        const TailLine kind = kindOf(std::string(tail.substr(0, end)), pairings);
        // Game lines, then each of summary, end and used at most once, in order.
        const bool follows = kind == TailLine::game
                                 ? last == TailLine::game
                                 : static_cast<int>(kind) == static_cast<int>(last) + 1;
        if (kind == TailLine::other || !follows)
            return notTheBlock + " (a line after its game lines is not its own)";
        last = kind;
    }
    return {};
}

}  // namespace quintline::batch

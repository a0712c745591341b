#pragma once
// The lines of "result.txt", each ending in CR LF, and the one way they reach
// the file: appended, with the file created when missing.

#include <filesystem>
#include <string>
#include <string_view>

#include "harness/credit.h"

namespace quintline {

inline constexpr std::string_view reportFileName = "result.txt";

std::string startLine(std::string_view boardFilePath, std::string_view timeOfDay);
std::string headerLine(std::string_view boardFilePath, std::string_view header);
// "A 89 " for the letter A and 89 stones.
std::string resultGroupText(const ResultGroup& group);
// boardFilePath, one blank and the groups of one cycle or entry.
std::string gameLine(std::string_view boardFilePath, const CycleResults& results);
std::string summaryLine(const CreditCounts& counts);
std::string endLine(std::string_view boardFilePath, std::string_view timeOfDay);
std::string usedLine(std::string_view boardFilePath, float seconds);

// Appends the bytes whole (or not at all, see appendWhole) and closes the
// file; false when it can't be opened or written.
bool appendToFile(const std::filesystem::path& file, std::string_view bytes);

}  // namespace quintline

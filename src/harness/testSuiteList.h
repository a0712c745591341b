#pragma once
// "testsuit.txt": a count N, then N board-file paths, read one at a time as a
// run reaches them. Whatever follows the N-th path is never read.

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include "boardfile/fieldReader.h"

namespace quintline {

inline constexpr std::string_view testSuiteFileName = "testsuit.txt";
// A longer list is refused: at most 32767 entries, each a short path.
inline constexpr std::size_t maxTestSuiteListBytes = 4 * 1024 * 1024;

struct ListEntry {
    std::string path;
    // Why the entry can't be played (empty when it can). Its path then never
    // reaches the report or the game: it may hold a line end.
    std::string refusal;
};

class TestSuiteList {
  public:
    TestSuiteList() = default;
    TestSuiteList(const TestSuiteList&) = delete;
    TestSuiteList& operator=(const TestSuiteList&) = delete;

    // Opens the list and reads N (0 to 32767). On failure returns false and
    // names the fault.
    bool open(const std::filesystem::path& file, std::string& fault);

    std::int16_t count() const { return count_; }

    // The next entry, its path exactly as written; empty once N entries have
    // been given or the list ends early.
    std::optional<ListEntry> nextEntry();

    // Once the list has ended early: how many of the N entries it lacks, and
    // why; empty while nothing is missing.
    std::string shortfall() const { return shortfall_; }

  private:
    void endEarly(std::string_view why);

    std::filesystem::path file_;
    std::ifstream in_;
    FieldReader fields_{in_, maxTestSuiteListBytes};
    std::int16_t count_ = 0;
    std::int16_t given_ = 0;
    std::string shortfall_;
};

}  // namespace quintline

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

class TestSuiteList {
  public:
    TestSuiteList() = default;
    TestSuiteList(const TestSuiteList&) = delete;
    TestSuiteList& operator=(const TestSuiteList&) = delete;

    // Opens the list and reads N. On failure returns false and names the fault.
    bool open(const std::filesystem::path& file, std::string& fault);

    std::int16_t count() const { return count_; }

    // The next path, used exactly as written; empty once N paths have been
    // given or the list ends early.
    std::optional<std::string> nextEntry();

  private:
    std::ifstream in_;
    FieldReader fields_{in_};
    std::int16_t count_ = 0;
    std::int16_t given_ = 0;
};

}  // namespace quintline

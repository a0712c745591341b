#pragma once
// A fresh temporary directory for a test, removed afterwards; optionally the
// process's current directory for the test's lifetime, restored afterwards.

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>

namespace quintline::testing {

class ScratchDirectory {
  public:
    explicit ScratchDirectory(bool enter = false)
        : path_(std::filesystem::temp_directory_path() /
                ("quintline-test-" + std::to_string(std::random_device()()) +
                 std::to_string(std::random_device()()))),
          previous_(enter ? std::filesystem::current_path() : std::filesystem::path()) {
        std::filesystem::create_directories(path_);
        if (enter) std::filesystem::current_path(path_);
    }
    ~ScratchDirectory() {
        std::error_code ignored;
        if (!previous_.empty()) std::filesystem::current_path(previous_, ignored);
        std::filesystem::remove_all(path_, ignored);
    }
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

  private:
    const std::filesystem::path path_, previous_;
};

inline std::string readBytes(const std::filesystem::path& file) {
    std::ostringstream out;
    out << std::ifstream(file, std::ios::binary).rdbuf();
    return out.str();
}

inline void writeBytes(const std::filesystem::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary | std::ios::trunc) << bytes;
}

}  // namespace quintline::testing

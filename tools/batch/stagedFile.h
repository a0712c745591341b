#pragma once
// A file that shows under its own name only in a whole state: it is written
// under a temporary name beside it ("NAME.partial") and renamed over the
// name when ready. Appends after that go straight to it, each whole.

#include <cstdint>
#include <filesystem>
#include <string_view>

namespace quintline::batch {

class StagedFile {
  public:
    explicit StagedFile(std::filesystem::path target) : target_(std::move(target)) {}
    ~StagedFile();
    StagedFile(const StagedFile&) = delete;
    StagedFile& operator=(const StagedFile&) = delete;

    // Creates the temporary file empty; false when it cannot be written.
    bool create();
    // Takes up the target as published, cut to its first `size` bytes, for
    // appends; false when it cannot be written.
    bool reopen(std::uintmax_t size);
    // Appends the text whole, or leaves the file as it was and returns false.
    bool append(std::string_view text);
    // Renames the temporary file over the target, which until then was
    // untouched; an unpublished temporary file is removed on destruction.
    bool publish();

    const std::filesystem::path& target() const { return target_; }

  private:
    std::filesystem::path temporary() const;

    std::filesystem::path target_;
    int fd_ = -1;
    bool published_ = false;
};

}  // namespace quintline::batch

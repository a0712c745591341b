#include "batch/stagedFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

#include "harness/wholeAppend.h"

namespace quintline::batch {

StagedFile::~StagedFile() {
    if (fd_ < 0) return;
    ::close(fd_);
    if (!published_) ::unlink(temporary().c_str());
}

std::filesystem::path StagedFile::temporary() const {
    std::filesystem::path name = target_;
    name += ".partial";
    return name;
}

bool StagedFile::create() {
    fd_ = ::open(temporary().c_str(), O_WRONLY | O_APPEND | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    return fd_ >= 0;
}

bool StagedFile::reopen(std::uintmax_t size) {
    fd_ = ::open(target_.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC);
    if (fd_ < 0 || ::ftruncate(fd_, static_cast<off_t>(size)) != 0) return false;
    published_ = true;
    return true;
}

bool StagedFile::append(std::string_view text) {
    return fd_ >= 0 && appendWhole(fd_, text);
}

bool StagedFile::publish() {
    if (fd_ < 0 || std::rename(temporary().c_str(), target_.c_str()) != 0) return false;
    published_ = true;
    return true;
}

}  // namespace quintline::batch

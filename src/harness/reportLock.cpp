#include "harness/reportLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cassert>
#include <cerrno>
#include <chrono>
#include <thread>

namespace quintline {

ReportLock::~ReportLock() {
    if (fd_ >= 0) ::close(fd_);  // releases the lock
}

ReportLock::Outcome ReportLock::tryTake(const std::filesystem::path& report) {
    assert(fd_ < 0);
    // Opened for reading: a report the run can't write is refused later, by
    // the first append, with the usual message.
    fd_ = ::open(report.c_str(), O_RDONLY | O_CREAT | O_CLOEXEC, 0666);
    if (fd_ < 0) return Outcome::cannotOpen;
    int result = 0;
    while ((result = flock(fd_, LOCK_EX | LOCK_NB)) != 0 && errno == EINTR) {
    }
    if (result == 0) return Outcome::taken;
    const bool busy = errno == EWOULDBLOCK;
    ::close(fd_);
    fd_ = -1;
    return busy ? Outcome::busy : Outcome::cannotOpen;
}

ReportLock::Outcome ReportLock::take(const std::filesystem::path& report,
                                     const std::atomic<bool>& stop,
                                     const std::function<void()>& onWait) {
    Outcome outcome = tryTake(report);
    if (outcome == Outcome::busy && onWait) onWait();
    while (outcome == Outcome::busy) {
        if (stop.load()) return Outcome::stopped;
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        outcome = tryTake(report);
    }
    return outcome;
}

}  // namespace quintline

#pragma once
// One run at a time on a report: a run holds an exclusive advisory lock
// (flock) on the report from before its start line until after its used line,
// so two runs never interleave their lines. The lock goes with the object.

#include <atomic>
#include <filesystem>
#include <functional>

namespace quintline {

class ReportLock {
  public:
    enum class Outcome {
        taken,
        busy,        // another run holds it
        cannotOpen,  // the report can't be opened or created
        stopped,     // the stop flag was set while waiting
    };

    ReportLock() = default;
    ~ReportLock();
    ReportLock(const ReportLock&) = delete;
    ReportLock& operator=(const ReportLock&) = delete;

    // Takes the lock if it is free, creating the report when missing.
    Outcome tryTake(const std::filesystem::path& report);
    // Waits for the lock, calling onWait once if it has to; looks at `stop`
    // ten times a second.
    Outcome take(const std::filesystem::path& report, const std::atomic<bool>& stop,
                 const std::function<void()>& onWait);

  private:
    int fd_ = -1;
};

}  // namespace quintline

#pragma once
// One run's block of "result.txt", written in three stretches with the file
// closed between them: the head, one line per cycle or entry, and the tail
// with the summary and the time used.

#include <filesystem>
#include <string>

#include "harness/clock.h"
#include "harness/credit.h"

namespace quintline {

class Report {
  public:
    Report(std::filesystem::path file, Clock& clock) : file_(std::move(file)), clock_(clock) {}

    // Start and header lines (the header after boardFilePath); the timer is
    // read after they are written.
    bool open(const std::string& boardFilePath, const std::string& header);
    // Takes up a block whose head is written and whose earlier parts used
    // `usedBefore` seconds: the used line will count them too.
    void resume(float usedBefore) { startReading_ = clock_.secondsSinceMidnight() - usedBefore; }
    // Seconds used since open, or since resume plus usedBefore.
    float used() { return clock_.secondsSinceMidnight() - startReading_; }
    bool addGameLine(const std::string& boardFilePath, const CycleResults& results);
    // Summary, end and used lines; the timer is read again just after the end line.
    bool close(const std::string& boardFilePath, const CreditCounts& counts);

    const std::filesystem::path& file() const { return file_; }

  private:
    std::filesystem::path file_;
    Clock& clock_;
    float startReading_ = 0.0f;
};

}  // namespace quintline

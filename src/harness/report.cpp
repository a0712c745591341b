#include "harness/report.h"

#include "harness/reportLines.h"

namespace quintline {

bool Report::open(const std::string& boardFilePath, const std::string& header) {
    const std::string head =
        startLine(boardFilePath, clock_.timeOfDay()) + headerLine(boardFilePath, header);
    if (!appendToFile(file_, head)) return false;
    startReading_ = clock_.secondsSinceMidnight();
    return true;
}

bool Report::addGameLine(const std::string& boardFilePath, const CycleResults& results) {
    return appendToFile(file_, gameLine(boardFilePath, results));
}

bool Report::close(const std::string& boardFilePath, const CreditCounts& counts) {
    std::string tail = summaryLine(counts) + endLine(boardFilePath, clock_.timeOfDay());
    // Both readings are single precision, and so is their difference.
    const float used = clock_.secondsSinceMidnight() - startReading_;
    tail += usedLine(boardFilePath, used);
    return appendToFile(file_, tail);
}

}  // namespace quintline

#pragma once
// Texts of the message boxes with which a batch run refuses to start or stops.

#include <filesystem>
#include <string>

namespace quintline {

inline std::string reportNotStarted(const std::filesystem::path& report) {
    return report.string() + " can not be written! Not started";
}

inline std::string reportStopped(const std::filesystem::path& report) {
    return report.string() + " can not be written! Run stopped";
}

inline std::string reportBusy(const std::filesystem::path& report) {
    return report.string() + " is in use by another run! Not started";
}

inline std::string listNotStarted(const std::string& fault) {
    return fault + "! Not started";
}

}  // namespace quintline

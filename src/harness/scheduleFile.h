#pragma once
// A schedule of one's own, read from a text file. One pairing a line:
//   label black white depthA depthB ["black caption" "white caption"]
// Kinds 1 to 4, depths 1 to 9, a knowing kind (3 or 4) on at most one colour,
// 1 to 64 pairings; "#" starts a comment and blank lines are skipped.

#include <filesystem>
#include <istream>
#include <optional>
#include <string>

#include "harness/schedule.h"

namespace quintline {

inline constexpr std::int16_t maxScheduleDepth = 9;

struct ScheduleRead {
    std::optional<Schedule> schedule;  // empty when refused
    std::string fault;                 // "FILE:LINE: reason", or "FILE: reason"
};

// `name` is the file's name as the messages show it.
ScheduleRead parseSchedule(std::istream& in, const std::string& name);
ScheduleRead loadSchedule(const std::filesystem::path& file);

// The line of a file that gives `pairing`, captions included.
std::string scheduleLine(const Pairing& pairing);

}  // namespace quintline

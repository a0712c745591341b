#include "harness/clock.h"

#include <chrono>
#include <cstdio>
#include <ctime>

namespace quintline {
namespace {

struct LocalNow {
    std::tm fields{};
    double subSecond = 0.0;
};

LocalNow localNow() {
    const auto now = std::chrono::system_clock::now();
    const std::time_t whole = std::chrono::system_clock::to_time_t(now);
    LocalNow result;
    localtime_r(&whole, &result.fields);
    const auto sinceWhole = now - std::chrono::system_clock::from_time_t(whole);
    result.subSecond = std::chrono::duration<double>(sinceWhole).count();
    return result;
}

}  // namespace

std::string SystemClock::timeOfDay() {
    const LocalNow now = localNow();
    char text[16];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d", now.fields.tm_hour, now.fields.tm_min,
                  now.fields.tm_sec);
    return text;
}

float SystemClock::secondsSinceMidnight() {
    const LocalNow now = localNow();
    const double seconds =
        now.fields.tm_hour * 3600.0 + now.fields.tm_min * 60.0 + now.fields.tm_sec + now.subSecond;
    return static_cast<float>(seconds);
}

}  // namespace quintline

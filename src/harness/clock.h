#pragma once
// The two readings of the system clock a report needs, replaceable in tests.

#include <string>

namespace quintline {

class Clock {
  public:
    virtual ~Clock() = default;
    // The time of day, 24-hour "HH:MM:SS".
    virtual std::string timeOfDay() = 0;
    // Seconds since local midnight; starts again from 0 at midnight.
    virtual float secondsSinceMidnight() = 0;
};

class SystemClock final : public Clock {
  public:
    std::string timeOfDay() override;
    float secondsSinceMidnight() override;
};

}  // namespace quintline

#pragma once
// Scripted clock and random numbers for batch tests.

#include <deque>
#include <string>
#include <utility>

#include "harness/clock.h"
#include "harness/uniformSource.h"

namespace quintline::testing {

// Gives the scripted texts and readings in order, then "??:??:??" and 0.
class ScriptedClock final : public Clock {
  public:
    ScriptedClock(std::deque<std::string> times, std::deque<float> readings)
        : times_(std::move(times)), readings_(std::move(readings)) {}
    std::string timeOfDay() override { return take(times_, std::string("??:??:??")); }
    float secondsSinceMidnight() override { return take(readings_, 0.0f); }

  private:
    template <typename T>
    static T take(std::deque<T>& queue, T fallback) {
        if (queue.empty()) return fallback;
        T value = queue.front();
        queue.pop_front();
        return value;
    }
    std::deque<std::string> times_;
    std::deque<float> readings_;
};

class ScriptedUniform final : public UniformSource {
  public:
    explicit ScriptedUniform(std::deque<double> values) : values_(std::move(values)) {}
    double next() override {
        ++drawn_;
        if (values_.empty()) return 0.0;
        const double v = values_.front();
        values_.pop_front();
        return v;
    }
    int drawn() const { return drawn_; }

  private:
    std::deque<double> values_;
    int drawn_ = 0;
};

}  // namespace quintline::testing

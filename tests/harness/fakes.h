#pragma once
// Scripted clock and random numbers for batch tests.

#include <deque>
#include <string>
#include <utility>

#include "harness/clock.h"
#include "harness/uniformSource.h"

namespace quintline::testing {

// The front of a script, taken off it, or `fallback` once the script has run out.
template <typename T>
T takeFront(std::deque<T>& script, T fallback) {
    if (script.empty()) return fallback;
    T value = script.front();
    script.pop_front();
    return value;
}

// Gives the scripted texts and readings in order, then "??:??:??" and 0.
class ScriptedClock final : public Clock {
  public:
    ScriptedClock(std::deque<std::string> times, std::deque<float> readings)
        : times_(std::move(times)), readings_(std::move(readings)) {}
    std::string timeOfDay() override { return takeFront(times_, std::string("??:??:??")); }
    float secondsSinceMidnight() override { return takeFront(readings_, 0.0f); }

  private:
    std::deque<std::string> times_;
    std::deque<float> readings_;
};

// Gives the scripted numbers in order, then 0, counting every draw.
class ScriptedUniform final : public UniformSource {
  public:
    explicit ScriptedUniform(std::deque<double> values) : values_(std::move(values)) {}
    double next() override {
        ++drawn_;
        return takeFront(values_, 0.0);
    }
    int drawn() const { return drawn_; }

  private:
    std::deque<double> values_;
    int drawn_ = 0;
};

}  // namespace quintline::testing

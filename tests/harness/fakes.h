#pragma once
// A scripted clock and scripted random numbers for batch tests: each gives its
// script in order, then "??:??:??" and 0.

#include <deque>
#include <string>
#include <utility>

#include "harness/clock.h"
#include "harness/uniformSource.h"

namespace quintline::testing {

template <typename T>
T takeFront(std::deque<T>& queue, T fallback) {
    if (queue.empty()) return fallback;
    T value = std::move(queue.front());
    queue.pop_front();
    return value;
}

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

#pragma once
// Uniform random numbers for the random openings, replaceable in tests and
// seedable so that a batch can be repeated.

#include <cstdint>
#include <random>

namespace quintline {

class UniformSource {
  public:
    virtual ~UniformSource() = default;
    // A number from 0 up to but not including 1.
    virtual double next() = 0;
};

class SeededUniform final : public UniformSource {
  public:
    explicit SeededUniform(std::uint64_t seed) : engine_(seed) {}
    double next() override;

  private:
    std::mt19937_64 engine_;
};

// A seed that differs from run to run, taken from the clock.
std::uint64_t clockSeed();

}  // namespace quintline

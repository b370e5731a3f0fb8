#pragma once
// Where the test mode draws its random numbers: one uniform source in [0, 1). The console seeds
// it when it opens; tests give a scripted source instead, so every draw can be replayed.

#include <cstdint>
#include <random>

namespace orr {

class RandomSource {
  public:
    virtual ~RandomSource() = default;
    // The next number, uniform in [0, 1).
    virtual double next() = 0;
    virtual void seed(std::uint32_t value) = 0;
};

class SeededRandom : public RandomSource {
  public:
    explicit SeededRandom(std::uint32_t value = 0) { seed(value); }
    double next() override;
    void seed(std::uint32_t value) override { engine_.seed(value); }
    // A seed from the clock, for a run that no one asked to replay.
    static std::uint32_t clockSeed();

  private:
    std::mt19937 engine_;
};

}  // namespace orr

#pragma once

#include <cstdint>

// X' = (1140671485 X + 12820163) mod 2^24 from X = 327680, drawing X' / 2^24: the same
// walls come out on every platform and in every run.
class RandomGenerator {
  public:
    static constexpr std::uint32_t StartState = 327680;

    float next();
    std::uint32_t state() const { return x; }

  private:
    std::uint32_t x = StartState;
};

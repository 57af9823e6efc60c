#include "random_generator.h"

namespace {
constexpr std::uint32_t Modulus = 1u << 24;
}

float RandomGenerator::next() {
    x = static_cast<std::uint32_t>((1140671485ull * x + 12820163ull) % Modulus);
    return static_cast<float>(x) / static_cast<float>(Modulus);
}

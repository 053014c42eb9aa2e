#pragma once

#include <cstdint>
#include <random>

namespace amorra {

// Every chance in the game comes from one of these: a uniform double in [0, 1).
class RandomSource
{
public:
    virtual ~RandomSource() = default;
    virtual double uniform() = 0;
};

// The production source: seeded once (from std::random_device unless a seed
// is given), so draws made within one clock tick are still independent.
class SystemRandom final : public RandomSource
{
public:
    SystemRandom();
    explicit SystemRandom(std::uint64_t seed);
    double uniform() override;

private:
    std::mt19937_64 m_engine;
};

} // namespace amorra

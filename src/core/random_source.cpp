#include "random_source.h"

namespace amorra {

namespace {
std::uint64_t seedFromDevice()
{
    std::random_device device;
    return (static_cast<std::uint64_t>(device()) << 32) ^ device();
}
} // namespace

SystemRandom::SystemRandom()
    : m_engine(seedFromDevice())
{
}

SystemRandom::SystemRandom(std::uint64_t seed)
    : m_engine(seed)
{
}

double SystemRandom::uniform()
{
    // 53 random bits scaled into [0, 1): never 1.0, unlike some library
    // distributions under rounding.
    return static_cast<double>(m_engine() >> 11) * (1.0 / 9007199254740992.0);
}

} // namespace amorra

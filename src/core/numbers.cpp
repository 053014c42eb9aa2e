#include "numbers.h"

#include <cfenv>
#include <cmath>
#include <limits>

namespace amorra {

i16 saturate16(long long value)
{
    if (value > std::numeric_limits<i16>::max())
        return std::numeric_limits<i16>::max();
    if (value < std::numeric_limits<i16>::min())
        return std::numeric_limits<i16>::min();
    return static_cast<i16>(value);
}

i16 add16(i16 a, long long b)
{
    // Every amount the game adds is a few thousand at most, far from
    // overflowing the wide sum.
    return saturate16(static_cast<long long>(a) + b);
}

double roundHalfEven(double value)
{
    // nearbyint follows the current rounding mode; the game never changes it
    // from the default (to nearest, ties to even).
    return std::nearbyint(value);
}

i16 roundTo16(double value)
{
    if (std::isnan(value))
        return 0;
    const double r = roundHalfEven(value);
    if (r >= 32767.0)
        return 32767;
    if (r <= -32768.0)
        return -32768;
    return static_cast<i16>(r);
}

int drawFromOne(double rnd, double k)
{
    return static_cast<int>(std::floor(rnd * k + 1.0));
}

std::string toDecimal(long long value)
{
    return std::to_string(value);
}

} // namespace amorra

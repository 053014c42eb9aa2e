#pragma once

#include <cstdint>
#include <string>

namespace amorra {

// The game keeps its counters in 16 bits, as it always has.
using i16 = std::int16_t;

// Clamp to the 16-bit range instead of wrapping: a runaway counter should
// stick at its limit rather than flip sign and end a game by accident.
i16 saturate16(long long value);

// Adds with saturation; the common way every counter moves.
i16 add16(i16 a, long long b);

// Nearest integer, halves to the even neighbour (the game's only rounding).
double roundHalfEven(double value);

// Rounds half to even and saturates; NaN becomes 0.
i16 roundTo16(double value);

// Int(Rnd * k + 1): the game's way of drawing a whole number from 1 to k.
int drawFromOne(double rnd, double k);

std::string toDecimal(long long value);

} // namespace amorra

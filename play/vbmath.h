// Whole-number conventions of the game's arithmetic: 16/32-bit widths, half-to-even rounding,
// truncating division and overflow-checked narrowing.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>

using Integer = std::int16_t;
using Long = std::int32_t;

namespace vb
{

// Rounds to the nearest whole number, a half to the even neighbour (banker's rounding).
inline double roundHalfEven(double v)
{
    const double r = std::round(v);
    if (std::fabs(v - std::trunc(v)) == 0.5)
        return 2.0 * std::round(v / 2.0);
    return r;
}

// Narrows to 16 bits; a value out of range is an overflow, as in the game's Integer arithmetic.
inline Integer checked16(long long v)
{
    if (v < std::numeric_limits<Integer>::min() || v > std::numeric_limits<Integer>::max())
        throw std::overflow_error("Integer overflow");
    return static_cast<Integer>(v);
}

inline Long checked32(long long v)
{
    if (v < std::numeric_limits<Long>::min() || v > std::numeric_limits<Long>::max())
        throw std::overflow_error("Long overflow");
    return static_cast<Long>(v);
}

// Round to a Long / an Integer, halves to even.
inline Long CLng(double v)
{
    return checked32(static_cast<long long>(roundHalfEven(v)));
}

inline Integer CInt(double v)
{
    return checked16(static_cast<long long>(roundHalfEven(v)));
}

} // namespace vb

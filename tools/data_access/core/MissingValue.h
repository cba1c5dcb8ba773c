#pragma once

#include <cmath>
#include <limits>

namespace gkBase {

/// Marks a missing or automatic value in numbers that cross an interface (picking position, tadpole azimuth,
/// automatic interval size, undefined statistics).
inline constexpr double g_dMissingValue = 99999.0;

/// What a typed double column stores in an empty cell.
inline constexpr double g_dEmptyCell = std::numeric_limits<double>::quiet_NaN();

/// True for everything that statistics, ranges and charts read as "no value": NaN, infinity and 99999.0.
inline bool isMissing(double dValue)
{
    return !std::isfinite(dValue) || dValue == g_dMissingValue;
}

} // namespace gkBase

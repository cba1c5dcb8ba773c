#pragma once

#include "MissingValue.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

inline constexpr double g_dPi = 3.141592653589793;
inline constexpr double g_dDegreesPerRadian = 57.29577951308232;

inline constexpr double radians(double dDegrees)
{
    return dDegrees / g_dDegreesPerRadian;
}

inline constexpr double degrees(double dRadians)
{
    return dRadians * g_dDegreesPerRadian;
}

/// Arc cosine in degrees of a cosine that rounding may have pushed a little out of [−1, 1].
inline double acosDegrees(double dCosine)
{
    return degrees(std::acos(std::clamp(dCosine, -1.0, 1.0)));
}

/// Arc sine in degrees of a sine that rounding may have pushed a little out of [−1, 1].
inline double asinDegrees(double dSine)
{
    return degrees(std::asin(std::clamp(dSine, -1.0, 1.0)));
}

/// An angle in degrees brought to [0, dPeriod); NaN for NaN and infinity. Never returns the period itself, not even
/// for −1e-20.
inline double wrapAngle(double dDegrees, double dPeriod)
{
    double dWrapped = std::fmod(dDegrees, dPeriod);
    if (dWrapped < 0.0) {
        dWrapped += dPeriod;
    }
    return dWrapped >= dPeriod || dWrapped == 0.0 ? 0.0 : dWrapped;
}

/// An azimuth in degrees brought to [0, 360). A missing azimuth (NaN, infinity, 99999.0) gives NaN.
inline double wrapAzimuth(double dDegrees)
{
    return isMissing(dDegrees) ? g_dEmptyCell : wrapAngle(dDegrees, 360.0);
}

/// The smaller angle between two directions, 0 … 180 degrees.
inline double angularDifference(double dFirst, double dSecond)
{
    const double dDifference = wrapAngle(dFirst - dSecond, 360.0);
    return std::min(dDifference, 360.0 - dDifference);
}

/// The smaller angle between two axes (directions that equal their opposites), 0 … 90 degrees.
inline double axialDifference(double dFirst, double dSecond)
{
    const double dDifference = wrapAngle(dFirst - dSecond, 180.0);
    return std::min(dDifference, 180.0 - dDifference);
}

} // namespace gkBase

#pragma once

#include "Angles.h"

#include <cmath>
#include <cstdint>

namespace gkBase {

struct SineCosine
{
    double m_dSine;
    double m_dCosine;
};

/// Sine and cosine of a finite angle in degrees, to within 3e-16, for loops over many records: no call, no branch on
/// the angle. Exact at whole quarter turns, and angles 180 apart give exactly opposite numbers. The angle is brought
/// to ±45 degrees first, where the Taylor series ends below the rounding.
inline SineCosine sineCosine(double dDegrees)
{
    if (std::abs(dDegrees) > 1e9) {
        dDegrees = std::fmod(dDegrees, 360.0);
    }
    // Adding and taking away 1.5 · 2^52 rounds to the nearest whole number.
    constexpr double dRounder = 6755399441055744.0;
    const double dQuarter = (dDegrees * (1.0 / 90.0) + dRounder) - dRounder;
    const double x = (dDegrees - 90.0 * dQuarter) * (g_dPi / 180.0);
    const double x2 = x * x;
    const double dSine =
        x + x * x2 *
                (-1.0 / 6 +
                 x2 * (1.0 / 120 +
                       x2 * (-1.0 / 5040 +
                             x2 * (1.0 / 362880 + x2 * (-1.0 / 39916800 +
                                                        x2 * (1.0 / 6227020800.0 + x2 * (-1.0 / 1307674368000.0)))))));
    const double dCosine =
        1.0 -
        x2 * (0.5 +
              x2 * (-1.0 / 24 +
                    x2 * (1.0 / 720 +
                          x2 * (-1.0 / 40320 + x2 * (1.0 / 3628800 + x2 * (-1.0 / 479001600.0 +
                                                                           x2 * (1.0 / 87178291200.0 +
                                                                                 x2 * (-1.0 / 20922789888000.0))))))));
    const double adParts[2] = {dSine, dCosine};
    constexpr double adSineSign[4] = {1.0, 1.0, -1.0, -1.0};
    constexpr double adCosineSign[4] = {1.0, -1.0, -1.0, 1.0};
    const auto iQuarter = static_cast<unsigned>(static_cast<std::int64_t>(dQuarter) & 3);
    return {adSineSign[iQuarter] * adParts[iQuarter & 1U], adCosineSign[iQuarter] * adParts[(iQuarter & 1U) ^ 1U]};
}

} // namespace gkBase

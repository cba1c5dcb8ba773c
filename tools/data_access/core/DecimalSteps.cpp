#include "DecimalSteps.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace gkBase {

namespace {

constexpr int g_iDigits = 15;
/// The powers of ten that a double holds exactly.
constexpr std::array g_adPowers{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

} // namespace

double decimalStep(double dStart, double dStep, double dIndex)
{
    const double dGrown = dStep * dIndex;
    const double dExact = dStart + dGrown;
    // The summands decide about the digits: a sum of 1e-17 beside summands of 1 is 0.
    const double dScale = std::max(std::abs(dStart), std::abs(dGrown));
    if (!(dScale > 0.0) || !std::isfinite(dExact)) {
        return dExact;
    }
    const int iDecimals = g_iDigits - 1 - static_cast<int>(std::floor(std::log10(dScale)));
    if (iDecimals < 0 || iDecimals >= static_cast<int>(g_adPowers.size())) {
        return dExact;
    }
    // A whole number over an exact power of ten is rounded once, to the double nearest to the decimal number.
    const double dPower = g_adPowers[static_cast<std::size_t>(iDecimals)];
    const double dDecimal = std::nearbyint(dExact * dPower) / dPower;
    const double dRounding = 4.0 * std::numeric_limits<double>::epsilon() * dScale;
    return std::abs(dDecimal - dExact) <= dRounding ? dDecimal : dExact;
}

} // namespace gkBase

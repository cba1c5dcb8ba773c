#include "NormalProbability.h"

#include "VectorRegisters.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace gkBase {

namespace {

using Coefficients = std::array<double, 8>;

// Numerators and denominators of the three rational approximations, constant term first.
constexpr Coefficients g_adCentralTop{3.3871328727963666080e0,  1.3314166789178437745e+2, 1.9715909503065514427e+3,
                                      1.3731693765509461125e+4, 4.5921953931549871457e+4, 6.7265770927008700853e+4,
                                      3.3430575583588128105e+4, 2.5090809287301226727e+3};
constexpr Coefficients g_adCentralBottom{1.0,
                                         4.2313330701600911252e+1,
                                         6.8718700749205790830e+2,
                                         5.3941960214247511077e+3,
                                         2.1213794301586595867e+4,
                                         3.9307895800092710610e+4,
                                         2.8729085735721942674e+4,
                                         5.2264952788528545610e+3};
constexpr Coefficients g_adTailTop{1.42343711074968357734e0,  4.63033784615654529590e0, 5.76949722146069140550e0,
                                   3.64784832476320460504e0,  1.27045825245236838258e0, 2.41780725177450611770e-1,
                                   2.27238449892691845833e-2, 7.74545014278341407640e-4};
constexpr Coefficients g_adTailBottom{1.0,
                                      2.05319162663775882187e0,
                                      1.67638483018380384940e0,
                                      6.89767334985100004550e-1,
                                      1.48103976427480074590e-1,
                                      1.51986665636164571966e-2,
                                      5.47593808499534494600e-4,
                                      1.05075007164441684324e-9};
constexpr Coefficients g_adFarTop{6.65790464350110377720e0,  5.46378491116411436990e0,  1.78482653991729133580e0,
                                  2.96560571828504891230e-1, 2.65321895265761230930e-2, 1.24266094738807843860e-3,
                                  2.71155556874348757815e-5, 2.01033439929228813265e-7};
constexpr Coefficients g_adFarBottom{1.0,
                                     5.99832206555887937690e-1,
                                     1.36929880922735805310e-1,
                                     1.48753612908506148525e-2,
                                     7.86869131145613259100e-4,
                                     1.84631831751005468180e-5,
                                     1.42151175831644588870e-7,
                                     2.04426310338993978564e-15};

double ratio(const Coefficients& adTop, const Coefficients& adBottom, double dR)
{
    double dTop = 0.0;
    double dBottom = 0.0;
    for (std::size_t i = adTop.size(); i-- > 0;) {
        dTop = dTop * dR + adTop[i];
        dBottom = dBottom * dR + adBottom[i];
    }
    return dTop / dBottom;
}

} // namespace

double normalQuantile(double p)
{
    constexpr double dCentral = 0.425;
    constexpr double dFar = 5.0;
    if (!(p >= 0.0 && p <= 1.0)) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    if (p == 0.0 || p == 1.0) {
        return p == 0.0 ? -std::numeric_limits<double>::infinity() : std::numeric_limits<double>::infinity();
    }
    const double dQ = p - 0.5;
    if (std::abs(dQ) <= dCentral) {
        return dQ * ratio(g_adCentralTop, g_adCentralBottom, dCentral * dCentral - dQ * dQ);
    }
    const double dR = std::sqrt(-std::log(dQ < 0.0 ? p : 1.0 - p));
    const double dZ =
        dR <= dFar ? ratio(g_adTailTop, g_adTailBottom, dR - 1.6) : ratio(g_adFarTop, g_adFarBottom, dR - dFar);
    return dQ < 0.0 ? -dZ : dZ;
}

double normalProbability(double z)
{
    return 0.5 * std::erfc(-z * 0.70710678118654752440);
}

NormalFit normalProbabilityFit(std::span<const double> vdSorted)
{
    NormalFit oFit;
    oFit.m_iCount = vdSorted.size();
    if (vdSorted.empty()) {
        return oFit;
    }
    // The quantiles lie evenly about 0, so that their mean is 0 and the line crosses it at the mean of the values.
    const double dFirst = vdSorted.front();
    double dSum = 0.0;
    for (const double dValue : vdSorted) {
        dSum += dValue - dFirst;
    }
    const double dMean = dSum / static_cast<double>(vdSorted.size());
    oFit.m_dMean = dFirst + dMean;
    if (vdSorted.size() < 2) {
        return oFit;
    }
    clearVectorRegisters();
    double dZZ = 0.0;
    double dVZ = 0.0;
    double dVV = 0.0;
    for (std::size_t i = 0; i < vdSorted.size(); ++i) {
        const double dZ = normalQuantile(plottingPosition(i, vdSorted.size()));
        const double dStep = vdSorted[i] - dFirst - dMean;
        dZZ += dZ * dZ;
        dVZ += dStep * dZ;
        dVV += dStep * dStep;
    }
    oFit.m_dStandardDeviation = dVV > 0.0 ? dVZ / dZZ : 0.0;
    oFit.m_dCorrelation = dVV > 0.0 ? std::clamp(dVZ / (std::sqrt(dZZ) * std::sqrt(dVV)), -1.0, 1.0) : 0.0;
    return oFit;
}

} // namespace gkBase

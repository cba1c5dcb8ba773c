#include "FisherStatistics.h"

#include "Angles.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

/// A difference N − R below this leaves κ unbounded.
constexpr double g_dCoincident = 0.0005;
/// Share of N below which lengths are rounding noise.
constexpr double g_dNoise = 1e-13;

double alpha95(double dCount, double dResultant, double dDeficit)
{
    if (dCount < 2.0 || dResultant <= g_dNoise * dCount) {
        return g_dMissingValue;
    }
    // 1 − cos α95, from which sin²(α95 / 2) follows without cancellation.
    const double dVersine = std::expm1(std::log(20.0) / (dCount - 1.0)) * dDeficit / dResultant;
    return dVersine > 2.0 ? g_dMissingValue : degrees(2.0 * std::asin(std::sqrt(0.5 * dVersine)));
}

} // namespace

FisherStatistics fisherStatistics(const OrientationSums& oSums)
{
    FisherStatistics oResult;
    oResult.m_iCount = oSums.m_iCount;
    if (oSums.m_iCount == 0) {
        return oResult;
    }
    const auto dCount = static_cast<double>(oSums.m_iCount);
    const double dLength = std::min(oSums.m_oResultant.length(), dCount);
    const double dDeficit = dCount - dLength < g_dNoise * dCount ? 0.0 : dCount - dLength;
    oResult.m_dResultantLength = dCount - dDeficit;
    oResult.m_dMeanResultantLength = oResult.m_dResultantLength / dCount;
    oResult.m_dSphericalVariance = dDeficit / dCount;
    oResult.m_bKappaUnbounded = dDeficit < g_dCoincident;
    if (!oResult.m_bKappaUnbounded) {
        oResult.m_dKappa = (dCount - 1.0) / dDeficit;
    }
    oResult.m_dAlpha95 = alpha95(dCount, dLength, dDeficit);
    if (dLength > g_dNoise * dCount) {
        oResult.m_oMeanLine = lineOf(oSums.m_oResultant);
        oResult.m_oMeanPlane = planeOfPole(oSums.m_oResultant);
    }
    return oResult;
}

} // namespace gkBase

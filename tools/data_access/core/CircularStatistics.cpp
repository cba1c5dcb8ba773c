#include "CircularStatistics.h"

#include "Angles.h"
#include "SineCosine.h"

#include <cmath>

namespace gkBase {

namespace {

/// The mean from the sums of the components of iCount unit vectors.
CircularMean meanOf(double dNorth, double dEast, std::size_t iCount)
{
    // Below this the vectors cancel out but for the rounding of their sines and cosines.
    constexpr double dSmallestLength = 1e-13;
    CircularMean oMean;
    oMean.m_iCount = iCount;
    if (iCount == 0) {
        return oMean;
    }
    const double dLength = std::hypot(dNorth, dEast) / static_cast<double>(iCount);
    if (dLength >= dSmallestLength) {
        oMean.m_dDirection = wrapAngle(degrees(std::atan2(dEast, dNorth)), 360.0);
        oMean.m_dResultantLength = std::min(dLength, 1.0);
    }
    return oMean;
}

} // namespace

CircularMean circularMean(const RecordValues& oDegrees)
{
    return circularMeans(oDegrees).m_oDirection;
}

CircularMean axialMean(const RecordValues& oDegrees)
{
    return circularMeans(oDegrees).m_oAxis;
}

CircularMeans circularMeans(const RecordValues& oDegrees)
{
    double dNorth = 0.0;
    double dEast = 0.0;
    double dDoubledNorth = 0.0;
    double dDoubledEast = 0.0;
    std::size_t iCount = 0;
    oDegrees.forEach([&](double dValue) {
        const auto [dSine, dCosine] = sineCosine(dValue);
        dNorth += dCosine;
        dEast += dSine;
        dDoubledNorth += (dCosine - dSine) * (dCosine + dSine);
        dDoubledEast += 2.0 * dSine * dCosine;
        ++iCount;
    });
    CircularMeans oMeans{meanOf(dNorth, dEast, iCount), meanOf(dDoubledNorth, dDoubledEast, iCount)};
    if (!isMissing(oMeans.m_oAxis.m_dDirection)) {
        oMeans.m_oAxis.m_dDirection *= 0.5;
    }
    return oMeans;
}

} // namespace gkBase

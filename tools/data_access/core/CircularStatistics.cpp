#include "CircularStatistics.h"

#include "Angles.h"
#include "VectorRegisters.h"

#include <cmath>

namespace gkBase {

namespace {

/// Mean of the angles times iMultiple, in degrees of the multiplied angle.
CircularMean meanOfMultiples(const RecordValues& oDegrees, int iMultiple)
{
    // Below this the vectors cancel out but for the rounding of their sines and cosines.
    constexpr double dSmallestLength = 1e-13;
    double dNorth = 0.0;
    double dEast = 0.0;
    std::size_t iCount = 0;
    clearVectorRegisters();
    oDegrees.forEach([&](double dValue) {
        const double dAngle = radians(dValue * iMultiple);
        dNorth += std::cos(dAngle);
        dEast += std::sin(dAngle);
        ++iCount;
    });
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
    return meanOfMultiples(oDegrees, 1);
}

CircularMean axialMean(const RecordValues& oDegrees)
{
    CircularMean oMean = meanOfMultiples(oDegrees, 2);
    if (!isMissing(oMean.m_dDirection)) {
        oMean.m_dDirection *= 0.5;
    }
    return oMean;
}

} // namespace gkBase
